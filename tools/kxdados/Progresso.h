// What the standard error shows: errors, and how far a long run has come.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "Falha.h"

namespace kxdados {

// Writes what is wrong with a document, one line, behind what was written to the standard output.
void EscreveErro(const std::string& origem, const Falha& falha);

// One line that is written over and over, where somebody looks at it: done, per second, left.
class Progresso {
 public:
  // Of so many, where that is known.
  explicit Progresso(std::optional<std::int64_t> quantos = {});
  Progresso(const Progresso&) = delete;
  Progresso& operator=(const Progresso&) = delete;
  ~Progresso();

  void Avanca();

 private:
  void Escreve(std::chrono::steady_clock::time_point agora);

  const bool _visivel;
  const std::optional<std::int64_t> _quantos;
  const std::chrono::steady_clock::time_point _inicio;
  std::chrono::steady_clock::time_point _escrito;
  std::int64_t _feitos = 0;
};

}  // namespace kxdados
