// Images of a purchase order: written from its record, opened, and read into an object.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

#include "bench/Comprime.h"
#include "bench/OrdemDeMedida.h"
#include "core/Checksum.h"
#include "core/Imagem.h"

namespace {

using kx::ChecksumDaImagem;
using Bytes = std::vector<std::byte>;

// Into memory that is there: a message in the making, a mapped file.
template <ChecksumDaImagem checksum>
void ImagemEscreve(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  Bytes imagem(kx::TamanhoDaImagem(registro.Reg));
  for (auto _ : estado) {
    kx::EscreveImagem(registro.Reg, imagem, checksum);
    benchmark::DoNotOptimize(imagem.data());
  }
  ContaBytes(estado, imagem);
}

struct Copia {
  const char* De;
  std::size_t Bytes;
};

// The block, and those that hang from it, in the order of the image.
void JuntaBlocos(const KXRegistroInfo& info, const char* inicio, std::size_t quantos,
                 std::vector<Copia>& copias) {
  copias.push_back({inicio, quantos * info.Tamanho});
  for (std::size_t i = 0; i < quantos; ++i) {
    for (const KXCampo& linha : info.Campos) {
      if (linha.Papel != KXPapel::Lista) continue;
      const auto filhos = Filhos(info, linha, inicio + i * info.Tamanho);
      if (!filhos.empty()) JuntaBlocos(*linha.Elemento, filhos[0], filhos.size(), copias);
    }
  }
}

// The blocks alone, from where they are to where they go, known beforehand; with the checksum of
// what was written, or without.
template <ChecksumDaImagem checksum>
void ImagemEscrevePiso(benchmark::State& estado) {
  Registro registro(Ordem(estado.range(0)));
  std::vector<Copia> copias;
  JuntaBlocos(KXMetadados<tagREG_ORDEMPS>::kInfo, registro.Dados(), 1, copias);
  Bytes imagem(kx::TamanhoDaImagem(registro.Reg));
  for (auto _ : estado) {
    std::byte* para = imagem.data() + kx::kCabecalhoDaImagem;
    for (const auto& [de, bytes] : copias) {
      std::memcpy(para, de, bytes);
      para += bytes;
    }
    if (checksum == ChecksumDaImagem::Com) {
      benchmark::DoNotOptimize(kx::CalculaChecksum(imagem.data(), imagem.size()));
    }
    benchmark::ClobberMemory();
  }
}

// Measured first, and then written into memory of its own.
void ImagemNova(benchmark::State& estado) {
  const Registro registro(Ordem(estado.range(0)));
  for (auto _ : estado) {
    const Bytes imagem = kx::Imagem(registro.Reg, ChecksumDaImagem::Sem);
    benchmark::DoNotOptimize(imagem.data());
  }
}

template <ChecksumDaImagem checksum>
void ImagemVerifica(benchmark::State& estado) {
  const Bytes imagem = kx::Imagem(Registro(Ordem(estado.range(0))).Reg);
  for (auto _ : estado) {
    kx::VerificaImagem<tagREG_ORDEMPS>(imagem, checksum);
    benchmark::ClobberMemory();
  }
}

// What is opened is no image any more: the words that opening changes are put back, and that is
// measured with it.
template <ChecksumDaImagem checksum>
void Abertas(benchmark::State& estado, auto usa) {
  struct Palavra {
    std::size_t Onde;
    std::uint64_t Antes;
  };
  Bytes imagem = kx::Imagem(Registro(Ordem(estado.range(0))).Reg);
  const Bytes antes = imagem;
  kx::AbreImagem<tagREG_ORDEMPS>(imagem, checksum);
  std::vector<Palavra> mudadas;
  for (std::size_t i = 0; i < imagem.size(); i += sizeof(std::uint64_t)) {
    Palavra palavra{i, 0};
    std::memcpy(&palavra.Antes, antes.data() + i, sizeof(palavra.Antes));
    if (std::memcmp(imagem.data() + i, antes.data() + i, sizeof(palavra.Antes)) != 0) {
      mudadas.push_back(palavra);
    }
  }
  for (auto _ : estado) {
    for (const auto& [onde, valor] : mudadas) {
      std::memcpy(imagem.data() + onde, &valor, sizeof(valor));
    }
    usa(kx::AbreImagem<tagREG_ORDEMPS>(imagem, checksum));
  }
}

template <ChecksumDaImagem checksum>
void ImagemAbre(benchmark::State& estado) {
  Abertas<checksum>(estado, [](const auto* registro) { benchmark::DoNotOptimize(registro); });
}

void ImagemAbreECopiarDe(benchmark::State& estado) {
  Abertas<ChecksumDaImagem::Sem>(estado, [](const tagREG_ORDEMPS* registro) {
    auto ordem = std::make_unique<CKXDadosCM_OrdemCompra>();
    ordem->CopiarDe(registro);
    benchmark::DoNotOptimize(ordem.get());
  });
}

void Tamanhos(benchmark::internal::Benchmark* medida) {
  medida->RangeMultiplier(10)->Range(1, 1000);
}

}  // namespace

BENCHMARK(ImagemEscreve<ChecksumDaImagem::Sem>)->Name("ImagemEscreveSem")->Apply(Tamanhos);
BENCHMARK(ImagemEscreve<ChecksumDaImagem::Com>)->Name("ImagemEscreve")->Apply(Tamanhos);
BENCHMARK(ImagemEscrevePiso<ChecksumDaImagem::Sem>)->Name("ImagemEscreveSemPiso")->Apply(Tamanhos);
BENCHMARK(ImagemEscrevePiso<ChecksumDaImagem::Com>)->Name("ImagemEscrevePiso")->Apply(Tamanhos);
BENCHMARK(ImagemNova)->Apply(Tamanhos);
BENCHMARK(ImagemVerifica<ChecksumDaImagem::Sem>)->Name("ImagemVerificaSem")->Apply(Tamanhos);
BENCHMARK(ImagemAbre<ChecksumDaImagem::Sem>)->Name("ImagemAbreSem")->Apply(Tamanhos);
BENCHMARK(ImagemAbre<ChecksumDaImagem::Com>)->Name("ImagemAbre")->Apply(Tamanhos);
BENCHMARK(ImagemAbreECopiarDe)->Apply(Tamanhos);
