#include "ImportaCTe.h"

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "kxldados/ChaveNFe.h"
#include "kxldados/Dinheiro.h"

namespace kxdados {

namespace {

using Objeto = CKXDadosCM_CTConhecimentoTransporte;
using NotaFiscal = CKXDadosCM_CTNotaFiscal;
using No = pugi::xml_node;

constexpr RegraTexto<Objeto> kIdentificacao[] = {
    {"serie", "SerieConhecimentoTransporte", &Objeto::SetSerieConhecimentoTransporte,
     &Objeto::GetSerieConhecimentoTransporte},
    {"nCT", "NumeroConhecimentoTransporte", &Objeto::SetNumeroConhecimentoTransporte,
     &Objeto::GetNumeroConhecimentoTransporte},
    {"UFIni", "EstadoOrigem", &Objeto::SetEstadoOrigem, &Objeto::GetEstadoOrigem},
    {"UFFim", "EstadoDestino", &Objeto::SetEstadoDestino, &Objeto::GetEstadoDestino},
};

constexpr RegraTexto<Objeto> kComplemento[] = {
    {"xObs", "Observacao", &Objeto::SetObservacao, &Objeto::GetObservacao},
};

// At most one group of ICMS is present; the tax due to another state has names of its own.
constexpr RegraDinheiro<Objeto> kICMS[] = {
    {"vBC", &Objeto::SetValorBaseCalculoICMS},
    {"vICMS", &Objeto::SetValorICMS},
    {"vBCOutraUF", &Objeto::SetValorBaseCalculoICMS},
    {"vICMSOutraUF", &Objeto::SetValorICMS},
    {"vBCSTRet", &Objeto::SetValorBaseCalculoICMSSubstituicao},
    {"vICMSSTRet", &Objeto::SetValorICMSSubtituicao},
};

constexpr RegraDinheiro<Objeto> kICMSDosEstados[] = {
    {"vICMSUFFim", &Objeto::SetICMSUFDestinatario},
    {"vICMSUFIni", &Objeto::SetICMSUFRemetente},
};

// Federal taxes and the vehicle are in the CT-e OS alone.
constexpr RegraDinheiro<Objeto> kTributosFederais[] = {
    {"vPIS", &Objeto::SetValorPISCTe},   {"vCOFINS", &Objeto::SetValorCOFINSCTe},
    {"vCSLL", &Objeto::SetValorCSLLCTe}, {"vINSS", &Objeto::SetValorINSSCTe},
    {"vIR", &Objeto::SetValorIRRFPJCTe},
};

constexpr RegraTexto<Objeto> kVeiculo[] = {
    {"placa", "PlacaVeiculo1", &Objeto::SetPlacaVeiculo1, &Objeto::GetPlacaVeiculo1},
    {"UF", "Estado1", &Objeto::SetEstado1, &Objeto::GetEstado1},
};

constexpr RegraTexto<NotaFiscal> kNotaEmPapel[] = {
    {"nDoc", "NumeroNF", &NotaFiscal::SetNumeroNF, &NotaFiscal::GetNumeroNF},
    {"serie", "SerieNF", &NotaFiscal::SetSerieNF, &NotaFiscal::GetSerieNF},
};

constexpr RegraDinheiro<NotaFiscal> kValoresDaNota[] = {
    {"vProd", &NotaFiscal::SetValorMercadorias},
    {"vNF", &NotaFiscal::SetValorDocumentoFiscal},
    {"vDocFisc", &NotaFiscal::SetValorDocumentoFiscal},
    {"nPeso", &NotaFiscal::SetPesoBrutoTotal},
};

void ImportaIdentificacao(No ide, Conhecimento& conhecimento) {
  for (const char* elemento : {"mod", "serie", "nCT", "dhEmi"}) TextoExigido(ide, elemento);
  conhecimento.Objeto.SetRegDataEmissao(Data(ide, "dhEmi"));
  Aplica(kIdentificacao, ide, conhecimento.Objeto, conhecimento);
}

// The CT-e that this one substitutes, completes or annuls.
void ImportaReferencia(No inf, Conhecimento& conhecimento) {
  for (const char* caminho :
       {"infCTeNorm/infCteSub/chCte", "infCteSub/chCte", "infCteComp/chCTe", "infCteAnu/chCte"}) {
    const No chave = Desce(inf, caminho);
    if (!chave) continue;
    conhecimento.Objeto.SetRegCTeReferencia(LeChave(chave, conhecimento));
    break;
  }
  const std::size_t quantos = Filhos(inf, "infCteComp").size();
  if (quantos > 1) {
    conhecimento.Avisos.push_back("não guardado: infCteComp: o conhecimento completa " +
                                  std::to_string(quantos) + " outros, coube 1");
  }
}

// The rate of the group, percent with two decimals, as hundredths.
void ImportaAliquota(No grupo, Objeto& objeto) {
  constexpr std::int64_t kCentesimo = 100;
  const char* elemento = Filho(grupo, "pICMSOutraUF") ? "pICMSOutraUF" : "pICMS";
  const std::int64_t aliquota = Dinheiro(grupo, elemento).int64 / kCentesimo;
  if (aliquota < 0 || aliquota > std::numeric_limits<std::uint16_t>::max()) {
    throw Falha(Caminho(grupo, elemento), "valor além do campo, que vai até 655,35");
  }
  objeto.SetAliquotaICMS(static_cast<std::uint16_t>(aliquota));
}

void ImportaImpostos(No imp, Objeto& objeto) {
  const No grupo = PrimeiroElemento(Filho(imp, "ICMS"));
  Aplica(kICMS, grupo, objeto);
  ImportaAliquota(grupo, objeto);
  Aplica(kICMSDosEstados, Filho(imp, "ICMSUFFim"), objeto);
  Aplica(kTributosFederais, Filho(imp, "infTribFed"), objeto);
}

// Adds the sum of the parts beside the total; without parts there is nothing to compare.
void SomaPartes(const std::vector<No>& partes, const char* parte, const char* total, CY declarado,
                Conhecimento& conhecimento) {
  if (partes.empty()) return;
  CKXCurrencyEx soma;
  for (const No no : partes) soma += Dinheiro(no, parte);
  conhecimento.Totais.push_back({total, soma, declarado});
}

// The simplified CT-e states the components of each delivery.
std::vector<No> Componentes(No inf) {
  std::vector<No> componentes = Filhos(Filho(inf, "vPrest"), "Comp");
  for (const No det : Filhos(inf, "det")) {
    const auto daEntrega = Filhos(det, "Comp");
    componentes.insert(componentes.end(), daEntrega.begin(), daEntrega.end());
  }
  return componentes;
}

void ImportaPrestacao(No inf, Conhecimento& conhecimento) {
  const bool simplificado = static_cast<bool>(Filho(inf, "total"));
  const No prestacao = Exige(inf, simplificado ? "total" : "vPrest");
  const CY total = DinheiroExigido(prestacao, "vTPrest");
  conhecimento.Objeto.SetValorTotalCTe(total)
      .SetValorConhecimentoTransporte(total)
      .SetValorConhecimentoTransporteLiquido(Dinheiro(prestacao, simplificado ? "vTRec" : "vRec"));
  SomaPartes(Componentes(inf), "vComp", "vTPrest", total, conhecimento);
}

// Series and number of a carried electronic invoice are digits of its key.
NotaFiscal NotaPorChave(No no, Conhecimento& conhecimento) {
  NotaFiscal nota;
  const _KX_NFE_ps chave = LeChave(no, conhecimento);
  if (!kx::ChaveVazia(chave)) {
    nota.SetSerieNF(TextoDeNumero(kx::SerieDaChave(chave)))
        .SetNumeroNF(TextoDeNumero(kx::NumeroDaChave(chave)));
  }
  return nota.SetRegNFe(chave);
}

NotaFiscal NotaEmPapel(No no, Conhecimento& conhecimento) {
  NotaFiscal nota;
  nota.SetRegDataEmissao(Data(no, "dEmi"));
  Aplica(kNotaEmPapel, no, nota, conhecimento);
  Aplica(kValoresDaNota, no, nota);
  return nota;
}

// The carried documents below infDoc or, in the simplified CT-e, below each delivery.
void ImportaNotas(No pai, const char* chave, Conhecimento& conhecimento) {
  for (const No no : Filhos(pai, "infNFe")) {
    conhecimento.Objeto.AdicionaNotaFiscal(NotaPorChave(Exige(no, chave), conhecimento));
  }
  for (const char* tipo : {"infNF", "infOutros"}) {
    for (const No no : Filhos(pai, tipo)) {
      conhecimento.Objeto.AdicionaNotaFiscal(NotaEmPapel(no, conhecimento));
    }
  }
}

void ImportaCobranca(No cobr, Conhecimento& conhecimento) {
  auto& condicao = conhecimento.Objeto.GetCondicaoPagamento();
  ImportaParcelas(cobr, condicao, conhecimento);
  if (!condicao.GetListaParcela().empty()) conhecimento.Objeto.SetManterParcelasOriginaisCTe(1);
  const No fatura = Filho(cobr, "fat");
  conhecimento.Objeto.SetValorDesconto(Dinheiro(fatura, "vDesc"));
  if (Filho(fatura, "vLiq")) {
    SomaPartes(Filhos(cobr, "dup"), "vDup", "vLiq", Dinheiro(fatura, "vLiq"), conhecimento);
  }
}

}  // namespace

Conhecimento ImportaCTe(No cte) {
  const No inf = Exige(cte, "infCte");
  const No normal = Filho(inf, "infCTeNorm");
  Conhecimento conhecimento;
  conhecimento.Objeto.SetRegCTe(LeChavePropria(inf, "CTe", "protCTe/infProt/chCTe", conhecimento));
  ImportaIdentificacao(Exige(inf, "ide"), conhecimento);
  ImportaReferencia(inf, conhecimento);
  ImportaEmitente(inf, conhecimento);
  Aplica(kComplemento, Filho(inf, "compl"), conhecimento.Objeto, conhecimento);
  ImportaPrestacao(inf, conhecimento);
  ImportaImpostos(Filho(inf, "imp"), conhecimento.Objeto);
  Aplica(kVeiculo, Desce(normal, "infModal/rodoOS/veic"), conhecimento.Objeto, conhecimento);
  ImportaNotas(Filho(normal, "infDoc"), "chave", conhecimento);
  for (const No det : Filhos(inf, "det")) ImportaNotas(det, "chNFe", conhecimento);
  ExigeQueCaiba(conhecimento.Objeto.GetListaNotaFiscal(), "infDoc");
  ImportaCobranca(normal ? Filho(normal, "cobr") : Filho(inf, "cobr"), conhecimento);
  return conhecimento;
}

}  // namespace kxdados
