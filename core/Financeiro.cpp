#include "core/Financeiro.h"

#include <algorithm>
#include <cstring>

#include "core/Checksum.h"
#include "core/Motor.h"

namespace {

template <class REG>
constexpr bool kTemImpostos = requires(REG& reg) {
  reg.ListaItemImposto;
};

// As every fixed text is copied: terminated, and zero behind the end.
template <std::size_t N>
void CopiaDocumento(const char (&de)[N], char (&para)[N]) {
  const char* const fim = std::find(de, de + N - 1, '\0');
  std::fill(std::copy(de, fim, para), para + N, '\0');
}

void LeCampos(const tagREG_FATURA_CONHECIMENTOPS& de, tagREG_FATURA_ENTRADAPS& para) {
  para.RegDataVencimento = de.DataHoraVencimento.Data;
  para.NumeroDias = de.NumeroDias;
  para.Valor = de.Valor;
  para.ValorLiquido = de.ValorLiquido;
  CopiaDocumento(de.NumeroDocumento, para.NumeroDocumento);
  para.PonteiroTipoVencimento = de.PonteiroTipoVencimento;
  para.PonteiroFormaPagamento = de.PonteiroFormaPagamento;
  para.ValorDigitado = de.ValorDigitado;
}

void EscreveCampos(const tagREG_FATURA_ENTRADAPS& de, tagREG_FATURA_CONHECIMENTOPS& para) {
  para.DataHoraVencimento = {de.RegDataVencimento, {}};
  para.NumeroDias = de.NumeroDias;
  para.Valor = de.Valor;
  para.ValorLiquido = de.ValorLiquido;
  CopiaDocumento(de.NumeroDocumento, para.NumeroDocumento);
  para.PonteiroTipoVencimento = de.PonteiroTipoVencimento;
  para.PonteiroFormaPagamento = de.PonteiroFormaPagamento;
  para.ValorDigitado = de.ValorDigitado;
}

// The order's and the quotation's records have the same fields, and no taxes.
template <class De, class Para>
void CopiaCamposCurtos(const De& de, Para& para) {
  para.RegDataVencimento = de.RegDataVencimento;
  para.PonteiroTipoVencimento = de.PonteiroTipoVencimento;
  para.PonteiroFormaPagamento = de.PonteiroFormaPagamento;
  para.ValorDigitado = de.ValorDigitado;
  para.Valor = de.Valor;
  para.NumeroDias = de.NumeroDias;
}

template <class REG>
void LeCampos(const REG& de, tagREG_FATURA_ENTRADAPS& para) {
  CopiaCamposCurtos(de, para);
}

template <class REG>
void EscreveCampos(const tagREG_FATURA_ENTRADAPS& de, REG& para) {
  CopiaCamposCurtos(de, para);
}

template <class REG>
void LiberaImpostos(REG* registro, kx::Alocador alocador) noexcept {
  if (registro == nullptr) return;
  kx::LiberaArray(alocador, registro->ListaItemImposto);
  registro->ListaItemImposto = nullptr;
  registro->QtdItemImposto = 0;
}

}  // namespace

unsigned long CKXDadosCM_Parcela::OnCalculaCRC(unsigned long* /*anterior*/) const {
  std::uint32_t crc = 0;
  const auto soma = [&crc](const auto& campo) {
    crc = kx::CalculaChecksum(&campo, sizeof(campo), crc);
  };
  soma(_Reg.RegDataVencimento);
  soma(_Reg.NumeroDias);
  soma(_Reg.Valor);
  soma(_Reg.ValorLiquido);
  const CString documento = GetNumeroDocumento();
  crc = kx::CalculaChecksum(documento.GetString(), documento.Vista().size(), crc);
  soma(_Reg.PonteiroTipoVencimento);
  soma(_Reg.PonteiroFormaPagamento);
  soma(_Reg.ValorDigitado);
  return crc;
}

template <class REG>
CKXDadosCM_Parcela& CKXDadosCM_Parcela::Le(const REG* origem, Origem tipo) {
  static_assert(sizeof(REG) <= sizeof(_Bruto.Bytes));
  Limpar();
  REG copia;
  if (origem == nullptr || kx::CopiaBloco(&copia, origem, sizeof(copia), kPosicao) == nullptr) {
    return *this;
  }
  LeCampos(copia, _Reg);
  kx::EsquecePendentes(copia);
  std::memcpy(_Bruto.Bytes.data(), &copia, sizeof(copia));
  _Bruto.De = tipo;
  if constexpr (kTemImpostos<REG>) {
    kx::Leitura::Lista(_ListaItemImposto, origem->ListaItemImposto, origem->QtdItemImposto,
                       kPosicao);
  }
  return *this;
}

template <class REG>
const CKXDadosCM_Parcela& CKXDadosCM_Parcela::Escreve(REG* destino, Origem tipo,
                                                      kx::Alocador alocador) const {
  REG copia{};
  if (_Bruto.De == tipo) std::memcpy(&copia, _Bruto.Bytes.data(), sizeof(copia));
  EscreveCampos(_Reg, copia);
  if (kx::CopiaBloco(destino, &copia, sizeof(copia), kPosicao) == nullptr) return *this;
  if constexpr (kTemImpostos<REG>) {
    kx::Escrita::Lista(_ListaItemImposto, destino->ListaItemImposto, destino->QtdItemImposto,
                       alocador);
  }
  return *this;
}

CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarDe(const tagREG_FATURA_CONHECIMENTOPS* origem) {
  return Le(origem, Origem::Conhecimento);
}

CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarDe(const tagREG_FATURA_COMPRAPS* origem) {
  return Le(origem, Origem::Compra);
}

CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarDe(const tagREG_COTACAOITEMFATURAPS* origem) {
  return Le(origem, Origem::Cotacao);
}

const CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarPara(
    tagREG_FATURA_CONHECIMENTOPS* destino) const {
  return Escreve(destino, Origem::Conhecimento, kx::Alocador::Delete);
}

const CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarPara(tagREG_FATURA_COMPRAPS* destino) const {
  return Escreve(destino, Origem::Compra, kx::Alocador::Delete);
}

const CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarPara(
    tagREG_COTACAOITEMFATURAPS* destino) const {
  return Escreve(destino, Origem::Cotacao, kx::Alocador::Delete);
}

const CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarParaPS(
    tagREG_FATURA_CONHECIMENTOPS* destino) const {
  return Escreve(destino, Origem::Conhecimento, kx::Alocador::Tarefa);
}

const CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarParaPS(tagREG_FATURA_COMPRAPS* destino) const {
  return CopiarPara(destino);
}

const CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarParaPS(
    tagREG_COTACAOITEMFATURAPS* destino) const {
  return CopiarPara(destino);
}

void CKXDadosCM_Parcela::ZerarDelete(tagREG_FATURA_ENTRADAPS* registro) {
  LiberaImpostos(registro, kx::Alocador::Delete);
}

void CKXDadosCM_Parcela::ZerarGlobalAlloc(tagREG_FATURA_ENTRADAPS* registro) {
  LiberaImpostos(registro, kx::Alocador::Tarefa);
}

void CKXDadosCM_Parcela::ZerarDelete(tagREG_FATURA_CONHECIMENTOPS* registro) {
  LiberaImpostos(registro, kx::Alocador::Delete);
}

void CKXDadosCM_Parcela::ZerarGlobalAlloc(tagREG_FATURA_CONHECIMENTOPS* registro) {
  LiberaImpostos(registro, kx::Alocador::Tarefa);
}

void CKXDadosCM_Parcela::ZerarDelete(tagREG_FATURA_COMPRAPS* registro) {
  kx::LiberaRegistro(registro, kx::Alocador::Delete);
}

void CKXDadosCM_Parcela::ZerarDelete(tagREG_COTACAOITEMFATURAPS* registro) {
  kx::LiberaRegistro(registro, kx::Alocador::Delete);
}

void CKXDadosCM_Parcela::ZerarGlobalAlloc(tagREG_FATURA_COMPRAPS* registro) {
  kx::LiberaRegistro(registro, kx::Alocador::Tarefa);
}

void CKXDadosCM_Parcela::ZerarGlobalAlloc(tagREG_COTACAOITEMFATURAPS* registro) {
  kx::LiberaRegistro(registro, kx::Alocador::Tarefa);
}
