// The command `leiaute`: records as their metadata describe them.
#pragma once

#include <iosfwd>
#include <string>

#include "core/Metadados.h"

namespace kxdados {

// All records, one a line.
void ListaRegistros(std::ostream& saida);

// The layout of one record. False when there is no such record: then the nearest names are told to
// `erros`.
bool EscreveLeiaute(std::ostream& saida, std::ostream& erros, const std::string& nome);

// The type of a field as layouts show it: uint16, CY, char[30]...
std::string TipoDoCampo(const KXCampo& campo);

}  // namespace kxdados
