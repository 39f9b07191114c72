// Documents into an archive: the command `grava`, and what `importa --grava` shares with it.
#pragma once

#include <string>

#include "Acervo.h"
#include "Progresso.h"

namespace kxdados {

struct OpcoesGrava {
  std::string Acervo;
  bool Substitui = false;  // a document of the same key and other contents
};

// An archive into which a command books documents.
class Destino {
 public:
  explicit Destino(const OpcoesGrava& opcoes);

  void Grava(const Lido& lido, const std::string& origem) { _gravador.Grava(lido, origem); }
  // Books what waits for more to come.
  void GravaPendentes() { _gravador.Conclui(); }
  // Books what is left, and tells of all. Whether none was refused.
  bool Conclui();
  // Tells that the archive failed, and of what had been booked before.
  void Falhou(const FalhaDoBanco& falha);

 private:
  void EscreveResumo();

  const std::string _caminho;
  Gravador _gravador;
};

// Reads documents as `mostra --json` writes them, a line each, from the standard input. Returns 1
// when one of them was refused; the others are booked.
int Grava(const OpcoesGrava& opcoes);

}  // namespace kxdados
