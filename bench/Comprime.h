// What general compression makes of encoded documents.
#pragma once

#include <benchmark/benchmark.h>
#include <zstd.h>

#include <span>
#include <vector>

// Counts the bytes, plain and through zstd at its usual level.
inline void ContaBytes(benchmark::State& estado, std::span<const std::byte> bytes) {
  std::vector<char> comprimidos(ZSTD_compressBound(bytes.size()));
  const std::size_t tamanho = ZSTD_compress(comprimidos.data(), comprimidos.size(), bytes.data(),
                                            bytes.size(), ZSTD_CLEVEL_DEFAULT);
  estado.counters["bytes"] = static_cast<double>(bytes.size());
  estado.counters["zstd"] = static_cast<double>(tamanho);
}
