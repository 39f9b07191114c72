// What the harnesses share.
#pragma once

#include <algorithm>
#include <string_view>

#include "tests/apoio/Bytes.h"
#include "tests/apoio/Classes.h"

// The entry that libFuzzer calls, and Repassa.cpp in place of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho);

namespace fuzz {

using apoio::Bytes;

// FNV-1a of the class's name.
inline std::uint32_t NumeroDe(std::string_view nome) {
  std::uint32_t numero = 2166136261U;
  for (const char letra : nome) numero = (numero ^ static_cast<unsigned char>(letra)) * 16777619U;
  return numero;
}

// The input begins with a number, and goes to the class with a record whose own is the next from
// there. A seed begins with that of its class, so that no class that is added takes it over.
inline const apoio::Classe& EscolheClasse(Bytes& bytes) {
  const auto& classes = apoio::ClassesDeRegistro();
  const auto numero = bytes.Valor<std::uint32_t>();
  const auto daqui = [numero](const apoio::Classe& a, const apoio::Classe& b) {
    return NumeroDe(a.Nome) - numero < NumeroDe(b.Nome) - numero;
  };
  return *std::min_element(classes.begin(), classes.end(), daqui);
}

}  // namespace fuzz
