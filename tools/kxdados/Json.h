// Records and differences as JSON, for programs.
#pragma once

#include <string>

#include "core/Diferenca.h"
#include "core/Metadados.h"

namespace kxdados {

// One object: "_registro", the record's name, then its fields by the names of the tables, empty
// ones left out. Money and integers of 64 bits are decimal strings, dates are ISO 8601, texts
// UTF-8, lists arrays of objects. No byte is lost: what such a form cannot say (a date that is
// none, something behind the end of a text) is "hex:" and its bytes, and so are reserves. The
// record must be one that can be read, such as an image that was opened. On one line, or indented
// by so many blanks.
std::string JsonDeRegistro(const KXRegistroInfo& info, const void* registro, int recuo = -1);

// One object on one line: documento, if it has a name, caminho, tipo, antes, depois, comparado.
std::string JsonDeDiferenca(const kx::Diferenca& diferenca, const std::string& documento);

// aaaa-mm-dd.
std::string DataISO(const REG_KXDMA& data);

}  // namespace kxdados
