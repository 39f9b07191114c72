// The command `leiaute`: records as their metadata describe them.
#pragma once

#include <iosfwd>
#include <string>

namespace kxdados {

// All records, one a line.
void ListaRegistros(std::ostream& saida);

// The layout of one record. False when there is no such record: then the nearest names are told to
// `erros`.
bool EscreveLeiaute(std::ostream& saida, std::ostream& erros, const std::string& nome);

// The layout reference of all records, Markdown.
void EscreveReferencia(std::ostream& saida);

}  // namespace kxdados
