// The library's checksum against the CRC-32 of zlib and of libdeflate: the same polynomial, which
// they invert before and after. 896 and 1,368 bytes are two of the records.
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <vector>

#include "core/Checksum.h"

#ifdef KX_PARES
#include <libdeflate.h>
#endif

namespace {

template <class Calcula>
void Mede(benchmark::State& estado, Calcula calcula) {
  std::vector<unsigned char> bytes(static_cast<std::size_t>(estado.range(0)));
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 31);
  for (auto _ : estado) benchmark::DoNotOptimize(calcula(bytes.data(), bytes.size()));
  estado.SetBytesProcessed(estado.iterations() * estado.range(0));
}

void Checksum(benchmark::State& estado) {
  Mede(estado, [](const void* dados, std::size_t n) { return kx::CalculaChecksum(dados, n); });
}

void ChecksumZlib(benchmark::State& estado) {
  Mede(estado, [](const unsigned char* dados, std::size_t n) { return crc32_z(0, dados, n); });
}

void Tamanhos(benchmark::internal::Benchmark* medida) {
  for (const std::int64_t n : {64, 256, 896, 1368, 4096, 65536, 1 << 20}) medida->Arg(n);
}

#ifdef KX_PARES
void ChecksumLibdeflate(benchmark::State& estado) {
  Mede(estado, [](const void* dados, std::size_t n) { return libdeflate_crc32(0, dados, n); });
}
BENCHMARK(ChecksumLibdeflate)->Apply(Tamanhos);
#endif

}  // namespace

BENCHMARK(ChecksumZlib)->Apply(Tamanhos);
BENCHMARK(Checksum)->Apply(Tamanhos);
