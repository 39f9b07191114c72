// The commands `mostra` and `compara`: records in files, as core/Imagem.h writes them.
#pragma once

#include <string>
#include <vector>

namespace kxdados {

struct OpcoesImagens {
  std::vector<std::string> Caminhos;  // files, "-"; none: standard input
  bool Json = false;
};

// Shows each image of each file, of which there may be several one behind the other. Returns the
// exit status: 1 when one of them could not be shown; the others are.
int Mostra(const OpcoesImagens& opcoes);

// Tells what is different in the image of the second of two files. Returns 0 when the objects are
// equal, 1 when they are not, 2 when they cannot be compared.
int Compara(const OpcoesImagens& opcoes);

}  // namespace kxdados
