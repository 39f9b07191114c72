// Record tree to object to record, for every class with a record: the input says which, and its
// bytes decide the rest.
#include "fuzz/Fuzz.h"
#include "tests/apoio/Prova.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  fuzz::Bytes bytes(dados, tamanho);
  const apoio::Classe& classe = fuzz::EscolheClasse(bytes);
  apoio::Prova(classe, bytes);
  return 0;
}
