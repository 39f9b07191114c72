// Record tree to object to record, for every class with a record: the input says which, and its
// bytes decide the rest.
#include <algorithm>
#include <string_view>

#include "fuzz/Fuzz.h"
#include "tests/apoio/Prova.h"

namespace {

// FNV-1a of the class's name.
std::uint32_t NumeroDe(std::string_view nome) {
  std::uint32_t numero = 2166136261U;
  for (const char letra : nome) numero = (numero ^ static_cast<unsigned char>(letra)) * 16777619U;
  return numero;
}

}  // namespace

// The input begins with a number, and goes to the class whose own is the next from there. A seed
// begins with that of its class, so that no class that is added takes it over.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  const auto& classes = apoio::ClassesDeRegistro();
  fuzz::Bytes bytes(dados, tamanho);
  const auto numero = bytes.Valor<std::uint32_t>();
  const auto daqui = [numero](const apoio::Classe& a, const apoio::Classe& b) {
    return NumeroDe(a.Nome) - numero < NumeroDe(b.Nome) - numero;
  };
  apoio::Prova(*std::min_element(classes.begin(), classes.end(), daqui), bytes);
  return 0;
}
