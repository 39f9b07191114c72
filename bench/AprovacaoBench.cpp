// The hierarchy of approval rules by size and by the order of the records in their source: sorted
// (parents first), reversed and shuffled, of a tree whose nodes have up to eight children; one long
// chain, reversed and shuffled; and all records under one parent. The counter is the time of one
// record.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include "ac/DadosAC.h"
#include "bench/Piso.h"

namespace {

using Arvore = CKXDadosCM_ACTreeAutorizacaoCompra;
using Chaves = tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS;

enum class Ordem { Direta, Inversa, Embaralhada };

using Acima = std::uint32_t (*)(std::uint32_t);
std::uint32_t Oito(std::uint32_t chave) { return (chave + 6) / 8; }
std::uint32_t Corrente(std::uint32_t chave) { return chave - 1; }
std::uint32_t Estrela(std::uint32_t chave) { return chave > 1 ? 1 : 0; }

std::vector<Chaves> Registros(const benchmark::State& estado, Acima acima, Ordem ordem) {
  std::vector<Chaves> chaves;
  for (std::uint32_t i = 1; i <= static_cast<std::uint32_t>(estado.range(0)); ++i) {
    chaves.push_back({i, acima(i)});
  }
  if (ordem == Ordem::Inversa) std::reverse(chaves.begin(), chaves.end());
  if (ordem == Ordem::Embaralhada) std::shuffle(chaves.begin(), chaves.end(), std::mt19937(1));
  return chaves;
}

Arvore::ListaDeChaves Lista(const std::vector<Chaves>& registros) {
  Arvore::ListaDeChaves lista;
  for (const Chaves& chaves : registros) lista.AddTail(chaves);
  return lista;
}

void PorRegistro(benchmark::State& estado) {
  estado.counters["registro"] = benchmark::Counter(
      static_cast<double>(estado.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The building alone: the tree is destroyed off the clock.
void Monta(benchmark::State& estado, Acima acima, Ordem ordem) {
  const Arvore::ListaDeChaves lista = Lista(Registros(estado, acima, ordem));
  for (auto _ : estado) {
    auto raiz = std::make_unique<Arvore>();
    raiz->CopiarDe(lista);
    benchmark::DoNotOptimize(raiz.get());
    estado.PauseTiming();
    raiz.reset();
    estado.ResumeTiming();
  }
  PorRegistro(estado);
}

// From full rules, each of which its node takes over.
void MontaRegras(benchmark::State& estado, Ordem ordem) {
  std::vector<tagREG_CM_AUTORIZACAO_CMSAUTPS> regras;
  for (const Chaves& chaves : Registros(estado, Oito, ordem)) {
    regras.emplace_back();
    regras.back().ChaveEste = chaves.ChaveEste;
    regras.back().ChaveNivelAnterior = chaves.ChaveNivelAnterior;
  }
  const tagREG_CM_LE_LISTA_AC_CMSAUTPS lista{
      static_cast<std::int32_t>(regras.size()), {}, regras.data()};
  for (auto _ : estado) {
    auto raiz = std::make_unique<Arvore>();
    raiz->CopiarDe(&lista);
    benchmark::DoNotOptimize(raiz.get());
    estado.PauseTiming();
    raiz.reset();
    estado.ResumeTiming();
  }
  PorRegistro(estado);
}

Arvore Embaralhada(const benchmark::State& estado, Acima acima) {
  Arvore raiz;
  raiz.CopiarDe(Lista(Registros(estado, acima, Ordem::Embaralhada)));
  return raiz;
}

// A key that is nowhere: every node is looked at.
void Busca(benchmark::State& estado, Acima acima) {
  const Arvore raiz = Embaralhada(estado, acima);
  for (auto _ : estado) benchmark::DoNotOptimize(raiz.AchaItemArvore(~0U));
  PorRegistro(estado);
}

void Copia(benchmark::State& estado, Acima acima) {
  const Arvore raiz = Embaralhada(estado, acima);
  for (auto _ : estado) {
    auto copia = std::make_unique<Arvore>(raiz);
    benchmark::DoNotOptimize(copia.get());
    estado.PauseTiming();
    copia.reset();
    estado.ResumeTiming();
  }
  PorRegistro(estado);
}

void Igualdade(benchmark::State& estado, Acima acima) {
  const Arvore raiz = Embaralhada(estado, acima);
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): to be compared
  const Arvore copia = raiz;
  for (auto _ : estado) benchmark::DoNotOptimize(raiz == copia);
  PorRegistro(estado);
}

void Destroi(benchmark::State& estado, Acima acima) {
  const Arvore raiz = Embaralhada(estado, acima);
  for (auto _ : estado) {
    estado.PauseTiming();
    auto copia = std::make_unique<Arvore>(raiz);
    estado.ResumeTiming();
    copia.reset();
  }
  PorRegistro(estado);
}

void Tamanhos(benchmark::internal::Benchmark* medida) {
  medida->RangeMultiplier(10)->Range(1000, 1'000'000)->Unit(benchmark::kMillisecond);
}

}  // namespace

BENCHMARK_CAPTURE(Monta, direta, Oito, Ordem::Direta)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Monta, inversa, Oito, Ordem::Inversa)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Monta, embaralhada, Oito, Ordem::Embaralhada)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Monta, corrente, Corrente, Ordem::Direta)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Monta, corrente_inversa, Corrente, Ordem::Inversa)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Monta, corrente_embaralhada, Corrente, Ordem::Embaralhada)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Monta, um_pai, Estrela, Ordem::Direta)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Monta, um_pai_embaralhada, Estrela, Ordem::Embaralhada)->Apply(Tamanhos);
BENCHMARK_CAPTURE(MontaRegras, direta, Ordem::Direta)->Apply(Tamanhos);
BENCHMARK_CAPTURE(MontaRegras, embaralhada, Ordem::Embaralhada)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Busca, arvore, Oito)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Busca, corrente, Corrente)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Copia, arvore, Oito)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Copia, corrente, Corrente)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Igualdade, arvore, Oito)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Destroi, arvore, Oito)->Apply(Tamanhos);
BENCHMARK_CAPTURE(Destroi, corrente, Corrente)->Apply(Tamanhos);
