// Access key of an electronic fiscal document: 44 characters, packed into the 24 bytes of
// _KX_NFE_ps without loss.
//
//   _KX_NFE_ps chave{};
//   kx::ErroChave erro = kx::ChaveDeTexto(texto, chave);
//   if (erro != kx::ErroChave::Nenhum) Mostra(kx::MensagemErroChave(erro));
//
// The key, as the taxpayer's manual of the electronic invoice lays it out (Manual de Orientacao do
// Contribuinte da NF-e, field chNFe): state 2, year and month 4, CNPJ 14, model 2, series 3, number
// 9, form of issue 1, numeric code 8, check digit 1. All are digits, but for the first 12
// characters of the CNPJ, which since 2026 may be upper-case letters too (Instrucao Normativa RFB
// 2.229/2024 and the joint technical note of the fiscal documents on the alphanumeric CNPJ). The
// check digit is of modulo 11 with the weights 2 to 9 from the right, each character counting as
// its ASCII code less 48; a remainder of 0 or 1 gives the digit 0.
//
// The packing:
//   Partes[0]  the 12 characters in base 36; bit 63 is set, so that no key is all zeros
//   Partes[1]  13 digits: state, year and month, check digits of the CNPJ, model, series
//   Partes[2]  19 digits: number, form of issue, numeric code, check digit
// All bytes zero: no key.
//
// Packed keys are ordered and hashed (kxldados/Tipos.h): by the CNPJ first, so those of one issuer
// stand together, then by state, month of issue, model, series and number.
#pragma once

#include <string>
#include <string_view>

#include "kxldados/Tipos.h"
#include "platform/Exporta.h"

namespace kx {

// Why a text is not a key; Nenhum when it is.
enum class ErroChave {
  Nenhum,             // it is one
  Tamanho,            // not 44 characters
  Alfabeto,           // a character that its place does not allow; lower-case letters too
  DigitoVerificador,  // the last digit is not the check digit of the others
};

// Packs the 44 characters, with no separators and no prefix. On an error the destination keeps what
// it held.
KX_API ErroChave ChaveDeTexto(std::string_view texto, _KX_NFE_ps& destino) noexcept;

// The 44 characters; empty for no key and for bytes that ChaveDeTexto never writes.
KX_API std::string TextoDeChave(const _KX_NFE_ps& chave);

// No key: every byte zero.
constexpr bool ChaveVazia(const _KX_NFE_ps& chave) noexcept { return chave == _KX_NFE_ps{}; }

// Parts of a valid key; 0 when there is no key. Model 55 is the electronic invoice, 57 the
// electronic freight bill.
KX_API int ModeloDaChave(const _KX_NFE_ps& chave) noexcept;
KX_API int SerieDaChave(const _KX_NFE_ps& chave) noexcept;
KX_API int NumeroDaChave(const _KX_NFE_ps& chave) noexcept;

// Message for the user, in Portuguese (Latin-1); empty for Nenhum. A constant.
KX_API const char* MensagemErroChave(ErroChave erro) noexcept;

}  // namespace kx
