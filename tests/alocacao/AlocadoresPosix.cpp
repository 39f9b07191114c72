#include <cstring>
#include <memory>

#include "Alocadores.h"
#include "platform/Plataforma.h"

// The mark before a task block, as a block says it.
static long long Marca(const void* bloco) {
  long long marca = 0;
  std::memcpy(&marca, static_cast<const char*>(bloco) - 16, sizeof(marca));
  return marca;
}

static long long MarcaDaTarefa() {
  const std::unique_ptr<void, decltype(&kx::plataforma::LiberaTarefa)> bloco(
      kx::plataforma::AlocaTarefa(1), kx::plataforma::LiberaTarefa);
  return Marca(bloco.get());
}

bool AlocadoresDistintos() {
  const std::unique_ptr<char[]> array(new char[1]);
  return MarcaDaTarefa() != Marca(array.get());
}

bool EhDaTarefa(const void* bloco) { return Marca(bloco) == MarcaDaTarefa(); }
