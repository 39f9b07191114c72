// Replaces the global allocation functions of the test program: counts what is alive and makes a
// chosen allocation fail. Blocks of array new are told from all others: releasing by delete[] what
// is no such block, or one in another way, ends the program. tests/alocacao/ContaAlocacoes.cpp
// holds the replacements.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

namespace apoio {

// The functions themselves, for libraries that are told where to take memory.
void* Aloca(std::size_t tamanho) noexcept;
void Libera(void* memoria) noexcept;

// The same counts and failures for an allocator that is not replaced but watched: whether it may
// make this block, and that one was made or released.
bool PermiteAlocacao(std::size_t tamanho) noexcept;
void ContaViva(long long quantas) noexcept;

// Allocations alive now, and all those made since the program began.
long long AlocacoesVivas() noexcept;
long long AlocacoesFeitas() noexcept;

// Bytes asked for since the program began.
long long BytesPedidos() noexcept;

// Makes the n-th allocation from now on fail (1 is the next one), once; 0 takes it back.
void FalhaNaAlocacao(long long n) noexcept;
// Whether the allocation last chosen came and failed.
bool AlocacaoFalhou() noexcept;

// Runs the action with its first, second, ... allocation failing until it succeeds, or with every
// `passo`-th alone; `depois` runs after each. A failure must come out as std::bad_alloc, and leave
// nothing behind.
template <class Acao, class Depois>
void FalhaEmCadaAlocacao(Acao acao, Depois depois, long long passo = 1) {
  for (long long n = 1;; n += passo) {
    const long long vivas = AlocacoesVivas();
    FalhaNaAlocacao(n);
    bool falhou = false;
    try {
      acao();
    } catch (const std::bad_alloc&) {
      falhou = true;
    }
    FalhaNaAlocacao(0);
    depois();
    ASSERT_EQ(AlocacoesVivas(), vivas) << "allocation " << n;
    ASSERT_EQ(AlocacaoFalhou(), falhou) << "allocation " << n;
    if (!falhou) return;
  }
}

}  // namespace apoio
