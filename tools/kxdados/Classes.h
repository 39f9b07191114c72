// Which classes of the library hold or convert which records.
#pragma once

#include <string>
#include <vector>

#include "core/Diferenca.h"
#include "core/Metadados.h"

namespace kxdados {

struct Classe {
  const char* Nome;
  const char* Cabecalho;
  const KXRegistroInfo* Registro;
  bool Guarda;  // the object stores the record and has its accessors; otherwise it only converts it
  bool PorValor;  // its getters return values
  // Of objects that read these records; null where the object does not store the record.
  std::string (*Descreve)(const void* registro) = nullptr;
  std::vector<kx::Diferenca> (*Diferencas)(const void* antes, const void* depois) = nullptr;
};

// Every class over a record, and every further record that a class converts.
std::vector<Classe> Classes();

// The first class whose objects store the record; null when there is none.
const Classe* ClasseDe(const KXRegistroInfo& registro);

}  // namespace kxdados
