// The documentation that can be checked: the record pages are those of the metadata, and what the
// document pages show is in the examples, which are compiled and run.
#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "Execucao.h"
#include "tests/apoio/Classes.h"

namespace fs = std::filesystem;

namespace {

const fs::path kRaiz = KX_RAIZ;

using Arquivos = std::map<std::string, std::string>;

Arquivos Paginas(const fs::path& pasta) {
  Arquivos paginas{{"leiautes.md", LeArquivo(pasta / "leiautes.md")}};
  for (const auto& pagina : fs::directory_iterator(pasta / "registros")) {
    paginas[pagina.path().filename().string()] = LeArquivo(pagina.path());
  }
  return paginas;
}

// Names in the first that are not in the second, or whose texts differ.
std::string Diferentes(const Arquivos& umas, const Arquivos& outras) {
  std::string nomes;
  for (const auto& [nome, texto] : umas) {
    const auto outra = outras.find(nome);
    if (outra == outras.end() || outra->second != texto) nomes += nome + ' ';
  }
  return nomes;
}

std::string SemRecuo(const std::string& texto) {
  std::istringstream linhas(texto);
  std::string saida;
  for (std::string linha; std::getline(linhas, linha);) {
    linha.erase(0, linha.find_first_not_of(' '));
    saida += linha + '\n';
  }
  return saida;
}

// The pieces of C++ in a page.
std::vector<std::string> Trechos(const std::string& pagina) {
  const std::string abre = "```cpp\n";
  std::vector<std::string> trechos;
  for (std::size_t i = pagina.find(abre); i != std::string::npos; i = pagina.find(abre, i)) {
    i += abre.size();
    const std::size_t fim = pagina.find("```", i);
    trechos.push_back(pagina.substr(i, fim - i));
    i = fim;
  }
  return trechos;
}

// What a page has, without its words: headings, blocks of code, commands, numbered items.
std::string Esqueleto(const std::string& pagina) {
  std::istringstream linhas(pagina);
  std::string esqueleto;
  for (std::string linha; std::getline(linhas, linha);) {
    const std::string marca = linha.substr(0, linha.find(' '));
    if (marca == "##" || linha.starts_with("```") || linha.starts_with("    ./dev") ||
        linha.starts_with("    kxdados") || (marca.size() == 2 && marca[1] == '.')) {
      esqueleto += linha.substr(0, linha.find_first_of(" #", linha.find_first_not_of(' '))) + '\n';
    }
  }
  return esqueleto;
}

// The names that end in a marker, within a piece of a file from one text to the next one.
std::set<std::string> Nomes(const char* arquivo, const std::string& de, const std::string& ate,
                            const std::string& marcador) {
  const std::string texto = LeArquivo(kRaiz / arquivo);
  const std::size_t inicio = texto.find(de);
  const std::string trecho = texto.substr(inicio, texto.find(ate, inicio + 1) - inicio);
  const std::regex nome("(\\w+)" + marcador + "\\(");
  std::set<std::string> nomes;
  for (std::sregex_iterator i(trecho.begin(), trecho.end(), nome), fim; i != fim; ++i) {
    nomes.insert((*i)[1]);
  }
  return nomes;
}

}  // namespace

TEST_F(FerramentaTeste, PaginasDosRegistrosEmDia) {
  ASSERT_EQ(Executa({"leiaute", "--tudo", _pasta.string()}).Status, 0);
  const Arquivos escritas = Paginas(_pasta);
  const Arquivos guardadas = Paginas(kRaiz / "docs");
  EXPECT_EQ(Diferentes(escritas, guardadas), "") << "run: kxdados leiaute --tudo docs";
  EXPECT_EQ(Diferentes(guardadas, escritas), "") << "pages of no record are to be removed";

  for (const apoio::Classe& classe : apoio::ClassesDeRegistro()) {
    const std::string pagina = classe.Info->Nome + std::string(".md");
    EXPECT_NE(escritas.at(pagina).find("- `" + std::string(classe.Nome) + "`, `#include \""),
              std::string::npos)
        << classe.Nome << " is missing in " << pagina;
  }
  // Wider than other counts, of a record without accessors; and a getter by value.
  EXPECT_NE(escritas.at("tagREG_CM_LE_LISTA_AC_CMSAUTPS.md").find("| 0 | 4 | `int32` | `QtdAC` |"),
            std::string::npos);
  EXPECT_NE(escritas.at("tagREG_CONHECIMENTOPS.md").find("`T Get…() const`"), std::string::npos);
}

TEST_F(FerramentaTeste, PaginaQueNaoSeGrava) {
  fs::create_directory(_pasta / "leiautes.md");
  const Execucao e = Executa({"leiaute", "--tudo", _pasta.string()});
  EXPECT_EQ(e.Status, 1);
  EXPECT_NE(e.Erros.find("leiautes.md: não foi possível gravar"), std::string::npos) << e.Erros;
}

// Indentation apart, since a page shows the inside of a function.
TEST(Documentacao, ExemplosDasPaginasSaoReais) {
  std::string exemplos;
  for (const auto& fonte : fs::directory_iterator(kRaiz / "examples")) {
    if (fonte.path().extension() == ".cpp") exemplos += SemRecuo(LeArquivo(fonte.path()));
  }
  std::vector<fs::path> paginas{kRaiz / "README.md", kRaiz / "LEIAME.md"};
  for (const auto& pagina : fs::directory_iterator(kRaiz / "docs/documentos")) {
    paginas.push_back(pagina.path());
  }
  std::string todas;
  for (const fs::path& pagina : paginas) todas += LeArquivo(pagina);
  for (const auto& pasta : fs::directory_iterator(kRaiz)) {
    const std::string sala = pasta.path().filename().string();
    if (!fs::exists(pasta.path() / "leiautes.txt") || sala == "core") continue;
    EXPECT_TRUE(Contem(todas, "(`" + sala + "/")) << "no page in docs/documentos tells of " << sala;
  }
  for (const fs::path& pagina : paginas) {
    const std::vector<std::string> trechos = Trechos(LeArquivo(pagina));
    EXPECT_FALSE(trechos.empty()) << pagina;
    for (const std::string& trecho : trechos) {
      EXPECT_NE(exemplos.find(SemRecuo(trecho)), std::string::npos)
          << pagina << " shows what is in no example:\n"
          << trecho;
    }
  }
}

TEST(Documentacao, LeiameSegueOReadme) {
  EXPECT_EQ(Esqueleto(LeArquivo(kRaiz / "LEIAME.md")), Esqueleto(LeArquivo(kRaiz / "README.md")));
}

// The reference shows what the macros declare, which it reads from a file of its own.
TEST(Documentacao, ReferenciaMostraOQueAsMacrosDeclaram) {
  for (const auto& [cabecalho, macro] :
       {std::pair{"core/Colecao.h", "KX_COLECAO"}, std::pair{"core/Membro.h", "KX_MEMBRO"}}) {
    const auto declarados = Nomes(cabecalho, std::string("#define ") + macro, "\n\n", "##Nome");
    EXPECT_GT(declarados.size(), 1U) << macro;
    EXPECT_EQ(Nomes("docs/doxygen/membros.txt", std::string("\n= ") + macro, "\n= ", "\\$Nome\\$"),
              declarados)
        << macro;
  }
}
