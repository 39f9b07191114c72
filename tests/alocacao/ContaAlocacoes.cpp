#include "tests/apoio/ContaAlocacoes.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long long> gVivas{0};
std::atomic<long long> gFeitas{0};
std::atomic<long long> gBytes{0};
std::atomic<long long> gAteFalhar{0};
std::atomic<bool> gFalhou{false};

// What stands before each block: which allocator it is of.
struct alignas(std::max_align_t) Origem {
  std::uint64_t De;
};
constexpr std::uint64_t kUm = 0x554D'0000'0000'BB0C;
constexpr std::uint64_t kArray = 0x4152'5241'5900'BB0C;

void* AlocaPor(std::uint64_t de, std::size_t tamanho) noexcept {
  if (!apoio::PermiteAlocacao(tamanho) || tamanho > SIZE_MAX - sizeof(Origem)) return nullptr;
  void* const inicio = std::malloc(sizeof(Origem) + tamanho);
  if (inicio == nullptr) return nullptr;
  apoio::ContaViva(1);
  return new (inicio) Origem{de} + 1;
}

void LiberaPor(std::uint64_t de, void* memoria) noexcept {
  if (memoria == nullptr) return;
  auto* const origem = static_cast<Origem*>(memoria) - 1;
  if (origem->De != de) {
    std::fputs("a block was released by an allocator that is not its own\n", stderr);
    std::abort();
  }
  origem->De = 0;
  apoio::ContaViva(-1);
  std::free(origem);
}

}  // namespace

namespace apoio {

bool PermiteAlocacao(std::size_t tamanho) noexcept {
  ++gFeitas;
  gBytes += static_cast<long long>(tamanho);
  if (gAteFalhar.load() > 0 && --gAteFalhar == 0) {
    gFalhou = true;
    return false;
  }
  return true;
}

void ContaViva(long long quantas) noexcept { gVivas += quantas; }

void* Aloca(std::size_t tamanho) noexcept { return AlocaPor(kUm, tamanho); }

void Libera(void* memoria) noexcept { LiberaPor(kUm, memoria); }

long long AlocacoesVivas() noexcept { return gVivas; }

long long AlocacoesFeitas() noexcept { return gFeitas; }

long long BytesPedidos() noexcept { return gBytes; }

void FalhaNaAlocacao(long long n) noexcept {
  gAteFalhar = n;
  if (n != 0) gFalhou = false;
}

bool AlocacaoFalhou() noexcept { return gFalhou; }

}  // namespace apoio

static void* AlocaOuLanca(std::uint64_t de, std::size_t tamanho) {
  void* memoria = AlocaPor(de, tamanho);
  if (memoria == nullptr) throw std::bad_alloc();
  return memoria;
}

void* operator new(std::size_t n) { return AlocaOuLanca(kUm, n); }
void* operator new[](std::size_t n) { return AlocaOuLanca(kArray, n); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return AlocaPor(kUm, n); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return AlocaPor(kArray, n); }
void operator delete(void* p) noexcept { LiberaPor(kUm, p); }
void operator delete[](void* p) noexcept { LiberaPor(kArray, p); }
void operator delete(void* p, std::size_t) noexcept { LiberaPor(kUm, p); }
void operator delete[](void* p, std::size_t) noexcept { LiberaPor(kArray, p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { LiberaPor(kUm, p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { LiberaPor(kArray, p); }
