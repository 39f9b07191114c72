// The documentation that can be checked: the record pages are those of the metadata, and what the
// document pages show is in the examples, which are compiled and run.
#include <algorithm>
#include <map>
#include <sstream>

#include "Execucao.h"
#include "tests/apoio/ClassesDeRegistro.h"

namespace fs = std::filesystem;

namespace {

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

template <class... C>
std::vector<std::pair<std::string, std::string>> ClassesERegistros(testing::Types<C...>) {
  return {{C::GetThisClass()->m_lpszClassName, KXMetadados<typename C::Registro>::kInfo.Nome}...};
}

}  // namespace

TEST_F(FerramentaTeste, PaginasDosRegistrosEmDia) {
  ASSERT_EQ(Executa({"leiaute", "--tudo", _pasta.string()}).Status, 0);
  const Arquivos escritas = Paginas(_pasta);
  const Arquivos guardadas = Paginas(fs::path(KX_RAIZ) / "docs");
  EXPECT_EQ(Diferentes(escritas, guardadas), "") << "run: kxdados leiaute --tudo docs";
  EXPECT_EQ(Diferentes(guardadas, escritas), "") << "pages of no record are to be removed";

  for (const auto& [classe, registro] : ClassesERegistros(apoio::ClassesDeRegistro{})) {
    EXPECT_NE(escritas.at(registro + ".md").find("- `" + classe + "`, `#include \""),
              std::string::npos)
        << classe << " is missing in the page of " << registro;
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
  for (const auto& fonte : fs::directory_iterator(fs::path(KX_RAIZ) / "examples")) {
    if (fonte.path().extension() == ".cpp") exemplos += SemRecuo(LeArquivo(fonte.path()));
  }
  std::size_t paginas = 0;
  for (const auto& pagina : fs::directory_iterator(fs::path(KX_RAIZ) / "docs/documentos")) {
    ++paginas;
    const std::vector<std::string> trechos = Trechos(LeArquivo(pagina.path()));
    EXPECT_FALSE(trechos.empty()) << pagina.path();
    for (const std::string& trecho : trechos) {
      EXPECT_NE(exemplos.find(SemRecuo(trecho)), std::string::npos)
          << pagina.path() << " shows what is in no example:\n"
          << trecho;
    }
  }
  EXPECT_EQ(paginas, 7U);
}
