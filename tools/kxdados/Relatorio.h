// What `importa` tells of an invoice.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include "Campos.h"
#include "ImportaNFe.h"

namespace kxdados {

// The way of an entry through its flat record and back.
struct Viagem {
  Medida Registro;
  std::uint32_t Checksum = 0;
  bool Igual = false;  // nothing was lost
  std::string Campos;  // the record's fields, when asked for
};

// Writes the entry into a record, rebuilds it from there, compares, and releases the record.
Viagem Viaja(const CKXDadosCM_RERegistroEntrada& entrada, bool comCampos);

void EscreveRelatorio(std::ostream& saida, const std::string& origem, const Nota& nota,
                      const Viagem& viagem);

}  // namespace kxdados
