// Every allocation of an import is made to fail in turn, the XML parser's too: the error comes out,
// nothing leaks, and the same import succeeds right after.
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <pugixml.hpp>
#include <streambuf>
#include <string>
#include <string_view>

#include "tests/apoio/ContaAlocacoes.h"
#include "tests/mensagens/KXMensFalsa.h"
#include "tools/kxdados/Importa.h"

namespace {

std::string Le(const std::string& caminho) {
  std::ifstream arquivo(KX_RAIZ "/" + caminho, std::ios::binary);
  return {std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>()};
}

std::string Troca(std::string texto, const std::string& velho, const std::string& novo) {
  return texto.replace(texto.find(velho), velho.size(), novo);
}

// Stands in for the process's streams: what is read and written never takes memory.
class Memoria : public std::streambuf {
 public:
  explicit Memoria(std::string entrada)
      : _entrada(std::move(entrada)),
        _cin(std::cin.rdbuf(this)),
        _cout(std::cout.rdbuf(this)),
        _cerr(std::cerr.rdbuf(this)) {}
  Memoria(const Memoria&) = delete;
  Memoria& operator=(const Memoria&) = delete;
  ~Memoria() override {
    std::cin.rdbuf(_cin);
    std::cout.rdbuf(_cout);
    std::cerr.rdbuf(_cerr);
  }

  void Recomeca() {
    setg(_entrada.data(), _entrada.data(), _entrada.data() + _entrada.size());
    setp(_saida.data(), _saida.data() + _saida.size());
    std::cin.clear();
  }
  std::string_view Escrito() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

 private:
  std::string _entrada;
  std::string _saida = std::string(1 << 20, '\0');
  std::streambuf* _cin;
  std::streambuf* _cout;
  std::streambuf* _cerr;
};

// Imports the document from the standard input; every `passo`-th allocation fails.
void FalhaNaImportacao(const std::string& xml, int status, long long passo) {
  kxdados::OpcoesImporta opcoes;
  opcoes.Campos = true;
  Memoria memoria(xml);
  memoria.Recomeca();
  ASSERT_EQ(kxdados::Importa(opcoes), status) << memoria.Escrito();
  const std::string esperado(memoria.Escrito());

  const auto importa = [&] {
    memoria.Recomeca();
    return kxdados::Importa(opcoes) == status && memoria.Escrito() == esperado;
  };
  bool certo = true;
  apoio::FalhaEmCadaAlocacao([&] { certo = importa(); }, [&] { EXPECT_TRUE(certo && importa()); },
                             passo);
}

class ImportaFalhas : public testing::Test {
 protected:
  ImportaFalhas()
      : _aloca(pugi::get_memory_allocation_function()),
        _libera(pugi::get_memory_deallocation_function()) {
    pugi::set_memory_management_functions(apoio::Aloca, apoio::Libera);
    _mensagens.Estado().Descarta = true;  // the library swallows what its reporter throws
  }
  ~ImportaFalhas() override { pugi::set_memory_management_functions(_aloca, _libera); }

  const Mensagens _mensagens;
  const pugi::allocation_function _aloca;
  const pugi::deallocation_function _libera;
};

TEST_F(ImportaFalhas, NotaFiscal) {
  FalhaNaImportacao(Le("examples/notas/02_medicamentos_lotes_servico.xml"), 0, 1);
}

// With many items: lists grow, and the parser takes memory more than once.
TEST_F(ImportaFalhas, NotaFiscalGrande) {
  const std::string nota = Le("examples/notas/01_atacado_st_ipi_3parcelas.xml");
  const std::size_t inicio = nota.find("<det ");
  const std::string item = nota.substr(inicio, nota.find("</det>") + 6 - inicio);
  std::string itens;
  for (int i = 0; i < 200; ++i) itens += item;
  FalhaNaImportacao(Troca(nota, item, itens), 0, 61);
}

TEST_F(ImportaFalhas, Conhecimento) { FalhaNaImportacao(Le("tests/dados/conhecimento.xml"), 0, 1); }

TEST_F(ImportaFalhas, DocumentosComErro) {
  const std::string conhecimento = Le("tests/dados/conhecimento.xml");
  FalhaNaImportacao(Troca(conhecimento, "<vTPrest>350.00</vTPrest>", ""), 1, 1);
  FalhaNaImportacao(Troca(conhecimento, "CTe4126", "CTe4127"), 1, 1);
  FalhaNaImportacao(conhecimento.substr(0, conhecimento.size() / 2), 1, 1);
}

}  // namespace
