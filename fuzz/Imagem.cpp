// Images of records, for every class with a record: written, changed, opened.
#include "fuzz/Fuzz.h"
#include "tests/apoio/ProvaImagem.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  fuzz::Bytes bytes(dados, tamanho);
  const apoio::Classe& classe = fuzz::EscolheClasse(bytes);
  apoio::ProvaImagem(classe, bytes);
  return 0;
}
