// The hierarchy of approval rules.
#include "fuzz/Fuzz.h"
#include "tests/apoio/ProvaFloresta.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  apoio::ProvaFloresta(fuzz::Bytes(dados, tamanho));
  return 0;
}
