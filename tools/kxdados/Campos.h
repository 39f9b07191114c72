// What a record tree holds, read through its metadata alone.
#pragma once

#include <cstddef>
#include <iosfwd>

#include "core/Metadados.h"

namespace kxdados {

// A record and everything that hangs from it.
struct Medida {
  std::size_t Bytes = 0;
  std::size_t Listas = 0;
  std::size_t Textos = 0;
};

Medida MedeRegistro(const KXRegistroInfo& info, const void* registro);

// Every field that is not empty, one a line, by name, with its value as people write it; the
// elements of child arrays below their array, indented.
void EscreveCampos(std::ostream& saida, const KXRegistroInfo& info, const void* registro,
                   int nivel = 0);

}  // namespace kxdados
