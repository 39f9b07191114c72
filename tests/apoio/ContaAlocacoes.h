// Replaces the global allocation functions of the test program: counts what is alive and makes a
// chosen allocation fail. tests/alocacao/ContaAlocacoes.cpp holds the replacements.
#pragma once

#include <cstddef>

namespace apoio {

// Allocations alive now, and all those made since the program began.
long long AlocacoesVivas() noexcept;
long long AlocacoesFeitas() noexcept;

// Bytes asked for since the program began.
long long BytesPedidos() noexcept;

// Makes the n-th allocation from now on fail (1 is the next one), once; 0 takes it back.
void FalhaNaAlocacao(long long n) noexcept;
// Whether the allocation last chosen came and failed.
bool AlocacaoFalhou() noexcept;

}  // namespace apoio
