#include "re/DadosRE.h"

#include "core/Checksum.h"
#include "core/Motor.h"

// The link record carries nothing but the order's key.
static void EscreveElemento(const REG_KXDMC& chave, tagREG_ASSOCIACAO_RE_OCPS* vaga, kx::Alocador) {
  *vaga = {};
  vaga->Ordem = chave;
}

static void LeElemento(CKXVector<REG_KXDMC>& lista, const tagREG_ASSOCIACAO_RE_OCPS* vaga) {
  tagREG_ASSOCIACAO_RE_OCPS copia{};
  kx::CopiaBloco(&copia, vaga, sizeof(copia), "DadosRE", __LINE__);
  lista.push_back(copia.Ordem);
}

namespace {

constexpr const char* kFonte = "DadosRE";

void ZeraCondicao(tagREG_ENTRADAPS& registro) {
  registro.PonteiroTipoPeriodo = 0;
  registro.PonteiroTipoCobranca = 0;
  registro.DataPrimeiroVencimento = {};
  registro.PonteiroCondicaoPagamento = 0;
}

template <class T>
CKXCurrencyEx Soma(const CKXVector<T>& lista, const CY& (T::*getter)() const) {
  CKXCurrencyEx soma;
  for (const T& elemento : lista) soma = soma + (elemento.*getter)();
  return soma;
}

// Sums over a collection of the item at the index, or of every item.
template <class T, class Filho>
CKXCurrencyEx SomaDosFilhos(const CKXVector<T>& itens, long long indice,
                            const CKXVector<Filho>& (T::*filhos)() const,
                            const CY& (Filho::*getter)() const) {
  if (indice != CKXDadosCM_RERegistroEntrada::kTodosOsItens) {
    return Soma((itens.at(static_cast<std::size_t>(indice)).*filhos)(), getter);
  }
  CKXCurrencyEx soma;
  for (const T& item : itens) soma = soma + Soma((item.*filhos)(), getter);
  return soma;
}

}  // namespace

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_RENFReferidas, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_RENFReferidas, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_RENFReferidas)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_REObservacaoCFOP, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_REObservacaoCFOP, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REObservacaoCFOP)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_RERegistroEntrada, TKXBaseParaDados)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_RERegistroEntrada)

CKXDadosCM_RERegistroEntrada& CKXDadosCM_RERegistroEntrada::CopiarDe(const Registro* origem) {
  Base::OnLimpar();
  if (!kx::Motor::Le(*this, origem, kFonte, __LINE__)) return *this;
  _CondicaoPagamento.SetPonteiroTipoPeriodo(_Reg.PonteiroTipoPeriodo);
  _CondicaoPagamento.SetPonteiroTipoCobranca(_Reg.PonteiroTipoCobranca);
  _CondicaoPagamento.SetDataPrimeiroVencimento(_Reg.DataPrimeiroVencimento);
  _CondicaoPagamento.SetPonteiroCondicaoPagamento(_Reg.PonteiroCondicaoPagamento);
  // From here on the payment condition alone holds them.
  ZeraCondicao(_Reg);
  kx::LeLista(_CondicaoPagamento.GetListaParcela(), origem->ListaParcela, origem->QtdParcela);
  kx::LeLista(_CondicaoPagamento.GetListaTituloImposto(), origem->ListaTituloImposto,
              origem->QtdTituloImposto);
  return *this;
}

const CKXDadosCM_RERegistroEntrada& CKXDadosCM_RERegistroEntrada::CopiarPara(
    Registro* destino) const {
  if (!kx::Motor::Escreve(*this, destino, kx::Alocador::Tarefa, kFonte, __LINE__)) return *this;
  EscreveCondicao(*destino);
  kx::EscreveLista(_CondicaoPagamento.GetListaParcela(), destino->ListaParcela, destino->QtdParcela,
                   kx::Alocador::Tarefa);
  kx::EscreveLista(_CondicaoPagamento.GetListaTituloImposto(), destino->ListaTituloImposto,
                   destino->QtdTituloImposto, kx::Alocador::Tarefa);
  return *this;
}

void CKXDadosCM_RERegistroEntrada::EscreveCondicao(Registro& destino) const {
  destino.PonteiroTipoPeriodo = _CondicaoPagamento.GetPonteiroTipoPeriodo();
  destino.PonteiroTipoCobranca = _CondicaoPagamento.GetPonteiroTipoCobranca();
  destino.DataPrimeiroVencimento = _CondicaoPagamento.GetDataPrimeiroVencimento();
  destino.PonteiroCondicaoPagamento = _CondicaoPagamento.GetPonteiroCondicaoPagamento();
}

unsigned long CKXDadosCM_RERegistroEntrada::OnCalculaCRC(unsigned long* /*anterior*/) const {
  Registro atual = _Reg;
  EscreveCondicao(atual);
  return kx::CalculaChecksum(&atual, sizeof(atual));
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaProdutoDe(GetterProduto getter) const {
  return Soma(_ListaProduto, getter);
}

std::uint8_t CKXDadosCM_RERegistroEntrada::GetSomaProdutoDe(GetterProdutoUCHAR getter) const {
  unsigned soma = 0;
  for (const CKXDadosCM_REItemProduto& item : _ListaProduto) soma += item.Get_UCHAR(getter);
  return static_cast<std::uint8_t>(soma);
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaServicoDe(GetterServico getter) const {
  return Soma(_ListaServico, getter);
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaProdutoTotaisDe(GetterTotais getter) const {
  return SomaDosFilhos(_ListaProduto, kTodosOsItens, &CKXDadosCM_REItemProduto::GetListaTotais,
                       getter);
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaRateioProdutoDe(GetterRateioProduto getter,
                                                                   long long indice) const {
  return SomaDosFilhos(_ListaProduto, indice, &CKXDadosCM_REItemProduto::GetListaRateio, getter);
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaRateioServicoDe(GetterRateioServico getter,
                                                                   long long indice) const {
  return SomaDosFilhos(_ListaServico, indice, &CKXDadosCM_REItemServico::GetListaRateio, getter);
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaEntradaEstoqueProdutoDe(
    GetterEntradaEstoque getter, long long indice) const {
  return SomaDosFilhos(_ListaProduto, indice, &CKXDadosCM_REItemProduto::GetListaEntradaEstoque,
                       getter);
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaSuper(const CKXDadosCM_REItemProduto& item,
                                                         GetterProduto doItem,
                                                         GetterTotais dosTotais,
                                                         GetterRateioProduto doRateio) {
  CKXCurrencyEx soma;
  if (doItem != nullptr) soma = soma + item.Get_CURRENCY(doItem);
  if (dosTotais != nullptr && item.GetQuantidadeTotais() > 0) {
    soma = soma + (item.GetConstRefTotais(0).*dosTotais)();
  }
  if (doRateio != nullptr) soma = soma + Soma(item.GetListaRateio(), doRateio);
  return soma;
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaSuper(const CKXDadosCM_REItemServico& item,
                                                         GetterServico doItem,
                                                         GetterRateioServico doRateio) {
  CKXCurrencyEx soma;
  if (doItem != nullptr) soma = soma + (item.*doItem)();
  if (doRateio != nullptr) soma = soma + Soma(item.GetListaRateio(), doRateio);
  return soma;
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaSuper(
    const CKXDadosCM_RERegistroEntrada& entrada, GetterProduto doProduto, GetterTotais dosTotais,
    GetterRateioProduto doRateioProduto, GetterServico doServico,
    GetterRateioServico doRateioServico) {
  CKXCurrencyEx soma;
  for (const CKXDadosCM_REItemProduto& item : entrada._ListaProduto) {
    soma = soma + GetSomaSuper(item, doProduto, dosTotais, doRateioProduto);
  }
  for (const CKXDadosCM_REItemServico& item : entrada._ListaServico) {
    soma = soma + GetSomaSuper(item, doServico, doRateioServico);
  }
  return soma;
}

CKXCurrencyEx CKXDadosCM_RERegistroEntrada::GetSomaRateioProdutoDe_e_ProdutoTotaisDe_deprecated(
    const CKXDadosCM_RERegistroEntrada& entrada, GetterRateioProduto doRateio,
    GetterTotais dosTotais) {
  return GetSomaSuper(entrada, nullptr, dosTotais, doRateio, nullptr, nullptr);
}
