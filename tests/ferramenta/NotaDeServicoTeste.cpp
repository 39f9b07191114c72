// Service invoices through the tool: the sample invoices against numbers that were computed without
// this project, which field each element reaches, the errors.
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "Execucao.h"

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

namespace {

const std::string kNota = NotaDeExemplo("04_servico_vigilancia_retencoes.xml");

class NotaDeServicoTeste : public FerramentaTeste {
 protected:
  // The records that the tool makes of the file, as they come back from an archive.
  std::vector<Json> Registros(const std::string& arquivo, const std::string& bytes = {}) {
    const std::string acervo = (_pasta / "notas.db").string();
    fs::remove(acervo);
    _importacao = Executa({"importa", "--grava", acervo, arquivo}, bytes);
    std::vector<Json> registros;
    std::istringstream linhas(Executa({"mostra", "--json", acervo}).Saida);
    for (std::string linha; std::getline(linhas, linha);) registros.push_back(Json::parse(linha));
    return registros;
  }

  Execucao _importacao;
};

std::string Texto(const Json& objeto, const char* nome) { return objeto.value(nome, ""); }

// Money is left out of a record where it is zero.
void Dinheiro(const Json& objeto, const char* campo, const std::string& esperado) {
  const double valor = std::stod("0" + esperado);
  EXPECT_DOUBLE_EQ(std::stod("0" + Texto(objeto, campo)), valor) << campo;
}

double Soma(const Json& esperada, std::initializer_list<const char*> nomes) {
  double soma = 0;
  for (const char* nome : nomes) soma += std::stod("0" + Texto(esperada, nome));
  return soma;
}

void ConfereImpostos(const Json& esperada, const Json& item) {
  double retido = 0;
  double outros = 0;
  const Json impostos = item.value("ListaImposto", Json::array());
  for (const Json& imposto : impostos) {
    const double valor = std::stod("0" + Texto(imposto, "Valor"));
    (imposto.value("Retido", 0) != 0 ? retido : outros) += valor;
    EXPECT_EQ(Texto(imposto, "RegDataFatoGerador"), Texto(esperada, "dCompet"));
  }
  const bool issRetido = Texto(esperada, "tpRetISSQN") == "2";
  const double iss = Soma(esperada, {"vISSQN"});
  const double federais = Soma(esperada, {"vRetCP", "vRetIRRF", "vRetCSLL"});
  EXPECT_DOUBLE_EQ(retido, federais + (issRetido ? iss : 0));
  EXPECT_DOUBLE_EQ(outros, issRetido ? 0 : iss);
  if (iss == 0) return;
  Dinheiro(impostos[0], "BaseCalculo", Texto(esperada, "vBC"));
  Dinheiro(impostos[0], "Aliquota", Texto(esperada, "pAliqAplic"));
  EXPECT_DOUBLE_EQ(std::stod("0" + Texto(impostos[0], "ValorDeducao")),
                   Soma(esperada, {"vCalcDR", "vCalcBM"}));
}

void Confere(const Json& esperada, const Json& nota) {
  const std::pair<const char*, const char*> textos[] = {
      {"NumeroNotaFiscal", "nNFSe"}, {"SerieNotaFiscal", "serie"}, {"RegDataEmissao", "dhEmi"}};
  for (const auto& [campo, nome] : textos) EXPECT_EQ(Texto(nota, campo), Texto(esperada, nome));
  const std::pair<const char*, const char*> valores[] = {
      {"ValorTotalServicos", "vServ"},
      {"ValorTotalNotaFiscalNFe", "vServ"},
      {"ValorTotalDescontoServicos", "vDescIncond"},
      {"ValorTotalLiquidoNotaFiscal", "vLiq"},
      {"TotalAPagar", "vLiq"},
      {"ValorTotalINSS", "vRetCP"},
      {"ValorTotalIRRF", "vRetIRRF"}};
  for (const auto& [campo, nome] : valores) Dinheiro(nota, campo, Texto(esperada, nome));
  const bool semChave = Contem(Texto(esperada, "contradictions"), "key");
  EXPECT_EQ(Texto(nota, "ChaveNFSe").size(), semChave ? 0U : 45U);
  ASSERT_EQ(nota.at("ListaServico").size(), 1U);
  ConfereImpostos(esperada, nota.at("ListaServico")[0]);
}

}  // namespace

TEST_F(NotaDeServicoTeste, NumerosDasAmostras) {
  const fs::path dados(KX_DADOS);
  if (!fs::exists(dados / "expected_nfse.json")) GTEST_SKIP() << "no samples in " << dados;
  const auto todas = Json::parse(LeArquivo(dados / "expected_nfse.json"));
  std::map<std::string, std::vector<Json>> porArquivo;
  for (const Json& nota : todas.at("nfse")) porArquivo[nota.at("file")].push_back(nota);
  ASSERT_FALSE(porArquivo.empty());
  for (const auto& [arquivo, esperadas] : porArquivo) {
    SCOPED_TRACE(arquivo);
    const auto notas = Registros((dados / arquivo).string());
    ASSERT_EQ(notas.size(), esperadas.size());
    bool diferem = false;
    bool semChave = false;
    for (std::size_t i = 0; i < notas.size(); ++i) {
      Confere(esperadas[i], notas[i]);
      diferem = diferem || Contem(Texto(esperadas[i], "contradictions"), "liq");
      semChave = semChave || Contem(Texto(esperadas[i], "contradictions"), "key");
    }
    EXPECT_EQ(_importacao.Status, semChave ? 1 : 0) << _importacao.Erros;
    const Execucao relato = Executa({"importa", (dados / arquivo).string()});
    EXPECT_EQ(Contem(relato.Saida, "≠"), diferem) << relato.Saida;
    EXPECT_EQ(Ocorrencias(relato.Saida, "ida e volta: igual"), notas.size());
  }
}

TEST_F(NotaDeServicoTeste, CadaElementoEmSeuCampo) {
  const auto notas = Registros("-", kNota);
  ASSERT_EQ(notas.size(), 1U) << _importacao.Erros;
  EXPECT_EQ(_importacao.Status, 0) << _importacao.Erros;
  const std::string esperado = LeArquivo(KX_RAIZ "/tests/dados/nota_de_servico.jsonl");
  EXPECT_EQ(notas[0].dump() + "\n", esperado);
  const std::string chave = "35503082252610493000185000000000027126035182046370";
  const std::string acervo = (_pasta / "notas.db").string();
  EXPECT_EQ(Executa({"mostra", "--chave", chave, "--json", acervo}).Saida, esperado);
}

TEST_F(NotaDeServicoTeste, RetencoesDoPrimeiroLeiaute) {
  std::string nota = Troca(kNota, "<tpRetPisCofins>3<", "<tpRetPisCofins>1<");
  nota = Troca(nota, "<vTotalRet>2600.00<", "<vTotalRet>3038.00<");
  nota = Troca(nota, "<vLiq>9200.00<", "<vLiq>8762.00<");
  const Execucao e = Executa({"importa", "-"}, nota);
  EXPECT_EQ(e.Status, 0) << e.Erros;
  EXPECT_FALSE(Contem(e.Saida, "≠")) << e.Saida;
  EXPECT_TRUE(Contem(e.Saida, "0,65           78,00  PIS, retido")) << e.Saida;
  EXPECT_TRUE(Contem(e.Saida, "3,00          360,00  COFINS, retido")) << e.Saida;
  EXPECT_TRUE(Contem(e.Saida, "558,00  CSLL, retido")) << e.Saida;
}

TEST_F(NotaDeServicoTeste, OQueOCompradorDeveSaber) {
  const std::string longo = "<nDocFisc>" + std::string(202, '9');
  const struct {
    const char* Velho;
    const char* Novo;
    const char* Aviso;
  } casos[] = {
      {"<tpAmb>1", "<tpAmb>2", "nota de teste"},
      {"<tpEmit>1", "<tpEmit>2", "emitida pelo tomador"},
      {"<nNFSe>271", "<nNFSe>272", "contradição: a chave é da nota 271, e nNFSe diz 272"},
      {"<vISSQN>550", "<vISSQN>551", "550,00 ≠"},
      {"<vIBSTot>", "<vIBSTot>1", "não guardado: IBS 111,25 e CBS 101,25"},
      {"<tpRetISSQN>2", "<tpRetISSQN>3", "550,00  ISS\n"},
      {"<nDocFisc>3391", longo.c_str(), "cortado: Descricao"},
  };
  for (const auto& caso : casos) {
    const Execucao e = Executa({"importa", "-"}, Troca(kNota, caso.Velho, caso.Novo));
    EXPECT_EQ(e.Status, 0) << caso.Novo << e.Erros;
    EXPECT_TRUE(Contem(e.Saida, caso.Aviso)) << caso.Novo << e.Saida;
  }
}

TEST_F(NotaDeServicoTeste, Erros) {
  const struct {
    const char* Velho;
    const char* Novo;
    const char* Erro;
  } casos[] = {
      {"<nNFSe>271<", "<nNFSe><", "nNFSe: elemento obrigatório ausente"},
      {"<vServ>12000.00<", "<vServ><", "valores/vServPrest/vServ: elemento obrigatório ausente"},
      {"<vLiq>9200.00<", "<vLiq>x<", "valores/vLiq: não é um número"},
      {"<dhEmi>2026-03-31", "<dhEmi>2026-02-31", "dhEmi: data que não existe"},
      {"<vRetCP>1320.00", "<vRetCP>1e9", "tribFed/vRetCP: não é um número"},
      {"Id=\"NFS3", "Id=\"NFS4", "infNFSe/@Id: o dígito verificador da chave"},
      {"Id=\"NFS3", "Id=\"NFS", "infNFSe/@Id: a chave da NFS-e não tem 50 posições"},
      {"Id=\"NFS3", "Id=\"NFS-", "infNFSe/@Id: a chave da NFS-e tem um caractere"},
      {"<emit>", "<outro/><emit2>", "malformado"},
  };
  for (const auto& caso : casos) {
    const Execucao e = Executa({"importa", "-"}, Troca(kNota, caso.Velho, caso.Novo));
    EXPECT_EQ(e.Status, 1) << caso.Novo;
    EXPECT_TRUE(Contem(e.Erros, caso.Erro)) << caso.Novo << ": " << e.Erros;
  }
  const Execucao dps = Executa({"importa", "-"}, "<DPS><infDPS/></DPS>");
  EXPECT_TRUE(Contem(dps.Erros, "DPS: é uma declaração de serviço, ainda não uma nota"));
  const Execucao outra = Executa({"importa", "-"}, "<CompNfse><Nfse/></CompNfse>");
  EXPECT_TRUE(Contem(outra.Erros, "CompNfse: é nota de serviço de outro leiaute"));
}
