// The command `importa`.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "Grava.h"
#include "ct/DadosCT.h"
#include "re/DadosRE.h"

namespace kxdados {

// A key of another table that the user may give for all the documents.
struct OpcaoChave {
  const char* Nome;  // "--filial"
  const char* Ajuda;
  std::uint64_t Maximo;
  void (*PoeNaEntrada)(CKXDadosCM_RERegistroEntrada&, std::uint64_t);
  void (*PoeNoConhecimento)(CKXDadosCM_CTConhecimentoTransporte&, std::uint64_t);  // or null
};
std::span<const OpcaoChave> OpcoesChave() noexcept;

struct OpcoesImporta {
  std::vector<std::string> Caminhos;  // files, folders, "-"; none: standard input
  std::vector<std::pair<const OpcaoChave*, std::uint64_t>> Chaves;
  bool Campos = false;
  std::uint64_t MaximoMiB = 256;  // of one file
  OpcoesGrava Grava;              // with an archive: books there instead of reporting
};

// Reports to standard output, or books and tells how many, a line per error to the standard error.
// Returns the exit status: 1 when there was any error; the other files and documents are done all
// the same.
int Importa(const OpcoesImporta& opcoes);

}  // namespace kxdados
