// The command `importa`.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "re/DadosRE.h"

namespace kxdados {

// A key of another table that the user may give for all the entries.
struct OpcaoChave {
  const char* Nome;  // "--filial"
  const char* Ajuda;
  std::uint64_t Maximo;
  void (*Poe)(CKXDadosCM_RERegistroEntrada&, std::uint64_t);
};
std::span<const OpcaoChave> OpcoesChave() noexcept;

struct OpcoesImporta {
  std::vector<std::string> Caminhos;  // files, folders, "-"; none: standard input
  std::vector<std::pair<const OpcaoChave*, std::uint64_t>> Chaves;
  bool Campos = false;
};

// Reports to standard output, a line per error to the standard error. Returns the exit status: 1
// when there was any error; the other files and invoices are done all the same.
int Importa(const OpcoesImporta& opcoes);

}  // namespace kxdados
