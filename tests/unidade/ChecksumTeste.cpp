// The checksum, by each of its ways, against the bit-by-bit definition.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "core/Checksum.h"
#include "core/ChecksumClmul.h"

namespace {

constexpr std::size_t kMaiorTamanho = 4200;
constexpr std::size_t kMaiorDesvio = 16;

// One way, whatever the library prefers here; the tables where the processor has not got it.
template <kx::interno::Via (*Escolhe)() noexcept>
std::uint32_t Por(const void* dados, std::size_t n, std::uint32_t anterior) noexcept {
  const kx::interno::Via via = n >= kx::interno::kMinimoClmul ? Escolhe() : nullptr;
  return via != nullptr ? via(static_cast<const unsigned char*>(dados), n, anterior)
                        : kx::CalculaChecksumTabela(dados, n, anterior);
}

std::uint32_t Referencia(const unsigned char* dados, std::size_t n, std::uint32_t valor) {
  for (std::size_t i = 0; i < n * 8; ++i) {
    const std::uint32_t bit = (static_cast<std::uint32_t>(dados[i / 8]) >> (i % 8)) & 1U;
    valor = ((valor ^ bit) & 1U) != 0 ? (valor >> 1) ^ 0xEDB88320U : valor >> 1;
  }
  return valor;
}

class Checksum : public testing::TestWithParam<decltype(&kx::CalculaChecksum)> {
 protected:
  Checksum() : _dados(kMaiorDesvio + kMaiorTamanho) {
    for (unsigned char& byte : _dados) byte = static_cast<unsigned char>(_sorteio());
  }
  std::mt19937 _sorteio{20240131};
  std::vector<unsigned char> _dados;
};

TEST_P(Checksum, ValoresConhecidos) {
  EXPECT_EQ(GetParam()("123456789", 9, 0), 0x2DFD2D88U);
  EXPECT_EQ(GetParam()("a", 1, 0), 0x3AB551CEU);
  EXPECT_EQ(GetParam()(nullptr, 0, 0xCAFEF00DU), 0xCAFEF00DU);
}

TEST_P(Checksum, TodoTamanhoEAlinhamento) {
  for (std::size_t desvio = 0; desvio <= kMaiorDesvio; ++desvio) {
    const unsigned char* inicio = _dados.data() + desvio;
    const auto anterior = static_cast<std::uint32_t>(_sorteio());
    std::uint32_t esperado = anterior;
    for (std::size_t n = 0; n <= kMaiorTamanho; ++n) {
      ASSERT_EQ(GetParam()(inicio, n, anterior), esperado) << n << " a partir de " << desvio;
      if (n < kMaiorTamanho) esperado = Referencia(inicio + n, 1, esperado);
    }
  }
}

TEST_P(Checksum, PedacosEncadeadosValemOInteiro) {
  const std::uint32_t inteiro = Referencia(_dados.data(), _dados.size(), 0);
  for (int vez = 0; vez < 100; ++vez) {
    std::uint32_t valor = 0;
    for (std::size_t feito = 0; feito < _dados.size();) {
      const std::size_t n = std::min<std::size_t>(_sorteio() % 900, _dados.size() - feito);
      valor = GetParam()(_dados.data() + feito, n, valor);
      feito += n;
    }
    ASSERT_EQ(valor, inteiro);
  }
}

INSTANTIATE_TEST_SUITE_P(Vias, Checksum,
                         testing::Values(&kx::CalculaChecksum, &kx::CalculaChecksumTabela,
                                         &Por<kx::interno::ViaClmul>, &Por<kx::interno::ViaVpclmul>,
                                         &Por<kx::interno::ViaAvx512>,
                                         &Por<kx::interno::ViaCRC32>));

}  // namespace
