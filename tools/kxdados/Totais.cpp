#include "Totais.h"

#include <algorithm>
#include <string_view>

#include "ImportaNFe.h"

namespace kxdados {

namespace {

using Entrada = CKXDadosCM_RERegistroEntrada;
using Produto = CKXDadosCM_REItemProduto;
using Servico = CKXDadosCM_REItemServico;

struct Parcelas {
  const char* Elemento;
  Entrada::GetterProduto DoProduto;
  Entrada::GetterServico DoServico;
};

constexpr Parcelas kTotais[] = {
    {"vProd", &Produto::GetValorTotal, nullptr},
    {"vServ", nullptr, &Servico::GetValorTotal},
    {"vDesc", &Produto::GetValorDescontoTotalItem, &Servico::GetValorDescontoTotal},
    {"vFrete", &Produto::GetValorFrete, nullptr},
    {"vSeg", &Produto::GetValorSeguro, nullptr},
    {"vOutro", &Produto::GetValorDespesasAcessorias, nullptr},
    {"vBC", &Produto::GetBaseICMS, nullptr},
    {"vICMS", &Produto::GetValorICMS, nullptr},
    {"vICMSDeson", &Produto::GetICMSDispensado, nullptr},
    {"vBCST", &Produto::GetBaseICMSST, nullptr},
    {"vST", &Produto::GetValorICMSST, nullptr},
    {"vFCP", &Produto::GetValorFCP, nullptr},
    {"vFCPST", &Produto::GetValorFCP_ST, nullptr},
    {"vFCPUFDest", &Produto::GetFCPNaoContribuinte, nullptr},
    {"vICMSUFDest", &Produto::GetICMSUFDestinatario, nullptr},
    {"vICMSUFRemet", &Produto::GetICMSUFRemetente, nullptr},
    {"vII", &Produto::GetDI_VlrImpostoImportacao, nullptr},
    {"vIPI", &Produto::GetValorIPI, nullptr},
    {"vPIS", &Produto::GetValorPISNaoCumulativo, nullptr},
    {"vCOFINS", &Produto::GetValorCOFINSNaoCumulativo, nullptr},
};

CKXCurrencyEx Declarado(const Nota& nota, std::string_view elemento) {
  const auto achado = nota.Declarados.find(elemento);
  return achado != nota.Declarados.end() ? CKXCurrencyEx(achado->second) : CKXCurrencyEx();
}

CKXCurrencyEx Soma(const Nota& nota, const Parcelas& total) {
  const Entrada& entrada = nota.Entrada;
  if (total.DoProduto == nullptr) return entrada.GetSomaServicoDe(total.DoServico);
  if (total.DoServico != nullptr) {
    return Entrada::GetSomaSuper(entrada, total.DoProduto, nullptr, nullptr, total.DoServico,
                                 nullptr);
  }
  return entrada.GetSomaProdutoDe(total.DoProduto);
}

// Waived ICMS is taken off by some issuers and not by others; both are accepted.
CKXCurrencyEx SomaDaNota(const Nota& nota) {
  CKXCurrencyEx soma;
  for (const char* parte : {"vProd", "vServ", "vST", "vFCPST", "vFrete", "vSeg", "vOutro", "vII",
                            "vIPI", "vIPIDevol", "vICMSMonoReten"}) {
    soma += Declarado(nota, parte);
  }
  soma -= Declarado(nota, "vDesc");
  const CKXCurrencyEx semDesonerado = soma - Declarado(nota, "vICMSDeson");
  return semDesonerado == Declarado(nota, "vNF") ? semDesonerado : soma;
}

CKXCurrencyEx SomaDasParcelas(const Nota& nota) {
  CKXCurrencyEx soma;
  for (const auto& parcela : nota.Entrada.GetCondicaoPagamento().GetListaParcela()) {
    soma += parcela.GetValor();
  }
  return soma;
}

}  // namespace

std::vector<Total> ComparaTotais(const Nota& nota) {
  const CKXCurrencyEx zero;
  std::vector<Total> totais;
  for (const Parcelas& parcelas : kTotais) {
    totais.push_back({parcelas.Elemento, Soma(nota, parcelas), Declarado(nota, parcelas.Elemento)});
  }
  totais.front().Calculado -= nota.ForaDoTotal;
  const auto nada = [&zero](const Total& total) {
    return total.Calculado == zero && total.Declarado == zero;
  };
  totais.erase(std::remove_if(totais.begin() + 1, totais.end(), nada), totais.end());
  totais.push_back({"vNF", SomaDaNota(nota), Declarado(nota, "vNF")});
  // An invoice that is paid at once states its net value and has no installments.
  const bool temParcelas = !nota.Entrada.GetCondicaoPagamento().GetListaParcela().empty();
  if (temParcelas && nota.Declarados.contains("vLiq")) {
    totais.push_back({"vLiq", SomaDasParcelas(nota), Declarado(nota, "vLiq")});
  }
  return totais;
}

}  // namespace kxdados
