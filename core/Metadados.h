// What is known of a record at compile time and at run time: the same rows that make its struct.
//
//   for (const KXCampo& campo : KXMetadados<tagREG_ENTRADAPS>::kInfo.Campos) ...
//
// Everything here is constant data; any thread may read it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "kxldados/Tipos.h"

// How the bytes of a field are read.
enum class KXTipoCampo : std::uint8_t {
  Bytes,           // uninterpreted
  Texto,           // fixed-width Latin-1 text, zero-filled
  Historico,       // the same, compared by its first three lines
  Dinheiro,        // CY
  Data,            // REG_KXDMA
  DataHora,        // REG_KXDMAHMSUTC
  DataHora32,      // KXDataHora32
  ChaveDocumento,  // REG_KXDMC
  ChaveNFe,        // _KX_NFE_ps
  PosicaoProduto,  // _REG_POSICAO_PRODUTOPS
  SemSinal8,
  SemSinal16,
  SemSinal32,
  SemSinal64,
  ComSinal32,
  ComSinal64,
  Caractere,     // char
  TextoContado,  // KXStringPS
  Ponteiro,      // first element of a child array, or first character of a text
};

// What a row of the table stands for.
enum class KXPapel : std::uint8_t {
  Campo,      // a field with accessors
  Parte,      // a named part of the field above it; its bytes belong to that field
  Interno,    // a field whose value another object keeps
  Reserva,    // carried unchanged
  Zero,       // spare bytes that do not travel
  Bloco,      // counted text
  Tamanho,    // size of a text; its row Texto... stands elsewhere
  Corrido,    // pointer to the characters of a text
  Terminado,  // the same, of a text without a size: it ends at its terminator
  Conta,      // count of a child array; its row Lista... stands elsewhere
  Lista,      // child array
};

struct KXRegistroInfo;

// One field, or another row of a record's table.
struct KXCampo {
  const char* Nome;                // of the member of the struct
  std::uint16_t Posicao;           // bytes from the start of the record
  std::uint16_t Largura;           // bytes
  KXTipoCampo Tipo;                // how its bytes are read
  KXPapel Papel;                   // what it stands for
  std::uint16_t Igualdade;         // place in the order of comparison, 0 when not compared
  const char* Significado;         // English, without a full stop
  const KXRegistroInfo* Elemento;  // record of the elements, of a list alone
};

// One record.
struct KXRegistroInfo {
  const char* Nome;                 // of the struct
  const char* Significado;          // English, without a full stop
  std::uint32_t Tamanho;            // bytes
  std::span<const KXCampo> Campos;  // in byte order
};

// Specialised by each record table: Registro, kInfo, kCampos and VisitaListas, which calls
// visitante.Lista(pointer&, count&) for each child array, visitante.Texto(KXStringPS&) and
// visitante.TextoCorrido(pointer&, size&) for each counted text, visitante.TextoTerminado(pointer&)
// for each text without a size, and visitante.Zero(bytes&) for the spare bytes of a record.
template <class REG>
struct KXMetadados;

namespace kx {

// How a field of the type T is read; specialised for each type that fields have.
template <class T>
struct TipoDe;
template <>
struct TipoDe<CY> {
  static constexpr auto valor = KXTipoCampo::Dinheiro;
};
template <>
struct TipoDe<REG_KXDMA> {
  static constexpr auto valor = KXTipoCampo::Data;
};
template <>
struct TipoDe<REG_KXDMAHMSUTC> {
  static constexpr auto valor = KXTipoCampo::DataHora;
};
template <>
struct TipoDe<KXDataHora32> {
  static constexpr auto valor = KXTipoCampo::DataHora32;
};
template <>
struct TipoDe<REG_KXDMC> {
  static constexpr auto valor = KXTipoCampo::ChaveDocumento;
};
template <>
struct TipoDe<_KX_NFE_ps> {
  static constexpr auto valor = KXTipoCampo::ChaveNFe;
};
template <>
struct TipoDe<_REG_POSICAO_PRODUTOPS> {
  static constexpr auto valor = KXTipoCampo::PosicaoProduto;
};
template <>
struct TipoDe<std::uint8_t> {
  static constexpr auto valor = KXTipoCampo::SemSinal8;
};
template <>
struct TipoDe<std::uint16_t> {
  static constexpr auto valor = KXTipoCampo::SemSinal16;
};
template <>
struct TipoDe<std::uint32_t> {
  static constexpr auto valor = KXTipoCampo::SemSinal32;
};
template <>
struct TipoDe<std::uint64_t> {
  static constexpr auto valor = KXTipoCampo::SemSinal64;
};
template <>
struct TipoDe<std::int32_t> {
  static constexpr auto valor = KXTipoCampo::ComSinal32;
};
template <>
struct TipoDe<std::int64_t> {
  static constexpr auto valor = KXTipoCampo::ComSinal64;
};
template <>
struct TipoDe<char> {
  static constexpr auto valor = KXTipoCampo::Caractere;
};

// The value of TipoDe.
template <class T>
inline constexpr KXTipoCampo kTipoDe = TipoDe<T>::valor;

// True when each row begins where the one before ended and the last ends at the record's size.
constexpr bool TabelaContigua(std::span<const KXCampo> campos, std::size_t tamanho) {
  std::size_t posicao = 0;
  for (const KXCampo& campo : campos) {
    if (campo.Papel == KXPapel::Parte) {
      if (std::size_t{campo.Posicao} + campo.Largura > posicao) return false;
      continue;
    }
    if (campo.Posicao != posicao) return false;
    posicao += campo.Largura;
  }
  return posicao == tamanho;
}

}  // namespace kx
