// What `importa` tells of a document.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include "ImportaCTe.h"
#include "ImportaNFSe.h"
#include "ImportaNFe.h"
#include "Medida.h"

namespace kxdados {

// The way of an object through its flat record and back.
struct Viagem {
  Medida Registro;
  std::uint32_t Checksum = 0;
  bool Igual = false;  // nothing was lost
  std::string Campos;  // the record's fields, when asked for
};

// Writes the object into a record, rebuilds it from there, compares, and releases the record. For
// the classes of the two documents below.
template <class Objeto>
Viagem Viaja(const Objeto& objeto, bool comCampos);

void EscreveRelatorio(std::ostream& saida, const std::string& origem, const Nota& nota,
                      const Viagem& viagem);
void EscreveRelatorio(std::ostream& saida, const std::string& origem,
                      const Conhecimento& conhecimento, const Viagem& viagem);
void EscreveRelatorio(std::ostream& saida, const std::string& origem, const NotaDeServico& nota,
                      const Viagem& viagem);

}  // namespace kxdados
