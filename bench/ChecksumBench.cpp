// The library's checksum against zlib's crc32 (the same polynomial) on one entry's record.
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <vector>

#include "core/Checksum.h"

namespace {

std::vector<unsigned char> Bytes(const benchmark::State& estado) {
  std::vector<unsigned char> bytes(static_cast<std::size_t>(estado.range(0)));
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 31);
  return bytes;
}

void ChecksumZlib(benchmark::State& estado) {
  const auto bytes = Bytes(estado);
  for (auto _ : estado) {
    benchmark::DoNotOptimize(crc32(0, bytes.data(), static_cast<uInt>(bytes.size())));
  }
}

void Checksum(benchmark::State& estado) {
  const auto bytes = Bytes(estado);
  for (auto _ : estado) benchmark::DoNotOptimize(kx::CalculaChecksum(bytes.data(), bytes.size()));
}

}  // namespace

BENCHMARK(ChecksumZlib)->Arg(896)->Arg(1368);
BENCHMARK(Checksum)->Arg(896)->Arg(1368);
