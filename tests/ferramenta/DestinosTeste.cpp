// Each element of an invoice goes to its field, and to no other: an invoice made of one row per
// element, each with a value of its own.
#include <algorithm>
#include <set>
#include <sstream>
#include <vector>

#include "Execucao.h"

namespace {

struct Destino {
  const char* Elemento;           // below infNFe
  const char* Campos;             // the fields that take its value, separated by blanks
  const char* Valor = nullptr;    // without one: an amount; no two rows have the same
  const char* Escrito = nullptr;  // as the field shows it, when it is not the same
};

// clang-format off
constexpr Destino kDestinos[] = {
    {"ide/mod", "", "55"},
    {"ide/serie", "SerieNotaFiscal", "17"},
    {"ide/nNF", "NumeroNotaFiscal", "4821"},
    {"ide/dhEmi", "RegDataEmissao", "2026-03-09T23:59:00-03:00", "09/03/2026"},
    {"ide/tpNF", "", "0"},
    {"emit/xNome", "", "Fulano"},
    {"emit/enderEmit/UF", "EstadoOrigem", "RS"},
    {"dest/enderDest/UF", "EstadoDestino", "AM"},
    {"det/prod/xProd", "", "Moto"},
    {"det/prod/NCM", "ClassificacaoFiscal", "87112010"},
    {"det/prod/CFOP", "CFOPdaNFeXML CFOPnaNFEmitente Observacao", "3102"},
    {"det/prod/qCom", "Quantidade"},
    {"det/prod/vUnCom", "ValorUnitarioV8"},
    {"det/prod/vProd", "ValorTotal"},
    {"det/prod/vFrete", "ValorFrete"},
    {"det/prod/vSeg", "ValorSeguro"},
    {"det/prod/vDesc", "ValorDescontoTotalItem"},
    {"det/prod/vOutro", "ValorDespesasAcessorias"},
    {"det/prod/DI/nDI", "DI_NumeroDI_DSI_DA", "1234567890"},
    {"det/prod/DI/dDI", "DI_DataRegistro", "2026-01-02", "02/01/2026"},
    {"det/prod/DI/xLocDesemb", "DI_DesembaracoLocal", "SANTOS"},
    {"det/prod/DI/UFDesemb", "DI_DesembaracoUF", "SP"},
    {"det/prod/DI/dDesemb", "DI_DesembaracoData", "2026-01-03", "03/01/2026"},
    {"det/prod/DI/cExportador", "DI_CodigoExportador", "EXP"},
    {"det/prod/DI/adi/nAdicao", "DI_AdicaoNr", "41"},
    {"det/prod/DI/adi/cFabricante", "DI_AdicaoCodigoFabricante", "FAB"},
    {"det/prod/DI/adi/vDescDI", "DI_AdicaoVlrDesconto"},
    {"det/prod/DI/adi/nDraw", "DI_NumeroDrawback", "20260001"},
    {"det/prod/nItemPed", "SequenciaItem", "65535"},
    {"det/prod/nFCI", "FCI_NrControleFCI", "B01F70AF-10BF-4B1F-848C-65FF57F616FE"},
    {"det/prod/rastro/nLote", "LoteESNumero", "L1"},
    {"det/prod/rastro/qLote", "Quantidade"},
    {"det/prod/rastro/dFab", "LoteESDataFabricacao", "2025-12-01", "01/12/2025"},
    {"det/prod/rastro/dVal", "LoteESDataValidade", "2027-12-01", "01/12/2027"},
    {"det/prod/veicProd/chassi", "VeiculoNovoChassiVeiculo", "9BWZZZ377VT004251"},
    {"det/prod/med/vPMC", "LotePrecoTabelado"},
    {"det/prod/arma/nSerie", "ArmaFogo_Serie", "SERIE1"},
    {"det/prod/arma/nCano", "ArmaFogo_Cano", "CANO1"},
    {"det/prod/arma/descr", "ArmaFogo_Descricao", "Pistola"},
    {"det/prod/comb/cProdANP",
     "Combustiveis CreditoPresumidoSimplesNacional ManterParcelasOriginaisNFe", "210203001", "1"},
    {"det/imposto/ICMS/ICMS70/vBC", "BaseICMS"},
    {"det/imposto/ICMS/ICMS70/pRedBC", "ReducaoBCICMSOpInterna"},
    {"det/imposto/ICMS/ICMS70/pICMS", "AliquotaICMS"},
    {"det/imposto/ICMS/ICMS70/vICMS", "ValorICMS"},
    {"det/imposto/ICMS/ICMS70/pFCP", "AliquotaFCP"},
    {"det/imposto/ICMS/ICMS70/vFCP", "ValorFCP"},
    {"det/imposto/ICMS/ICMS70/pMVAST", "AliquotaAcrescimoICMSST"},
    {"det/imposto/ICMS/ICMS70/pRedBCST", "AliquotaReducaoICMSST"},
    {"det/imposto/ICMS/ICMS70/vBCST", "BaseICMSST"},
    {"det/imposto/ICMS/ICMS70/pICMSST", "AliquotaICMSST"},
    {"det/imposto/ICMS/ICMS70/vICMSST", "ValorICMSST"},
    {"det/imposto/ICMS/ICMS70/pFCPST", "AliquotaFCP_ST"},
    {"det/imposto/ICMS/ICMS70/vFCPST", "ValorFCP_ST"},
    {"det/imposto/ICMS/ICMS70/vICMSDeson", "ICMSDispensado ValorDeducaoICMSSuframa"},
    {"det/imposto/ICMS/ICMS70/motDesICMS", "", "7"},
    {"det/imposto/ICMS/ICMS70/vBCSTRet", "ValorRetencaoBC"},
    {"det/imposto/ICMS/ICMS70/pST", "AliquotaRetencao"},
    {"det/imposto/ICMS/ICMS70/vICMSSubstituto", "ValorICMSProprioSubstituto"},
    {"det/imposto/ICMS/ICMS70/vICMSSTRet", "ValorRetencaoParcelaImposto"},
    {"det/imposto/ICMS/ICMS70/vBCFCPSTRet", "BaseFCPRetido"},
    {"det/imposto/ICMS/ICMS70/pFCPSTRet", "AliquotaFCPRetido"},
    {"det/imposto/ICMS/ICMS70/vFCPSTRet", "ValorFCPRetido"},
    {"det/imposto/ICMS/ICMS70/pCredSN", "AliquotaCreditoPresumido"},
    {"det/imposto/ICMS/ICMS70/vCredICMSSN", "CreditoPresumidoICMS"},
    {"det/imposto/ICMSUFDest/vFCPUFDest", "FCPNaoContribuinte"},
    {"det/imposto/ICMSUFDest/vICMSUFDest", "ICMSUFDestinatario"},
    {"det/imposto/ICMSUFDest/vICMSUFRemet", "ICMSUFRemetente"},
    {"det/imposto/IPI/IPITrib/vBC", "BaseIPI BaseCalcIPI"},
    {"det/imposto/IPI/IPITrib/pIPI", "AliquotaIPI"},
    {"det/imposto/IPI/IPITrib/vUnid", "ValorPorItemIPI"},
    {"det/imposto/IPI/IPITrib/vIPI", "ValorIPI"},
    {"det/imposto/II/vBC", "DI_VlrBC"},
    {"det/imposto/II/vDespAdu", "DI_VlrDespesaAduaneira"},
    {"det/imposto/II/vII", "DI_VlrImpostoImportacao"},
    {"det/imposto/II/vIOF", "DI_VlrIOF"},
    {"det/imposto/PIS/PISOutr/vBC", "BasePISNaoCumulativo DI_BCPIS_Importacao"},
    {"det/imposto/PIS/PISOutr/pPIS", "AliquotaPISNaoCumulativo DI_AliquotaPIS_Importacao"},
    {"det/imposto/PIS/PISOutr/vAliqProd", "ValorPorItemPISNaoCumulativo"},
    {"det/imposto/PIS/PISOutr/vPIS", "ValorPISNaoCumulativo DI_ValorPIS_Importacao"},
    {"det/imposto/COFINS/COFINSOutr/vBC", "BaseCOFINSNaoCumulativo DI_BCCOFINS_Importacao"},
    {"det/imposto/COFINS/COFINSOutr/pCOFINS",
     "AliquotaCOFINSNaoCumulativo DI_AliquotaCOFINS_Importacao"},
    {"det/imposto/COFINS/COFINSOutr/vAliqProd", "ValorPorItemCOFINSNaoCumulativo"},
    {"det/imposto/COFINS/COFINSOutr/vCOFINS",
     "ValorCOFINSNaoCumulativo DI_ValorCOFINS_Importacao"},
    {"det/infAdProd", "ComplementoProduto", "azul"},
    {"total/ICMSTot/vBC", "ValorBaseCalculoICMS"},
    {"total/ICMSTot/vICMS", "ValorICMS"},
    {"total/ICMSTot/vBCST", "ValorBaseCalculoICMSSubstituicaoTributaria"},
    {"total/ICMSTot/vST", "ValorTotalICMSSubstituicaoTributria"},
    {"total/ICMSTot/vProd", "ValorTotalProdutos"},
    {"total/ICMSTot/vFrete", "ValorFrete"},
    {"total/ICMSTot/vSeg", "ValorSeguro"},
    {"total/ICMSTot/vDesc", "ValorTotalDescontoProdutos"},
    {"total/ICMSTot/vII", ""},
    {"total/ICMSTot/vIPI", "ValorTotalIPI"},
    {"total/ICMSTot/vPIS", ""},
    {"total/ICMSTot/vCOFINS", ""},
    {"total/ICMSTot/vOutro", "ValorDespesasAcessorias"},
    {"total/ICMSTot/vNF", "ValorTotalNotaFiscalNFe"},
    {"total/ISSQNtot/vServ", "ValorTotalServicos"},
    {"total/ISSQNtot/vDescIncond", "ValorTotalDescontoServicos"},
    {"total/retTrib/vIRRF", "ValorTotalIRRF"},
    {"total/retTrib/vRetPrev", "ValorFunrural"},
    {"transp/veicTransp/placa", "PlacaVeiculo1", "AAA1A11"},
    {"transp/veicTransp/UF", "Estado1", "PR"},
    {"transp/reboque/placa", "PlacaVeiculo2", "BBB2B22"},
    {"transp/reboque/UF", "Estado2", "SC"},
    {"transp/vol/qVol", "QtdVolumes", "12"},
    {"transp/vol/esp", "EspecieVolume", "CAIXA"},
    {"transp/vol/marca", "MarcaVolume", "MARCA"},
    {"transp/vol/nVol", "NumeroInicialVolume", "77"},
    {"transp/vol/pesoL", "PesoLiquidoTotal"},
    {"transp/vol/pesoB", "PesoBrutoTotal"},
    {"cobr/fat/vLiq", "TotalAPagar"},
    {"cobr/dup/nDup", "NumeroDocumento", "001"},
    {"cobr/dup/dVenc", "RegDataVencimento DataPrimeiroVencimento", "2026-04-09", "09/04/2026"},
    {"cobr/dup/vDup", "Valor"},
    {"infAdic/infAdFisco", "ObservacaoFisco", "fisco"},
    {"infAdic/infCpl", "ObservacaoGeral", "geral"},
};
// clang-format on

std::string ValorDe(std::size_t linha) {
  const Destino& destino = kDestinos[linha];
  return destino.Valor != nullptr ? destino.Valor : std::to_string(100 + linha) + ".25";
}

std::string EscritoDe(std::size_t linha) {
  const Destino& destino = kDestinos[linha];
  if (destino.Escrito != nullptr) return destino.Escrito;
  return destino.Valor != nullptr ? destino.Valor : std::to_string(100 + linha) + ",25";
}

std::vector<std::string> Separa(const std::string& texto, char separador) {
  std::vector<std::string> partes;
  std::istringstream entrada(texto);
  for (std::string parte; std::getline(entrada, parte, separador);) partes.push_back(parte);
  return partes;
}

// Opens and closes what changes from one row's path to the next.
std::string MontaNota() {
  std::string xml = "<NFe><infNFe Id=\"NFe35260331842057000161550010000482131407182651\">";
  std::vector<std::string> aberto;
  const auto fechaAte = [&](std::size_t quantos) {
    for (; aberto.size() > quantos; aberto.pop_back()) xml += "</" + aberto.back() + ">";
  };
  for (std::size_t i = 0; i < std::size(kDestinos); ++i) {
    const auto caminho = Separa(kDestinos[i].Elemento, '/');
    const auto [meu, dele] =
        std::mismatch(caminho.begin(), caminho.end(), aberto.begin(), aberto.end());
    fechaAte(static_cast<std::size_t>(meu - caminho.begin()));
    for (auto passo = meu; passo != caminho.end(); ++passo) {
      xml += "<" + *passo + ">";
      aberto.push_back(*passo);
    }
    xml += ValorDe(i);
  }
  fechaAte(0);
  return xml + "</infNFe></NFe>";
}

using Nomes = std::set<std::string>;

Nomes Separados(const std::string& texto) {
  const auto partes = Separa(texto, ' ');
  return {partes.begin(), partes.end()};
}

// The fields that show the value, each on a line of its own: "  Campo: valor".
Nomes CamposCom(const std::string& valor, const std::string& saida) {
  Nomes nomes;
  for (const std::string& linha : Separa(saida, '\n')) {
    const std::size_t fim = linha.find(": ");
    if (fim == std::string::npos || linha.substr(fim + 2) != valor) continue;
    nomes.insert(linha.substr(linha.find_first_not_of(' '), fim - linha.find_first_not_of(' ')));
  }
  return nomes;
}

}  // namespace

TEST_F(FerramentaTeste, CadaElementoVaiAoSeuCampo) {
  const Execucao e = Executa({"importa", "--campos", "-"}, MontaNota());
  ASSERT_EQ(e.Status, 0) << e.Erros;
  for (std::size_t i = 0; i < std::size(kDestinos); ++i) {
    EXPECT_EQ(CamposCom(EscritoDe(i), e.Saida), Separados(kDestinos[i].Campos))
        << kDestinos[i].Elemento;
  }
}
