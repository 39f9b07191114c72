// The commands `mostra`, `compara` and `confere`: documents in archives and in files of images.
#pragma once

#include <string>
#include <vector>

#include "Fonte.h"

namespace kxdados {

struct OpcoesMostra {
  std::vector<std::string> Caminhos;  // archives, files of images, "-"; none: standard input
  Filtro Quais;
  bool Json = false;
  bool Imagem = false;  // the bare bytes
};

// Shows each document. Returns the exit status: 1 when one of them could not be shown, or none was
// meant; the others are.
int Mostra(const OpcoesMostra& opcoes);

struct OpcoesCompara {
  std::vector<std::string> Caminhos;  // two; or one, and two keys or numbers
  std::vector<std::string> Chaves;    // of the document of each; one serves for both
  std::vector<std::string> Numeros;   // likewise
  bool Json = false;
};

// Tells what is different in the documents of the second of two files: of one in each whatever they
// are called, of more by their keys. Returns 0 when the objects are equal, 1 when they are not, 2
// when they cannot be compared.
int Compara(const OpcoesCompara& opcoes);

// Verifies an archive: the database, every image, and what the table says of it. Returns 1 when
// something is wrong.
int ConfereAcervo(const std::string& caminho);

}  // namespace kxdados
