// The import of electronic documents, the report included, from any bytes.
#include <iostream>
#include <sstream>

#include "Importa.h"
#include "ImportaCTe.h"
#include "ImportaNFe.h"
#include "Relatorio.h"
#include "fuzz/Fuzz.h"
#include "kxldados/Latin1.h"

namespace {

// Stands in for a stream of the process while it lives.
class Desvio {
 public:
  Desvio(std::ios& fluxo, std::streambuf* outro) : _fluxo(fluxo), _antes(fluxo.rdbuf(outro)) {}
  Desvio(const Desvio&) = delete;
  Desvio& operator=(const Desvio&) = delete;
  ~Desvio() { _fluxo.rdbuf(_antes); }

 private:
  std::ios& _fluxo;
  std::streambuf* _antes;
};

// Every document that can be read travels as a record and comes back the same.
void ExigeViagem(pugi::xml_node no) try {
  const std::string_view nome = kxdados::NomeLocal(no);
  if (nome == "NFe") {
    KX_EXIGE(kxdados::Viaja(kxdados::ImportaNFe(no).Entrada, false).Igual);
  } else if (nome == "CTe" || nome == "CTeSimp" || nome == "CTeOS") {
    KX_EXIGE(kxdados::Viaja(kxdados::ImportaCTe(no).Objeto, false).Igual);
  }
} catch (const kxdados::Falha&) {  // the report tells it
}

struct Viajante : pugi::xml_tree_walker {
  bool for_each(pugi::xml_node& no) override {
    ExigeViagem(no);
    return true;
  }
};

void ExigeViagens(const std::string& bytes) try {
  pugi::xml_document arquivo;
  kxdados::AbreXML(bytes, arquivo);
  Viajante viajante;
  arquivo.traverse(viajante);
} catch (const kxdados::Falha&) {  // the report tells it
}

// The report and the errors are text for people.
void ExigeRelato(const std::string& bytes) {
  std::istringstream entrada(bytes);
  std::ostringstream relatorio;
  std::ostringstream erros;
  kxdados::OpcoesImporta opcoes;
  opcoes.Campos = true;
  for (const kxdados::OpcaoChave& opcao : kxdados::OpcoesChave()) {
    opcoes.Chaves.emplace_back(&opcao, opcao.Maximo);
  }
  int situacao = 0;
  {
    const Desvio cin(std::cin, entrada.rdbuf());
    const Desvio cout(std::cout, relatorio.rdbuf());
    const Desvio cerr(std::cerr, erros.rdbuf());
    situacao = kxdados::Importa(opcoes);
  }
  const std::string queixas = erros.str();
  KX_EXIGE(situacao == (queixas.empty() ? 0 : 1), queixas);
  KX_EXIGE(!relatorio.str().empty() || situacao == 1);
  KX_EXIGE(kx::EhUTF8(queixas) && kx::EhUTF8(relatorio.str()), relatorio.str() + queixas);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  const std::string bytes = fuzz::Bytes(dados, tamanho).Tudo();
  ExigeViagens(bytes);
  ExigeRelato(bytes);
  return 0;
}
