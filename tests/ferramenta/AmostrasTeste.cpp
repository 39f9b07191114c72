// Public sample invoices and freight bills against numbers that were computed without this project.
#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "Execucao.h"

namespace fs = std::filesystem;

namespace {

struct NotaRelatada {
  std::map<std::string, std::pair<double, double>> Totais;  // calculated, stated
  std::map<std::string, int> Conteudo;                      // by the first word: "produto"...
  bool Igual = false;
};

// "1.234,50"
double Numero(std::string texto) {
  std::erase(texto, '.');
  std::replace(texto.begin(), texto.end(), ',', '.');
  return std::stod(texto);
}

void LeConteudo(const std::string& linha, NotaRelatada& nota) {
  const std::regex par("(\\d+) (produto|serviço|entrada|nota|parcela)");
  for (std::sregex_iterator i(linha.begin(), linha.end(), par), fim; i != fim; ++i) {
    nota.Conteudo[(*i)[2]] = std::stoi((*i)[1]);
  }
}

std::vector<NotaRelatada> LeRelatorio(const std::string& saida) {
  const std::regex total("    (v\\w+) +(\\S+) (?:=|≠) +(\\S+).*");
  std::vector<NotaRelatada> notas;
  std::istringstream linhas(saida);
  std::smatch partes;
  for (std::string linha; std::getline(linhas, linha);) {
    if (linha.find(": nota ") != std::string::npos) notas.emplace_back();
    if (linha.starts_with("  conteúdo")) LeConteudo(linha, notas.back());
    if (std::regex_match(linha, partes, total)) {
      notas.back().Totais[partes[1]] = {Numero(partes[2]), Numero(partes[3])};
    }
    if (linha.find("ida e volta: igual") != std::string::npos) notas.back().Igual = true;
  }
  return notas;
}

double Decimal(const nlohmann::json& valor) { return std::stod(valor.get<std::string>()); }

// Totals for which the entry has no place.
bool SemCampo(const std::string& nome) {
  return nome == "vIPIDevol" || nome.starts_with("vICMSMono");
}

void Confere(const nlohmann::json& esperada, const NotaRelatada& nota) {
  for (const auto& [nome, soma] : esperada.at("sum").items()) {
    if (SemCampo(nome)) continue;
    const auto achado = nota.Totais.find(nome);
    const auto valores =
        achado != nota.Totais.end() ? achado->second : std::pair<double, double>(0, 0);
    EXPECT_DOUBLE_EQ(valores.first, Decimal(soma)) << nome;
    EXPECT_DOUBLE_EQ(valores.second, Decimal(esperada.at("stated").at(nome))) << nome;
  }
  EXPECT_DOUBLE_EQ(nota.Totais.at("vNF").second, Decimal(esperada.at("vNF")));
  if (const auto fatura = nota.Totais.find("vLiq"); fatura != nota.Totais.end()) {
    EXPECT_DOUBLE_EQ(fatura->second.first, Decimal(esperada.at("dup_sum")));
    EXPECT_DOUBLE_EQ(fatura->second.second, Decimal(esperada.at("fat_vLiq")));
  }
  const int servicos = esperada.at("services");
  EXPECT_EQ(nota.Conteudo.at("produto"), esperada.at("items").get<int>() - servicos);
  EXPECT_EQ(nota.Conteudo.at("serviço"), servicos);
  EXPECT_EQ(nota.Conteudo.at("nota"), static_cast<int>(esperada.at("NFref").size()));
  EXPECT_EQ(nota.Conteudo.at("parcela"), esperada.at("dups").get<int>());
  EXPECT_GE(nota.Conteudo.at("entrada"),
            esperada.at("rastro").get<int>() + esperada.at("arma").get<int>());
  EXPECT_TRUE(nota.Igual);
}

}  // namespace

TEST_F(FerramentaTeste, NumerosDasAmostras) {
  const fs::path dados(KX_DADOS);
  if (!fs::exists(dados / "expected.json")) GTEST_SKIP() << "no sample documents in " << dados;
  std::map<std::string, std::vector<nlohmann::json>> porArquivo;
  const auto esperado = nlohmann::json::parse(LeArquivo(dados / "expected.json"));
  for (const auto& nota : esperado.at("nfe")) {
    const std::string nome = nota.at("file");
    porArquivo[nome.substr(0, nome.find('#'))].push_back(nota);
  }
  ASSERT_FALSE(porArquivo.empty());
  for (const auto& [arquivo, esperadas] : porArquivo) {
    SCOPED_TRACE(arquivo);
    const auto notas = LeRelatorio(Executa({"importa", (dados / arquivo).string()}).Saida);
    ASSERT_EQ(notas.size(), esperadas.size());
    for (std::size_t i = 0; i < notas.size(); ++i) Confere(esperadas[i], notas[i]);
  }
}

namespace {

// The value of a field of the record, 0 when it is empty; of all elements of an array, their sum.
double Campo(const std::string& saida, const std::string& nome) {
  const std::regex linha("\n +" + nome + ": (\\S+)");
  double soma = 0;
  for (std::sregex_iterator i(saida.begin(), saida.end(), linha), fim; i != fim; ++i) {
    soma += Numero((*i)[1]);
  }
  return soma;
}

std::ptrdiff_t Elementos(const std::string& saida, const std::string& lista) {
  const std::regex linha("\n +" + lista + " \\d+ de ");
  return std::distance(std::sregex_iterator(saida.begin(), saida.end(), linha),
                       std::sregex_iterator());
}

void ConfereConhecimento(const nlohmann::json& esperado, const std::string& saida) {
  const bool st = esperado.at("icms") == "ICMS60";
  const std::pair<const char*, const char*> campos[] = {
      {"ValorTotalCTe", "vTPrest"},
      {"ValorConhecimentoTransporteLiquido", "vRec"},
      {st ? "ValorBaseCalculoICMSSubstituicao" : "ValorBaseCalculoICMS", "vBC"},
      {st ? "ValorICMSSubtituicao" : "ValorICMS", "vICMS"},
  };
  for (const auto& [campo, nome] : campos) {
    EXPECT_DOUBLE_EQ(Campo(saida, campo), Decimal(esperado.at(nome))) << campo;
  }
  const double aliquota = st ? 0 : 100 * Decimal(esperado.at("pICMS"));
  EXPECT_DOUBLE_EQ(Campo(saida, "AliquotaICMS"), aliquota);
  EXPECT_EQ(Elementos(saida, "NotaFiscal"), esperado.at("infNFe").get<int>() +
                                                esperado.at("infNF").get<int>() +
                                                esperado.at("infOutros").get<int>());
  EXPECT_EQ(Elementos(saida, "Parcela"), esperado.at("dups").get<int>());
  const std::string parcelas = saida.substr(std::min(saida.find("\n      Parcela"), saida.size()));
  EXPECT_DOUBLE_EQ(Campo(parcelas, "Valor"), Decimal(esperado.at("dup_sum")));
  std::smatch soma;
  if (std::regex_search(saida, soma, std::regex("    vTPrest +(\\S+)"))) {
    EXPECT_DOUBLE_EQ(Numero(soma[1]), Decimal(esperado.at("comp_sum")));
  } else {
    EXPECT_EQ(esperado.at("comps"), 0);
  }
  EXPECT_NE(saida.find("ida e volta: igual"), std::string::npos);
}

}  // namespace

TEST_F(FerramentaTeste, NumerosDosConhecimentosDeAmostra) {
  const fs::path dados(KX_DADOS);
  if (!fs::exists(dados / "expected.json")) GTEST_SKIP() << "no sample documents in " << dados;
  const auto esperado = nlohmann::json::parse(LeArquivo(dados / "expected.json"));
  ASSERT_FALSE(esperado.at("cte").empty());
  for (const auto& conhecimento : esperado.at("cte")) {
    const std::string arquivo = conhecimento.at("file");
    SCOPED_TRACE(arquivo);
    ConfereConhecimento(conhecimento,
                        Executa({"importa", "--campos", (dados / arquivo).string()}).Saida);
  }
}
