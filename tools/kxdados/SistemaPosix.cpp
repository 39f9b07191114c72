#include <unistd.h>

#include "Sistema.h"

namespace kxdados {

std::vector<std::string> Argumentos(int argc, char** argv) {
  return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

bool EntradaEhTerminal() { return isatty(STDIN_FILENO) != 0; }

FluxosPadrao::FluxosPadrao() = default;
FluxosPadrao::~FluxosPadrao() = default;

}  // namespace kxdados
