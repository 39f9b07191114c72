#include "re/DadosRE.h"

#include "core/Checksum.h"
#include "core/Motor.h"

// The link record carries nothing but the order's key.
static void ParaElemento(const REG_KXDMC& chave, tagREG_ASSOCIACAO_RE_OCPS& elo) {
  elo = {};
  elo.Ordem = chave;
}

static const REG_KXDMC& DeElemento(const tagREG_ASSOCIACAO_RE_OCPS& elo) { return elo.Ordem; }

namespace {

constexpr const char* kFonte = "DadosRE";

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

KX_IMPLEMENTA(CKXDadosCM_RERateioProduto, CKXDadosCM_RateioBase, Tarefa)
KX_IMPLEMENTA(CKXDadosCM_RERateioServico, CKXDadosCM_RateioBase, Tarefa)

KX_IMPLEMENTA(CKXDadosCM_REComposicao, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA(CKXDadosCM_REEntradaEstoque, CKXDadosCM_RateioBase, Tarefa)
KX_IMPLEMENTA_CHECKSUM(CKXDadosCM_REEntradaEstoque)
KX_IMPLEMENTA_SEM_REGISTRO(CKXDadosCM_REQualEntradaEstoqueTipo, TKXCMBaseParaDados)

// All but the construction, which some members leave other than zero.
KX_IMPLEMENTA_VIDA(CKXDadosCM_REQualEntradaEstoque, TKXCMBaseParaDados)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REQualEntradaEstoque)

KX_IMPLEMENTA(CKXDadosCM_REItemAssociacaoREOC, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA(CKXDadosCM_REMargemLucro, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA(CKXDadosCM_REFormacaoPrecoVenda, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA(CKXDadosCM_REItemProdutoTotais, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA_SEM_REGISTRO(CKXDadosCM_REItemBase, TKXCMBaseParaDados)
KX_IMPLEMENTA(CKXDadosCM_REItemProduto, CKXDadosCM_REItemBase, Tarefa)
KX_IMPLEMENTA_CHECKSUM(CKXDadosCM_REItemProduto)
KX_IMPLEMENTA(CKXDadosCM_REItemServico, CKXDadosCM_REItemBase, Tarefa)
KX_IMPLEMENTA_CHECKSUM(CKXDadosCM_REItemServico)

KX_IMPLEMENTA(CKXDadosCM_RENFReferidas, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA(CKXDadosCM_REObservacaoCFOP, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA(CKXDadosCM_RERegistroEntrada, TKXBaseParaDados, Tarefa)
KX_IMPLEMENTA_CHECKSUM(CKXDadosCM_RERegistroEntrada)

bool CKXDadosCM_RERegistroEntrada::OnIgual(const TKXBaseParaDados* outro) const {
  const auto* mesmo = dynamic_cast<const CKXDadosCM_RERegistroEntrada*>(outro);
  return mesmo != nullptr && *this == *mesmo;
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
