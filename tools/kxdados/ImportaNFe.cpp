#include "ImportaNFe.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <set>
#include <string_view>
#include <utility>

#include "kxldados/ChaveNFe.h"
#include "kxldados/Dinheiro.h"

namespace kxdados {

namespace {

using Entrada = CKXDadosCM_RERegistroEntrada;
using Referida = CKXDadosCM_RENFReferidas;
using No = pugi::xml_node;

constexpr RegraDinheiro<Entrada> kTotais[] = {
    {"vBC", &Entrada::SetValorBaseCalculoICMS},
    {"vICMS", &Entrada::SetValorICMS},
    {"vBCST", &Entrada::SetValorBaseCalculoICMSSubstituicaoTributaria},
    {"vST", &Entrada::SetValorTotalICMSSubstituicaoTributria},
    {"vProd", &Entrada::SetValorTotalProdutos},
    {"vDesc", &Entrada::SetValorTotalDescontoProdutos},
    {"vFrete", &Entrada::SetValorFrete},
    {"vSeg", &Entrada::SetValorSeguro},
    {"vOutro", &Entrada::SetValorDespesasAcessorias},
    {"vIPI", &Entrada::SetValorTotalIPI},
    {"vNF", &Entrada::SetValorTotalNotaFiscalNFe},
};

// Present in every layout, with or without a field of their own.
constexpr const char* kTotaisObrigatorios[] = {"vBC",    "vICMS",   "vBCST",  "vST", "vProd",
                                               "vFrete", "vSeg",    "vDesc",  "vII", "vIPI",
                                               "vPIS",   "vCOFINS", "vOutro", "vNF"};

constexpr RegraDinheiro<Entrada> kTotaisServico[] = {
    {"vServ", &Entrada::SetValorTotalServicos},
    {"vDescIncond", &Entrada::SetValorTotalDescontoServicos},
};

constexpr RegraTexto<Entrada> kIdentificacao[] = {
    {"serie", "SerieNotaFiscal", &Entrada::SetSerieNotaFiscal, &Entrada::GetSerieNotaFiscal},
    {"nNF", "NumeroNotaFiscal", &Entrada::SetNumeroNotaFiscal, &Entrada::GetNumeroNotaFiscal},
};

constexpr RegraTexto<Entrada> kOrigem[] = {
    {"UF", "EstadoOrigem", &Entrada::SetEstadoOrigem, &Entrada::GetEstadoOrigem},
};

constexpr RegraTexto<Entrada> kDestino[] = {
    {"UF", "EstadoDestino", &Entrada::SetEstadoDestino, &Entrada::GetEstadoDestino},
};

constexpr RegraTexto<Entrada> kVeiculos[][2] = {
    {{"placa", "PlacaVeiculo1", &Entrada::SetPlacaVeiculo1, &Entrada::GetPlacaVeiculo1},
     {"UF", "Estado1", &Entrada::SetEstado1, &Entrada::GetEstado1}},
    {{"placa", "PlacaVeiculo2", &Entrada::SetPlacaVeiculo2, &Entrada::GetPlacaVeiculo2},
     {"UF", "Estado2", &Entrada::SetEstado2, &Entrada::GetEstado2}},
    {{"placa", "PlacaVeiculo3", &Entrada::SetPlacaVeiculo3, &Entrada::GetPlacaVeiculo3},
     {"UF", "Estado3", &Entrada::SetEstado3, &Entrada::GetEstado3}},
};

constexpr RegraTexto<Entrada> kVolume[] = {
    {"esp", "EspecieVolume", &Entrada::SetEspecieVolume, &Entrada::GetEspecieVolume},
    {"marca", "MarcaVolume", &Entrada::SetMarcaVolume, &Entrada::GetMarcaVolume},
    {"nVol", "NumeroInicialVolume", &Entrada::SetNumeroInicialVolume,
     &Entrada::GetNumeroInicialVolume},
};

constexpr RegraTexto<Referida> kReferidaEmPapel[] = {
    {"mod", "ModeloNotaFiscalOrigem", &Referida::SetModeloNotaFiscalOrigem,
     &Referida::GetModeloNotaFiscalOrigem},
    {"serie", "SerieNotaFiscalOrigem", &Referida::SetSerieNotaFiscalOrigem,
     &Referida::GetSerieNotaFiscalOrigem},
    {"nNF", "NumeroNotaFiscalOrigem", &Referida::SetNumeroNotaFiscalOrigem,
     &Referida::GetNumeroNotaFiscalOrigem},
};

constexpr RegraTexto<Referida> kReferidaECF[] = {
    {"mod", "ModeloNotaFiscalOrigem", &Referida::SetModeloNotaFiscalOrigem,
     &Referida::GetModeloNotaFiscalOrigem},
    {"nCOO", "NumeroNotaFiscalOrigem", &Referida::SetNumeroNotaFiscalOrigem,
     &Referida::GetNumeroNotaFiscalOrigem},
};

void ImportaIdentificacao(No ide, Nota& nota) {
  for (const char* elemento : {"mod", "serie", "nNF", "tpNF"}) TextoExigido(ide, elemento);
  const char* emissao = Filho(ide, "dhEmi") ? "dhEmi" : "dEmi";
  TextoExigido(ide, emissao);
  nota.Entrada.SetRegDataEmissao(Data(ide, emissao));
  Aplica(kIdentificacao, ide, nota.Entrada, nota);
}

void ImportaPartes(No inf, Nota& nota) {
  ImportaEmitente(inf, nota);
  Aplica(kOrigem, Desce(inf, "emit/enderEmit"), nota.Entrada, nota);
  Aplica(kDestino, Desce(inf, "dest/enderDest"), nota.Entrada, nota);
}

// Series, number and model of a referred electronic document are digits of its key.
Referida ReferidaPorChave(No no, Nota& nota) {
  Referida referida;
  const _KX_NFE_ps chave = LeChave(no, nota);
  referida.SetRegNFe(chave);
  if (!kx::ChaveVazia(chave)) {
    referida.SetModeloNotaFiscalOrigem(TextoDeNumero(kx::ModeloDaChave(chave)))
        .SetSerieNotaFiscalOrigem(TextoDeNumero(kx::SerieDaChave(chave)))
        .SetNumeroNotaFiscalOrigem(TextoDeNumero(kx::NumeroDaChave(chave)));
  }
  return referida;
}

void ImportaReferida(No no, Nota& nota) {
  const std::string_view tipo = NomeLocal(no);
  if (tipo == "refNFe" || tipo == "refNFeSig" || tipo == "refCTe") {
    nota.Entrada.AdicionaReferidas(ReferidaPorChave(no, nota));
    return;
  }
  Referida referida;
  if (tipo == "refNF" || tipo == "refNFP") {
    Aplica(kReferidaEmPapel, no, referida, nota);
  } else if (tipo == "refECF") {
    Aplica(kReferidaECF, no, referida, nota);
  } else {
    return;
  }
  nota.Entrada.AdicionaReferidas(std::move(referida));
}

void ImportaReferidas(No ide, Nota& nota) {
  for (const No grupo : Filhos(ide, "NFref")) {
    for (const No no : grupo.children()) ImportaReferida(no, nota);
  }
}

void ImportaItens(No inf, Nota& nota) {
  Exige(inf, "det");
  for (const No det : Filhos(inf, "det")) ImportaItem(det, nota);
}

// A remark for each fiscal operation code of the invoice: the code and the nature of the operation.
// The receiver's own code is a key of another table, and stays 0.
void ImportaObservacoesCFOP(No inf, Nota& nota) {
  const CString natureza = Texto(Filho(inf, "ide"), "natOp");
  std::set<CString> vistos;
  for (const No det : Filhos(inf, "det")) {
    const CString cfop = Texto(Filho(det, "prod"), "CFOP");
    if (!vistos.insert(cfop).second) continue;
    CKXDadosCM_REObservacaoCFOP observacao;
    observacao.SetObservacao((cfop + " " + natureza).TrimRight());
    nota.Entrada.AdicionaObservacoesCFOP(std::move(observacao));
  }
}

// Relief under SUFRAMA is the waived ICMS of the items that say so (motDesICMS 7).
CKXCurrencyEx SomaSuframa(No inf) {
  CKXCurrencyEx soma;
  for (const No det : Filhos(inf, "det")) {
    const No grupo = PrimeiroElemento(Desce(det, "imposto/ICMS"));
    if (Valor(Filho(grupo, "motDesICMS")) == "7") soma += Dinheiro(grupo, "vICMSDeson");
  }
  return soma;
}

void GuardaDeclarados(No grupo, Nota& nota) {
  for (const No total : grupo.children()) {
    const std::string nome(NomeLocal(total));
    if (nome.starts_with('v')) nota.Declarados[nome] = Dinheiro(grupo, nome);
  }
}

// What the buyer withholds for social security: of services, INSS; of goods, the contribution of
// the rural producer.
void ImportaRetencoes(No total, Nota& nota) {
  const No retencoes = Filho(total, "retTrib");
  const CY previdencia = Dinheiro(retencoes, "vRetPrev");
  nota.Entrada.SetValorTotalIRRF(Dinheiro(retencoes, "vIRRF"));
  if (nota.Entrada.GetListaServico().empty()) {
    nota.Entrada.SetValorFunrural(previdencia);
  } else {
    nota.Entrada.SetValorTotalINSS(previdencia);
  }
}

void ImportaTotais(No inf, Nota& nota) {
  const No total = Exige(inf, "total");
  const No icms = Exige(total, "ICMSTot");
  const No issqn = Filho(total, "ISSQNtot");
  for (const char* elemento : kTotaisObrigatorios) DinheiroExigido(icms, elemento);
  Aplica(kTotais, icms, nota.Entrada);
  Aplica(kTotaisServico, issqn, nota.Entrada);
  GuardaDeclarados(icms, nota);
  nota.Declarados["vServ"] = nota.Entrada.GetValorTotalServicos();
  ImportaRetencoes(total, nota);
  nota.Entrada.SetValorDeducaoICMSSuframa(SomaSuframa(inf))
      .SetBaseCalcIPI(nota.Entrada.GetSomaProdutoDe(&CKXDadosCM_REItemProduto::GetBaseIPI));
}

// The sum of a child over the volumes; raises Falha when it does not fit the field.
CY SomaPeso(const std::vector<No>& volumes, const char* elemento) {
  using Limites = std::numeric_limits<std::int64_t>;
  std::int64_t soma = 0;
  for (const No volume : volumes) {
    const std::int64_t peso = Dinheiro(volume, elemento).int64;
    if (peso > 0 ? soma > Limites::max() - peso : soma < Limites::min() - peso) {
      throw Falha(Caminho(volume, elemento), "a soma dos volumes não cabe no campo");
    }
    soma += peso;
  }
  return {soma};
}

std::uint32_t SomaVolumes(const std::vector<No>& volumes) {
  constexpr std::uint64_t kMaximo = std::numeric_limits<std::uint32_t>::max();
  std::uint64_t soma = 0;
  for (const No volume : volumes) {
    soma += Inteiro(volume, "qVol", kMaximo);
    if (soma > kMaximo) {
      throw Falha(Caminho(volume, "qVol"), "a soma dos volumes não cabe no campo");
    }
  }
  return static_cast<std::uint32_t>(soma);
}

void ImportaVeiculos(No transp, Nota& nota) {
  std::vector<No> veiculos = {Filho(transp, "veicTransp")};
  const auto reboques = Filhos(transp, "reboque");
  veiculos.insert(veiculos.end(), reboques.begin(), reboques.end());
  for (std::size_t i = 0; i < std::min(std::size(kVeiculos), veiculos.size()); ++i) {
    Aplica(kVeiculos[i], veiculos[i], nota.Entrada, nota);
  }
  if (veiculos.size() > std::size(kVeiculos)) {
    nota.Avisos.push_back("não guardado: " + Caminho(transp) + ": a nota traz " +
                          std::to_string(reboques.size()) + " reboques, couberam 2");
  }
}

void ImportaTransporte(No transp, Nota& nota) {
  ImportaVeiculos(transp, nota);
  const auto volumes = Filhos(transp, "vol");
  if (volumes.empty()) return;
  nota.Entrada.SetQtdVolumes(SomaVolumes(volumes))
      .SetPesoBrutoTotal(SomaPeso(volumes, "pesoB"))
      .SetPesoLiquidoTotal(SomaPeso(volumes, "pesoL"));
  Aplica(kVolume, volumes.front(), nota.Entrada, nota);
}

void ImportaCobranca(No cobr, Nota& nota) {
  auto& condicao = nota.Entrada.GetCondicaoPagamento();
  ImportaParcelas(cobr, condicao, nota);
  if (!condicao.GetListaParcela().empty()) {
    condicao.SetDataPrimeiroVencimento(condicao.GetParcela(0).GetRegDataVencimento());
    nota.Entrada.SetManterParcelasOriginaisNFe(1);
  }
  const No fatura = Filho(cobr, "fat");
  nota.Entrada.SetTotalAPagar(Dinheiro(fatura, "vLiq"));
  if (Filho(fatura, "vLiq")) nota.Declarados["vLiq"] = nota.Entrada.GetTotalAPagar();
}

void ImportaObservacoes(No infAdic, Nota& nota) {
  nota.Entrada.SetObservacaoGeral(Observacao(infAdic, "infCpl", "ObservacaoGeral", nota))
      .SetObservacaoFisco(Observacao(infAdic, "infAdFisco", "ObservacaoFisco", nota));
}

void ConfereQuantidades(const Entrada& entrada) {
  ExigeQueCaiba(entrada.GetListaProduto(), "det");
  ExigeQueCaiba(entrada.GetListaServico(), "det");
  ExigeQueCaiba(entrada.GetListaReferidas(), "ide/NFref");
  ExigeQueCaiba(entrada.GetListaObservacoesCFOP(), "det/prod/CFOP");
  for (const auto& item : entrada.GetListaProduto()) {
    ExigeQueCaiba(item.GetListaEntradaEstoque(), "det/prod/rastro");
  }
}

}  // namespace

Nota ImportaNFe(No nfe) {
  const No inf = Exige(nfe, "infNFe");
  const No ide = Exige(inf, "ide");
  Nota nota;
  nota.Entrada.SetRegNFe(LeChavePropria(inf, "NFe", "protNFe/infProt/chNFe", nota));
  ImportaIdentificacao(ide, nota);
  ImportaPartes(inf, nota);
  ImportaReferidas(ide, nota);
  ImportaItens(inf, nota);
  ImportaObservacoesCFOP(inf, nota);
  ImportaTotais(inf, nota);
  ImportaTransporte(Filho(inf, "transp"), nota);
  ImportaCobranca(Filho(inf, "cobr"), nota);
  ImportaObservacoes(Filho(inf, "infAdic"), nota);
  ConfereQuantidades(nota.Entrada);
  return nota;
}

}  // namespace kxdados
