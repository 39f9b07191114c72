#include "tests/apoio/ContaAlocacoes.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long long> gVivas{0};
std::atomic<long long> gFeitas{0};
std::atomic<long long> gBytes{0};
std::atomic<long long> gAteFalhar{0};
std::atomic<bool> gFalhou{false};

}  // namespace

namespace apoio {

void* Aloca(std::size_t tamanho) noexcept {
  ++gFeitas;
  gBytes += static_cast<long long>(tamanho);
  if (gAteFalhar.load() > 0 && --gAteFalhar == 0) {
    gFalhou = true;
    return nullptr;
  }
  void* memoria = std::malloc(tamanho != 0 ? tamanho : 1);
  if (memoria != nullptr) ++gVivas;
  return memoria;
}

void Libera(void* memoria) noexcept {
  if (memoria == nullptr) return;
  --gVivas;
  std::free(memoria);
}

long long AlocacoesVivas() noexcept { return gVivas; }

long long AlocacoesFeitas() noexcept { return gFeitas; }

long long BytesPedidos() noexcept { return gBytes; }

void FalhaNaAlocacao(long long n) noexcept {
  gAteFalhar = n;
  if (n != 0) gFalhou = false;
}

bool AlocacaoFalhou() noexcept { return gFalhou; }

}  // namespace apoio

using apoio::Aloca;
using apoio::Libera;

static void* AlocaOuLanca(std::size_t tamanho) {
  void* memoria = Aloca(tamanho);
  if (memoria == nullptr) throw std::bad_alloc();
  return memoria;
}

void* operator new(std::size_t n) { return AlocaOuLanca(n); }
void* operator new[](std::size_t n) { return AlocaOuLanca(n); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return Aloca(n); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return Aloca(n); }
void operator delete(void* p) noexcept { Libera(p); }
void operator delete[](void* p) noexcept { Libera(p); }
void operator delete(void* p, std::size_t) noexcept { Libera(p); }
void operator delete[](void* p, std::size_t) noexcept { Libera(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { Libera(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { Libera(p); }
