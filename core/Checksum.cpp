#include "core/Checksum.h"

#include <array>
#include <cstring>

#include "core/ChecksumClmul.h"

namespace kx {
namespace {

// Bytes taken at a time.
constexpr std::size_t kPasso = 16;

using Tabela = std::array<std::uint32_t, 256>;

// Table k gives the effect of a byte that k more bytes follow.
constexpr std::array<Tabela, kPasso> GeraTabelas() {
  std::array<Tabela, kPasso> tabelas{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t valor = byte;
    for (int bit = 0; bit < 8; ++bit) valor = (valor >> 1) ^ ((valor & 1U) * 0xEDB88320U);
    tabelas[0][byte] = valor;
  }
  for (std::size_t k = 1; k < kPasso; ++k) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t valor = tabelas[k - 1][byte];
      tabelas[k][byte] = (valor >> 8) ^ tabelas[0][valor & 0xFFU];
    }
  }
  return tabelas;
}

constexpr std::array<Tabela, kPasso> kTabelas = GeraTabelas();

// The part of a 4-byte word that `seguintes` bytes of the same step follow.
inline std::uint32_t Parte(std::uint32_t palavra, std::size_t seguintes) {
  return kTabelas[seguintes + 3][palavra & 0xFFU] ^
         kTabelas[seguintes + 2][(palavra >> 8) & 0xFFU] ^
         kTabelas[seguintes + 1][(palavra >> 16) & 0xFFU] ^ kTabelas[seguintes][palavra >> 24];
}

interno::Via MelhorVia() noexcept {
  for (const auto escolhe :
       {interno::ViaAvx512, interno::ViaVpclmul, interno::ViaClmul, interno::ViaCRC32}) {
    if (const interno::Via via = escolhe(); via != nullptr) return via;
  }
  return nullptr;
}

}  // namespace

std::uint32_t CalculaChecksumTabela(const void* dados, std::size_t n,
                                    std::uint32_t anterior) noexcept {
  const auto* bytes = static_cast<const unsigned char*>(dados);
  std::uint32_t valor = anterior;
  for (; n >= kPasso; n -= kPasso, bytes += kPasso) {
    std::array<std::uint32_t, 4> palavras;
    std::memcpy(palavras.data(), bytes, kPasso);
    valor = Parte(palavras[0] ^ valor, 12) ^ Parte(palavras[1], 8) ^ Parte(palavras[2], 4) ^
            Parte(palavras[3], 0);
  }
  for (; n > 0; --n, ++bytes) valor = (valor >> 8) ^ kTabelas[0][(*bytes ^ valor) & 0xFFU];
  return valor;
}

std::uint32_t CalculaChecksum(const void* dados, std::size_t n, std::uint32_t anterior) noexcept {
  static const interno::Via via = MelhorVia();
  if (via != nullptr && n >= interno::kMinimoClmul) {
    return via(static_cast<const unsigned char*>(dados), n, anterior);
  }
  return CalculaChecksumTabela(dados, n, anterior);
}

}  // namespace kx
