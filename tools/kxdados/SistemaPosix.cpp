#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

#include "Sistema.h"

namespace kxdados {

namespace {

volatile std::sig_atomic_t pedida = 0;

}  // namespace

// A read that waits is otherwise begun again by the standard library.
extern "C" {
static void Interrompe(int sinal) {
  pedida = 1;
  close(STDIN_FILENO);
  std::signal(sinal, SIG_DFL);
}
}

std::vector<std::string> Argumentos(int argc, char** argv) {
  return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

bool EntradaEhTerminal() { return isatty(STDIN_FILENO) != 0; }

bool ErroEhTerminal() { return isatty(STDERR_FILENO) != 0; }

bool EntradaEspera(std::chrono::milliseconds quanto) {
  if (std::cin.rdbuf()->in_avail() > 0) return false;
  pollfd entrada{STDIN_FILENO, POLLIN, 0};
  return poll(&entrada, 1, static_cast<int>(quanto.count())) == 0;
}

Interrupcao::Interrupcao() {
  struct sigaction acao = {};
  acao.sa_handler = &Interrompe;  // without SA_RESTART
  sigaction(SIGINT, &acao, nullptr);
}

Interrupcao::~Interrupcao() { std::signal(SIGINT, SIG_DFL); }

bool Interrupcao::Pedida() noexcept { return pedida != 0; }

FluxosPadrao::FluxosPadrao() {
  std::ios::sync_with_stdio(false);
  std::signal(SIGXFSZ, SIG_IGN);  // a file too large for its limit is an error of the write
}
FluxosPadrao::~FluxosPadrao() = default;

}  // namespace kxdados
