// Which classes of the library hold or convert which records.
#pragma once

#include <vector>

#include "core/Metadados.h"

namespace kxdados {

struct Classe {
  const char* Nome;
  const char* Cabecalho;
  const KXRegistroInfo* Registro;
  bool Guarda;  // the object stores the record and has its accessors; otherwise it only converts it
  bool PorValor;  // its getters return values
};

// Every class over a record, and every further record that a class converts.
std::vector<Classe> Classes();

}  // namespace kxdados
