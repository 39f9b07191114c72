#include "Progresso.h"

#include <iostream>

#include "Sistema.h"

namespace kxdados {

namespace {

bool naLinha = false;  // whether the line stands there

void Apaga() {
  if (naLinha) std::cerr << "\r\x1B[K";
  naLinha = false;
}

}  // namespace

void EscreveErro(const std::string& origem, const Falha& falha) {
  std::cout.flush();
  Apaga();
  std::cerr << origem << ": ";
  if (!falha.Elemento().empty()) std::cerr << falha.Elemento() << ": ";
  std::cerr << falha.what() << '\n';
}

Progresso::Progresso(std::optional<std::int64_t> quantos)
    : _visivel(ErroEhTerminal()),
      _quantos(quantos),
      _inicio(std::chrono::steady_clock::now()),
      _escrito(_inicio) {}

Progresso::~Progresso() { Apaga(); }

void Progresso::Avanca() {
  constexpr std::chrono::milliseconds kPausa(200);
  ++_feitos;
  if (!_visivel) return;
  const auto agora = std::chrono::steady_clock::now();
  if (agora - _escrito >= kPausa) Escreve(agora);
}

void Progresso::Escreve(std::chrono::steady_clock::time_point agora) {
  const double segundos = std::chrono::duration<double>(agora - _inicio).count();
  const double porSegundo = static_cast<double>(_feitos) / segundos;
  Apaga();
  std::cerr << _feitos;
  if (_quantos) std::cerr << " de " << *_quantos;
  std::cerr << ", " << static_cast<std::int64_t>(porSegundo) << " por segundo";
  if (_quantos && *_quantos >= _feitos) {
    std::cerr << ", faltam "
              << static_cast<std::int64_t>(static_cast<double>(*_quantos - _feitos) / porSegundo)
              << " s";
  }
  std::cerr << std::flush;
  naLinha = true;
  _escrito = agora;
}

}  // namespace kxdados
