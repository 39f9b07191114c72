// A purchase order as JSON, and back, against the parser that reads it and its writer.
#include <benchmark/benchmark.h>

#include <nlohmann/json.hpp>
#include <string>

#include "bench/OrdemDeMedida.h"
#include "tools/kxdados/Json.h"
#include "tools/kxdados/JsonLido.h"

namespace {

const KXRegistroInfo& Info() { return KXMetadados<tagREG_ORDEMPS>::kInfo; }

std::string Linha(const benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  return kxdados::JsonDeRegistro(Info(), &registro.Reg);
}

void JsonEscreve(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  for (auto _ : estado) {
    const std::string linha = kxdados::JsonDeRegistro(Info(), &registro.Reg);
    benchmark::DoNotOptimize(linha.data());
  }
}

void JsonEscreveNlohmann(benchmark::State& estado) {
  const auto objeto = nlohmann::ordered_json::parse(Linha(estado));
  for (auto _ : estado) {
    const std::string linha = objeto.dump();
    benchmark::DoNotOptimize(linha.data());
  }
}

void JsonLe(benchmark::State& estado) {
  const std::string linha = Linha(estado);
  for (auto _ : estado) {
    const kxdados::RegistroLido lido = kxdados::RegistroDeJson(linha);
    benchmark::DoNotOptimize(lido.Registro());
  }
}

void JsonLeNlohmann(benchmark::State& estado) {
  const std::string linha = Linha(estado);
  for (auto _ : estado) {
    const auto objeto = nlohmann::json::parse(linha);
    benchmark::DoNotOptimize(&objeto);
  }
}

void Tamanhos(benchmark::internal::Benchmark* medida) {
  medida->RangeMultiplier(10)->Range(1, 1000);
}

}  // namespace

BENCHMARK(JsonEscreve)->Apply(Tamanhos);
BENCHMARK(JsonEscreveNlohmann)->Apply(Tamanhos);
BENCHMARK(JsonLe)->Apply(Tamanhos);
BENCHMARK(JsonLeNlohmann)->Apply(Tamanhos);
