#include "core/Financeiro.h"

#include <cstring>

#include "core/Checksum.h"
#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosCore";

template <class REG>
constexpr bool kTemImpostos = requires(REG& reg) {
  reg.ListaItemImposto;
};

void LeCampos(const tagREG_FATURA_CONHECIMENTOPS& de, tagREG_FATURA_ENTRADAPS& para) {
  para.RegDataVencimento = de.DataHoraVencimento.Data;
  para.NumeroDias = de.NumeroDias;
  para.Valor = de.Valor;
  para.ValorLiquido = de.ValorLiquido;
  std::memcpy(para.NumeroDocumento, de.NumeroDocumento, sizeof(para.NumeroDocumento));
  para.PonteiroTipoVencimento = de.PonteiroTipoVencimento;
  para.PonteiroFormaPagamento = de.PonteiroFormaPagamento;
  para.ValorDigitado = de.ValorDigitado;
}

void EscreveCampos(const tagREG_FATURA_ENTRADAPS& de, tagREG_FATURA_CONHECIMENTOPS& para) {
  // What came beside the date holds for that date alone.
  if (para.DataHoraVencimento.Data != de.RegDataVencimento) {
    para.DataHoraVencimento = {de.RegDataVencimento, {}};
  }
  para.NumeroDias = de.NumeroDias;
  para.Valor = de.Valor;
  para.ValorLiquido = de.ValorLiquido;
  std::memcpy(para.NumeroDocumento, de.NumeroDocumento, sizeof(para.NumeroDocumento));
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

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_ImpostoDeducao, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_ImpostoDeducao, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_ImpostoDeducao)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_ItemImposto, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_ItemImposto, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_ItemImposto)

const CKXDadosCM_ItemImposto& CKXDadosCM_ItemImposto::CopiarParaPS(
    tagREG_ITEM_IMPOSTOPS* destino) const {
  kx::Motor::Escreve(*this, destino, kx::Alocador::Tarefa, kFonte, __LINE__);
  return *this;
}

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_TituloImposto, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_TituloImposto, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_TituloImposto)

KX_IMPLEMENTA_VIDA(CKXDadosCM_CondicaoPagamento, TKXCMBaseParaDados)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CondicaoPagamento)

CKXDadosCM_CondicaoPagamento::CKXDadosCM_CondicaoPagamento() = default;

KX_IMPLEMENTA_VIDA(CKXDadosCM_Parcela, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_Parcela, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_Parcela)

CKXDadosCM_Parcela::CKXDadosCM_Parcela() : _Reg{} {}

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
  if (origem == nullptr ||
      kx::CopiaBloco(&copia, origem, sizeof(copia), kFonte, __LINE__) == nullptr) {
    return *this;
  }
  LeCampos(copia, _Reg);
  kx::EsqueceListas(copia);
  std::memcpy(_Bruto.Bytes.data(), &copia, sizeof(copia));
  _Bruto.De = tipo;
  if constexpr (kTemImpostos<REG>) {
    kx::LeLista(_ListaItemImposto, origem->ListaItemImposto, origem->QtdItemImposto);
  }
  return *this;
}

template <class REG>
const CKXDadosCM_Parcela& CKXDadosCM_Parcela::Escreve(REG* destino, Origem tipo,
                                                      kx::Alocador alocador) const {
  REG copia{};
  if (_Bruto.De == tipo) std::memcpy(&copia, _Bruto.Bytes.data(), sizeof(copia));
  EscreveCampos(_Reg, copia);
  if (kx::CopiaBloco(destino, &copia, sizeof(copia), kFonte, __LINE__) == nullptr) return *this;
  if constexpr (kTemImpostos<REG>) {
    kx::EscreveLista(_ListaItemImposto, destino->ListaItemImposto, destino->QtdItemImposto,
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

const CKXDadosCM_Parcela& CKXDadosCM_Parcela::CopiarParaPS(tagREG_FATURA_ENTRADAPS* destino) const {
  kx::Motor::Escreve(*this, destino, kx::Alocador::Tarefa, kFonte, __LINE__);
  return *this;
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
