#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "ImportaNFe.h"
#include "kxldados/Dinheiro.h"

namespace kxdados {

namespace {

using Produto = CKXDadosCM_REItemProduto;
using Servico = CKXDadosCM_REItemServico;
using Estoque = CKXDadosCM_REEntradaEstoque;
using No = pugi::xml_node;

constexpr CY kUm{10'000};

constexpr RegraDinheiro<Produto> kValores[] = {
    {"vDesc", &Produto::SetValorDescontoTotalItem},
    {"vFrete", &Produto::SetValorFrete},
    {"vSeg", &Produto::SetValorSeguro},
    {"vOutro", &Produto::SetValorDespesasAcessorias},
};

constexpr RegraTexto<Produto> kTextos[] = {
    {"NCM", "ClassificacaoFiscal", &Produto::SetClassificacaoFiscal,
     &Produto::GetClassificacaoFiscal},
    {"CFOP", "CFOPdaNFeXML", &Produto::SetCFOPdaNFeXML, &Produto::GetCFOPdaNFeXML},
    {"CFOP", "CFOPnaNFEmitente", &Produto::SetCFOPnaNFEmitente, &Produto::GetCFOPnaNFEmitente},
    {"nFCI", "FCI_NrControleFCI", &Produto::SetFCI_NrControleFCI, &Produto::GetFCI_NrControleFCI},
};

constexpr RegraTexto<Produto> kComplementoProduto[] = {
    {"infAdProd", "ComplementoProduto", &Produto::SetComplementoProduto,
     &Produto::GetComplementoProduto},
};

constexpr RegraTexto<Servico> kComplementoServico[] = {
    {"infAdProd", "ComplementoServico", &Servico::SetComplementoServico,
     &Servico::GetComplementoServico},
};

// The groups of ICMS (ICMS00, ICMSSN101...) name their elements alike.
constexpr RegraDinheiro<Produto> kICMS[] = {
    {"vBC", &Produto::SetBaseICMS},
    {"pICMS", &Produto::SetAliquotaICMS},
    {"vICMS", &Produto::SetValorICMS},
    {"pRedBC", &Produto::SetReducaoBCICMSOpInterna},
    {"pMVAST", &Produto::SetAliquotaAcrescimoICMSST},
    {"pRedBCST", &Produto::SetAliquotaReducaoICMSST},
    {"vBCST", &Produto::SetBaseICMSST},
    {"pICMSST", &Produto::SetAliquotaICMSST},
    {"vICMSST", &Produto::SetValorICMSST},
    {"pFCP", &Produto::SetAliquotaFCP},
    {"vFCP", &Produto::SetValorFCP},
    {"pFCPST", &Produto::SetAliquotaFCP_ST},
    {"vFCPST", &Produto::SetValorFCP_ST},
    {"pST", &Produto::SetAliquotaRetencao},
    {"vICMSSubstituto", &Produto::SetValorICMSProprioSubstituto},
    {"vBCFCPSTRet", &Produto::SetBaseFCPRetido},
    {"pFCPSTRet", &Produto::SetAliquotaFCPRetido},
    {"vFCPSTRet", &Produto::SetValorFCPRetido},
    {"vICMSDeson", &Produto::SetICMSDispensado},
    {"pCredSN", &Produto::SetAliquotaCreditoPresumido},
    {"vCredICMSSN", &Produto::SetCreditoPresumidoICMS},
};

// The tax that was withheld earlier: in the group ICMSST it is that of a fuel.
constexpr RegraDinheiro<Produto> kRetido[] = {
    {"vBCSTRet", &Produto::SetValorRetencaoBC},
    {"vICMSSTRet", &Produto::SetValorRetencaoParcelaImposto},
};

constexpr RegraDinheiro<Produto> kRetidoCombustivel[] = {
    {"vBCSTRet", &Produto::SetCombustivelBaseCalcRetencao},
    {"vICMSSTRet", &Produto::SetCombustivelICMSRetido},
    {"vBCSTDest", &Produto::SetCombustivelBaseST},
    {"vICMSSTDest", &Produto::SetCombustivelICMSSubstituicaoARepassar},
};

constexpr RegraDinheiro<Produto> kPartilha[] = {
    {"vFCPUFDest", &Produto::SetFCPNaoContribuinte},
    {"vICMSUFDest", &Produto::SetICMSUFDestinatario},
    {"vICMSUFRemet", &Produto::SetICMSUFRemetente},
};

constexpr RegraDinheiro<Produto> kIPI[] = {
    {"vBC", &Produto::SetBaseIPI},
    {"pIPI", &Produto::SetAliquotaIPI},
    {"vUnid", &Produto::SetValorPorItemIPI},
    {"vIPI", &Produto::SetValorIPI},
};

constexpr RegraDinheiro<Produto> kII[] = {
    {"vBC", &Produto::SetDI_VlrBC},
    {"vDespAdu", &Produto::SetDI_VlrDespesaAduaneira},
    {"vII", &Produto::SetDI_VlrImpostoImportacao},
    {"vIOF", &Produto::SetDI_VlrIOF},
};

template <class Item>
constexpr RegraDinheiro<Item> kPIS[] = {
    {"vBC", &Item::SetBasePISNaoCumulativo},
    {"pPIS", &Item::SetAliquotaPISNaoCumulativo},
    {"vAliqProd", &Item::SetValorPorItemPISNaoCumulativo},
    {"vPIS", &Item::SetValorPISNaoCumulativo},
};

template <class Item>
constexpr RegraDinheiro<Item> kCOFINS[] = {
    {"vBC", &Item::SetBaseCOFINSNaoCumulativo},
    {"pCOFINS", &Item::SetAliquotaCOFINSNaoCumulativo},
    {"vAliqProd", &Item::SetValorPorItemCOFINSNaoCumulativo},
    {"vCOFINS", &Item::SetValorCOFINSNaoCumulativo},
};

constexpr RegraDinheiro<Produto> kPISImportacao[] = {
    {"vBC", &Produto::SetDI_BCPIS_Importacao},
    {"pPIS", &Produto::SetDI_AliquotaPIS_Importacao},
    {"vPIS", &Produto::SetDI_ValorPIS_Importacao},
};

constexpr RegraDinheiro<Produto> kCOFINSImportacao[] = {
    {"vBC", &Produto::SetDI_BCCOFINS_Importacao},
    {"pCOFINS", &Produto::SetDI_AliquotaCOFINS_Importacao},
    {"vCOFINS", &Produto::SetDI_ValorCOFINS_Importacao},
};

constexpr RegraTexto<Produto> kDI[] = {
    {"nDI", "DI_NumeroDI_DSI_DA", &Produto::SetDI_NumeroDI_DSI_DA, &Produto::GetDI_NumeroDI_DSI_DA},
    {"xLocDesemb", "DI_DesembaracoLocal", &Produto::SetDI_DesembaracoLocal,
     &Produto::GetDI_DesembaracoLocal},
    {"UFDesemb", "DI_DesembaracoUF", &Produto::SetDI_DesembaracoUF, &Produto::GetDI_DesembaracoUF},
    {"cExportador", "DI_CodigoExportador", &Produto::SetDI_CodigoExportador,
     &Produto::GetDI_CodigoExportador},
};

constexpr RegraTexto<Produto> kAdicao[] = {
    {"nAdicao", "DI_AdicaoNr", &Produto::SetDI_AdicaoNr, &Produto::GetDI_AdicaoNr},
    {"cFabricante", "DI_AdicaoCodigoFabricante", &Produto::SetDI_AdicaoCodigoFabricante,
     &Produto::GetDI_AdicaoCodigoFabricante},
    {"nDraw", "DI_NumeroDrawback", &Produto::SetDI_NumeroDrawback, &Produto::GetDI_NumeroDrawback},
};

constexpr RegraTexto<Estoque> kLote[] = {
    {"nLote", "LoteESNumero", &Estoque::SetLoteESNumero, &Estoque::GetLoteESNumero},
};

constexpr RegraTexto<Estoque> kArma[] = {
    {"nSerie", "ArmaFogo_Serie", &Estoque::SetArmaFogo_Serie, &Estoque::GetArmaFogo_Serie},
    {"nCano", "ArmaFogo_Cano", &Estoque::SetArmaFogo_Cano, &Estoque::GetArmaFogo_Cano},
};

constexpr RegraTexto<Estoque> kVeiculo[] = {
    {"chassi", "VeiculoNovoChassiVeiculo", &Estoque::SetVeiculoNovoChassiVeiculo,
     &Estoque::GetVeiculoNovoChassiVeiculo},
};

// Decimals of a number as written, the zeros at its end left out.
int Casas(const std::string& numero) {
  const std::size_t ponto = numero.find('.');
  const std::size_t fim = numero.find_last_of("123456789");
  if (ponto == std::string::npos || fim == std::string::npos || fim < ponto) return 0;
  return static_cast<int>(fim - ponto);
}

// Quantity, unit value, discount per unit and the identity of the item.
template <class Item>
void ImportaMedidas(Item& item, No det, No prod, Nota& nota) {
  constexpr int kMinimo = 2;
  constexpr int kMaximo = 4;
  const CY quantidade = DinheiroExigido(prod, "qCom");
  const int casas = Casas(Valor(Filho(prod, "vUnCom")));
  item.SetQuantidade(quantidade)
      .SetValorUnitarioV8(DinheiroExigido(prod, "vUnCom"))
      .SetQtdCasasVlrUnitario(static_cast<std::uint8_t>(std::clamp(casas, kMinimo, kMaximo)))
      .SetValorTotal(DinheiroExigido(prod, "vProd"))
      .SetValorDescontoUnitarioV8(CKXCurrencyEx(Dinheiro(prod, "vDesc")) / quantidade);
  if (casas > kMaximo) {
    nota.Avisos.push_back("arredondado: ValorUnitarioV8: " + nota.Lugares.De(prod, "vUnCom") +
                          " tem " + std::to_string(casas) + " casas decimais, couberam 4");
  }
  item.SetIDItem(static_cast<std::uint32_t>(
      InteiroDoAtributo(det, "nItem", std::numeric_limits<std::uint32_t>::max())));
}

template <class Item>
void ImportaContribuicoes(Item& item, No imposto) {
  Aplica(kPIS<Item>, PrimeiroElemento(Filho(imposto, "PIS")), item);
  Aplica(kCOFINS<Item>, PrimeiroElemento(Filho(imposto, "COFINS")), item);
}

// The item of the purchase order; which order it is, the receiver knows.
void ImportaPedido(CKXDadosCM_REItemBase& item, No prod, Nota& nota) {
  if (!Filho(prod, "nItemPed")) return;
  constexpr std::uint64_t kMaximoNaNota = 999'999;
  const std::uint64_t sequencia = Inteiro(prod, "nItemPed", kMaximoNaNota);
  if (sequencia > std::numeric_limits<std::uint16_t>::max()) {
    nota.Avisos.push_back("não guardado: " + nota.Lugares.De(prod, "nItemPed") + ": " +
                          std::to_string(sequencia) + " não cabe em SequenciaItem");
    return;
  }
  CKXDadosCM_REItemAssociacaoREOC associacao;
  associacao.SetSequenciaItem(static_cast<std::uint16_t>(sequencia));
  item.AdicionaItemAssociacao(std::move(associacao));
}

void ImportaICMS(Produto& item, No imposto) {
  const No grupo = PrimeiroElemento(Filho(imposto, "ICMS"));
  Aplica(kICMS, grupo, item);
  if (NomeLocal(grupo) == "ICMSST") {
    Aplica(kRetidoCombustivel, grupo, item);
  } else {
    Aplica(kRetido, grupo, item);
  }
  if (Filho(grupo, "vCredICMSSN")) item.SetCreditoPresumidoSimplesNacional(1);
  Aplica(kPartilha, Filho(imposto, "ICMSUFDest"), item);
}

// An import is told by its fiscal operation code, 3xxx.
void ImportaImpostosDeImportacao(Produto& item, No imposto) {
  Aplica(kII, Filho(imposto, "II"), item);
  if (!item.GetCFOPdaNFeXML().Vista().starts_with('3')) return;
  Aplica(kPISImportacao, PrimeiroElemento(Filho(imposto, "PIS")), item);
  Aplica(kCOFINSImportacao, PrimeiroElemento(Filho(imposto, "COFINS")), item);
}

void ImportaDI(Produto& item, No prod, Nota& nota) {
  const auto declaracoes = Filhos(prod, "DI");
  if (declaracoes.empty()) return;
  const No di = declaracoes.front();
  const auto adicoes = Filhos(di, "adi");
  item.SetDI_DataRegistro(Data(di, "dDI")).SetDI_DesembaracoData(Data(di, "dDesemb"));
  Aplica(kDI, di, item, nota);
  if (!adicoes.empty()) {
    item.SetDI_AdicaoVlrDesconto(Dinheiro(adicoes.front(), "vDescDI"));
    Aplica(kAdicao, adicoes.front(), item, nota);
  }
  if (declaracoes.size() > 1 || adicoes.size() > 1) {
    nota.Avisos.push_back("não guardado: " + nota.Lugares.De(prod) +
                          ": o item guarda uma DI com uma " + "adição, a nota traz " +
                          std::to_string(declaracoes.size()) + " DI, a primeira com " +
                          std::to_string(adicoes.size()) + " adições");
  }
}

Estoque LinhaDeLote(No lote, Nota& nota) {
  Estoque linha;
  linha.SetQuantidade(DinheiroExigido(lote, "qLote"))
      .SetLoteESDataFabricacao(Data(lote, "dFab"))
      .SetLoteESDataValidade(Data(lote, "dVal"))
      .SetLotePrecoTabelado(Dinheiro(lote, "vPMC"));
  Aplica(kLote, lote, linha, nota);
  return linha;
}

// Each firearm has its own serial number, so its line counts one.
Estoque LinhaDeArma(No arma, Nota& nota) {
  Estoque linha;
  linha.SetQuantidade(kUm).SetArmaFogo_Descricao(Texto(arma, "descr"));
  Aplica(kArma, arma, linha, nota);
  return linha;
}

// One line per lot and per firearm; a product with neither has one line with all its quantity.
// Medicines carried their lot themselves before layout 4.00; their price is that of all lines, and
// so is a vehicle.
void ImportaEstoque(Produto& item, No prod, Nota& nota) {
  const auto medicamentos = Filhos(prod, "med");
  for (const No lote : Filhos(prod, "rastro")) item.AdicionaEntradaEstoque(LinhaDeLote(lote, nota));
  for (const No med : medicamentos) {
    if (Filho(med, "nLote")) item.AdicionaEntradaEstoque(LinhaDeLote(med, nota));
  }
  for (const No arma : Filhos(prod, "arma")) item.AdicionaEntradaEstoque(LinhaDeArma(arma, nota));
  if (item.GetListaEntradaEstoque().empty()) {
    Estoque linha;
    linha.SetQuantidade(item.GetQuantidade());
    item.AdicionaEntradaEstoque(std::move(linha));
  }
  for (Estoque& linha : item.GetListaEntradaEstoque()) {
    Aplica(kVeiculo, Filho(prod, "veicProd"), linha, nota);
    if (medicamentos.size() == 1) {
      linha.SetLotePrecoTabelado(Dinheiro(medicamentos.front(), "vPMC"));
    }
  }
}

// finNFe 2: the invoice completes an earlier one, and its values count as those of the complement.
void MarcaComplementar(Produto& item, No det) {
  constexpr std::uint64_t kMaximo = 9;
  if (Inteiro(Filho(det.parent(), "ide"), "finNFe", kMaximo) != 2) return;
  item.SetCFOPNFComplementar(1)
      .SetNFComplementarQuantidade(item.GetQuantidade())
      .SetNFComplementarValorUnitarioV8(item.GetValorUnitarioV8())
      .SetNFComplementarValorTotal(item.GetValorTotal());
}

void ImportaProduto(No det, No prod, Nota& nota) {
  const No imposto = Filho(det, "imposto");
  Produto item;
  ImportaMedidas(item, det, prod, nota);
  Aplica(kValores, prod, item);
  Aplica(kTextos, prod, item, nota);
  Aplica(kComplementoProduto, det, item, nota);
  ImportaICMS(item, imposto);
  Aplica(kIPI, Desce(imposto, "IPI/IPITrib"), item);
  ImportaContribuicoes(item, imposto);
  ImportaImpostosDeImportacao(item, imposto);
  ImportaDI(item, prod, nota);
  ImportaEstoque(item, prod, nota);
  ImportaPedido(item, prod, nota);
  MarcaComplementar(item, det);
  if (Filho(prod, "comb")) item.SetCombustiveis(1);
  if (Valor(Filho(prod, "indTot")) == "0") {
    nota.ForaDoTotal = CKXCurrencyEx(nota.ForaDoTotal) + item.GetValorTotal();
  }
  nota.Entrada.AdicionaProduto(std::move(item));
}

void ImportaServico(No det, No prod, Nota& nota) {
  Servico item;
  ImportaMedidas(item, det, prod, nota);
  item.SetValorDescontoTotal(Dinheiro(prod, "vDesc"));
  Aplica(kComplementoServico, det, item, nota);
  ImportaContribuicoes(item, Filho(det, "imposto"));
  ImportaPedido(item, prod, nota);
  nota.Entrada.AdicionaServico(std::move(item));
}

}  // namespace

void ImportaItem(No det, Nota& nota) {
  const No prod = Exige(det, "prod");
  TextoExigido(prod, "xProd");
  TextoExigido(prod, "CFOP");
  if (Desce(det, "imposto/ISSQN")) {
    ImportaServico(det, prod, nota);
  } else {
    ImportaProduto(det, prod, nota);
  }
}

}  // namespace kxdados
