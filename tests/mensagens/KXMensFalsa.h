// The message library of the tests: it keeps the reports that it receives.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Plataforma.h"

struct KXMensRelato {
  std::int32_t codigo, largura, tamanho;
  std::string texto, fonte;
  std::int32_t linha;
  bool sinal;
  bool ponteirosNulos;  // the two pointers that carry nothing
  std::string modulo;
};

struct KXMensEstado {
  std::vector<KXMensRelato> Relatos;
  bool Lanca = false;     // the entry throws after it has kept the report
  bool Descarta = false;  // it keeps none, and so takes no memory
};

// Whether the process has the message library loaded, asked of the system (tests/sistema).
bool MensagensCarregada();

// Keeps the message library loaded, so that its reports outlive each load and unload.
class Mensagens {
 public:
  Mensagens() : _biblioteca(kx::plataforma::CarregaBiblioteca("KXMens")) {}
  Mensagens(const Mensagens&) = delete;
  Mensagens& operator=(const Mensagens&) = delete;
  ~Mensagens() {
    if (_biblioteca != nullptr) kx::plataforma::DescarregaBiblioteca(_biblioteca);
  }

  bool Carregada() const { return _biblioteca != nullptr; }
  KXMensEstado& Estado() const {
    return *static_cast<KXMensEstado*>(
        kx::plataforma::EntradaDaBiblioteca(_biblioteca, "KXMensFalsaEstado"));
  }
  const std::vector<KXMensRelato>& Relatos() const { return Estado().Relatos; }

 private:
  void* _biblioteca;
};
