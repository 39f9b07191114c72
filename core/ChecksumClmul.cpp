// Folding by carry-less multiplication: V. Gopal et al., "Fast CRC Computation for Generic
// Polynomials Using PCLMULQDQ Instruction", Intel, 2009.
//
// A block of 16 bytes is a polynomial A; moving it d bits ahead multiplies it by x^d. Modulo the
// checksum's polynomial that is the sum of two 64-bit products, one per half of A, and the sum can
// be added to the block that stands there. So 64 bytes at a time are folded into the next 64, the
// last four blocks into one, and what is left of that is reduced with three products more. Where
// one instruction multiplies two blocks, or four, 128 or 256 bytes at a time come first.
#include "core/ChecksumClmul.h"

#if defined(__x86_64__) && defined(__GNUC__)

#include <immintrin.h>

#include <array>
#include <numeric>

#define KX_CLMUL __attribute__((target("pclmul,ssse3")))
#define KX_VPCLMUL __attribute__((target("pclmul,ssse3,avx2,vpclmulqdq")))
#define KX_AVX512 __attribute__((target("pclmul,ssse3,avx2,vpclmulqdq,avx512f")))

namespace kx::interno {
namespace {

// x^n modulo the polynomial, in the reflected order, one bit up as the reflected product needs.
constexpr std::int64_t Potencia(int n) {
  std::uint32_t resto = 0x80000000U;
  for (int i = 0; i < n; ++i) resto = (resto >> 1) ^ ((resto & 1U) != 0 ? 0xEDB88320U : 0U);
  return static_cast<std::int64_t>(resto) << 1;
}

// Multiplies of both halves of a block that moves by so many bits.
template <int Bits>
KX_CLMUL __m128i Multiplicadores() {
  constexpr std::int64_t kBaixa = Potencia(Bits + 32);
  constexpr std::int64_t kAlta = Potencia(Bits - 32);
  return _mm_set_epi64x(kAlta, kBaixa);
}

KX_CLMUL inline __m128i Le(const unsigned char* dados) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(dados));
}

// Moves the block ahead and adds it to the one that stands there.
KX_CLMUL inline __m128i Dobra(__m128i bloco, __m128i multiplicadores, __m128i proximo) {
  const __m128i baixa = _mm_clmulepi64_si128(bloco, multiplicadores, 0x00);
  const __m128i alta = _mm_clmulepi64_si128(bloco, multiplicadores, 0x11);
  return _mm_xor_si128(_mm_xor_si128(baixa, alta), proximo);
}

// Indices by which a shuffle moves the bytes of a block up or down: the 16 in their order, and on
// either side as many that give a zero.
constexpr auto kIndices = [] {
  std::array<char, 48> indices{};
  indices.fill(-128);
  std::iota(indices.begin() + 16, indices.begin() + 32, '\0');
  return indices;
}();

// The block followed by n bytes, fewer than 16, before `fim`: as many bytes as are too many leave
// its front, as a block of their own that is folded into the 16 that stay.
KX_CLMUL inline __m128i JuntaResto(__m128i bloco, const unsigned char* fim, std::size_t n,
                                   __m128i multiplicadores) {
  const auto indices = [](std::size_t desde) KX_CLMUL {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(kIndices.data() + desde));
  };
  const __m128i ficam = indices(16 + n);
  const __m128i vagas = _mm_cmplt_epi8(ficam, _mm_setzero_si128());
  const __m128i ultimos =
      _mm_or_si128(_mm_shuffle_epi8(bloco, ficam), _mm_and_si128(vagas, Le(fim - sizeof(__m128i))));
  return Dobra(_mm_shuffle_epi8(bloco, indices(n)), multiplicadores, ultimos);
}

// The quotient of x^64 by the polynomial, in the reflected order.
constexpr std::int64_t kQuociente = 0x1F7011641;
constexpr std::int64_t kPolinomio = 0x1DB710641;

// The remainder of a block moved 32 bits ahead: 128 bits to 96, to 64, and by Barrett to 32.
KX_CLMUL inline std::uint32_t Reduz(__m128i bloco, __m128i multiplicadores) {
  const __m128i baixos32 = _mm_setr_epi32(-1, 0, 0, 0);
  bloco =
      _mm_xor_si128(_mm_srli_si128(bloco, 8), _mm_clmulepi64_si128(bloco, multiplicadores, 0x10));
  bloco = _mm_xor_si128(
      _mm_srli_si128(bloco, 4),
      _mm_clmulepi64_si128(_mm_and_si128(bloco, baixos32), _mm_cvtsi64_si128(Potencia(64)), 0x00));
  const __m128i barrett = _mm_set_epi64x(kQuociente, kPolinomio);
  __m128i produto = _mm_clmulepi64_si128(_mm_and_si128(bloco, baixos32), barrett, 0x10);
  produto = _mm_clmulepi64_si128(_mm_and_si128(produto, baixos32), barrett, 0x00);
  return static_cast<std::uint32_t>(_mm_cvtsi128_si64(_mm_xor_si128(bloco, produto)) >> 32);
}

// Four blocks in a row.
struct Blocos {
  __m128i a, b, c, d;
};

// The checksum of the blocks and of the n bytes that follow them.
KX_CLMUL inline std::uint32_t Termina(Blocos blocos, const unsigned char* dados, std::size_t n) {
  auto [a, b, c, d] = blocos;
  const __m128i por64 = Multiplicadores<512>();
  for (; n >= 64; n -= 64, dados += 64) {
    a = Dobra(a, por64, Le(dados));
    b = Dobra(b, por64, Le(dados + 16));
    c = Dobra(c, por64, Le(dados + 32));
    d = Dobra(d, por64, Le(dados + 48));
  }
  const __m128i por16 = Multiplicadores<128>();
  a = Dobra(Dobra(Dobra(a, por16, b), por16, c), por16, d);
  for (; n >= 16; n -= 16, dados += 16) a = Dobra(a, por16, Le(dados));

  if (n > 0) a = JuntaResto(a, dados + n, n, por16);
  return Reduz(a, por16);
}

KX_CLMUL std::uint32_t ChecksumClmul(const unsigned char* dados, std::size_t n,
                                     std::uint32_t anterior) noexcept {
  const __m128i inicio = _mm_cvtsi32_si128(static_cast<int>(anterior));
  return Termina({_mm_xor_si128(Le(dados), inicio), Le(dados + 16), Le(dados + 32), Le(dados + 48)},
                 dados + 64, n - 64);
}

KX_VPCLMUL inline __m256i LePar(const unsigned char* dados) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(dados));
}

// Dobra, of two blocks.
KX_VPCLMUL inline __m256i DobraPar(__m256i par, __m256i multiplicadores, __m256i proximo) {
  const __m256i baixa = _mm256_clmulepi64_epi128(par, multiplicadores, 0x00);
  const __m256i alta = _mm256_clmulepi64_epi128(par, multiplicadores, 0x11);
  return _mm256_xor_si256(_mm256_xor_si256(baixa, alta), proximo);
}

KX_VPCLMUL std::uint32_t ChecksumVpclmul(const unsigned char* dados, std::size_t n,
                                         std::uint32_t anterior) noexcept {
  if (n < 256) return ChecksumClmul(dados, n, anterior);  // the wide loop would not pay
  const __m128i inicio = _mm_cvtsi32_si128(static_cast<int>(anterior));
  __m256i a = _mm256_xor_si256(LePar(dados), _mm256_zextsi128_si256(inicio));
  __m256i b = LePar(dados + 32);
  __m256i c = LePar(dados + 64);
  __m256i d = LePar(dados + 96);
  dados += 128;
  n -= 128;

  const __m256i por128 = _mm256_broadcastsi128_si256(Multiplicadores<1024>());
  for (; n >= 128; n -= 128, dados += 128) {
    a = DobraPar(a, por128, LePar(dados));
    b = DobraPar(b, por128, LePar(dados + 32));
    c = DobraPar(c, por128, LePar(dados + 64));
    d = DobraPar(d, por128, LePar(dados + 96));
  }
  const __m256i por64 = _mm256_broadcastsi128_si256(Multiplicadores<512>());
  c = DobraPar(a, por64, c);
  d = DobraPar(b, por64, d);
  return Termina({_mm256_castsi256_si128(c), _mm256_extracti128_si256(c, 1),
                  _mm256_castsi256_si128(d), _mm256_extracti128_si256(d, 1)},
                 dados, n);
}

KX_AVX512 inline __m512i LeQuatro(const unsigned char* dados) { return _mm512_loadu_si512(dados); }

// GCC 12 warns of its own broadcast that has no mask.
KX_AVX512 inline __m512i Repete(__m128i bloco) {
  return _mm512_maskz_broadcast_i32x4(0xFFFF, bloco);
}

// Dobra, of four blocks.
KX_AVX512 inline __m512i DobraQuatro(__m512i quatro, __m512i multiplicadores, __m512i proximo) {
  constexpr int kSoma = 0x96;
  const __m512i baixa = _mm512_clmulepi64_epi128(quatro, multiplicadores, 0x00);
  const __m512i alta = _mm512_clmulepi64_epi128(quatro, multiplicadores, 0x11);
  return _mm512_ternarylogic_epi64(baixa, alta, proximo, kSoma);
}

KX_AVX512 std::uint32_t ChecksumAvx512(const unsigned char* dados, std::size_t n,
                                       std::uint32_t anterior) noexcept {
  if (n < 512) return ChecksumVpclmul(dados, n, anterior);  // the wider loop would not pay
  const __m128i inicio = _mm_cvtsi32_si128(static_cast<int>(anterior));
  __m512i a = _mm512_xor_si512(LeQuatro(dados), _mm512_zextsi128_si512(inicio));
  __m512i b = LeQuatro(dados + 64);
  __m512i c = LeQuatro(dados + 128);
  __m512i d = LeQuatro(dados + 192);
  dados += 256;
  n -= 256;

  const __m512i por256 = Repete(Multiplicadores<2048>());
  for (; n >= 256; n -= 256, dados += 256) {
    a = DobraQuatro(a, por256, LeQuatro(dados));
    b = DobraQuatro(b, por256, LeQuatro(dados + 64));
    c = DobraQuatro(c, por256, LeQuatro(dados + 128));
    d = DobraQuatro(d, por256, LeQuatro(dados + 192));
  }
  const __m512i por64 = Repete(Multiplicadores<512>());
  d = DobraQuatro(DobraQuatro(DobraQuatro(a, por64, b), por64, c), por64, d);
  std::array<unsigned char, sizeof(d)> blocos;
  _mm512_storeu_si512(blocos.data(), d);
  return Termina(
      {Le(blocos.data()), Le(blocos.data() + 16), Le(blocos.data() + 32), Le(blocos.data() + 48)},
      dados, n);
}

}  // namespace

Via ViaClmul() noexcept {
  __builtin_cpu_init();
  const bool tem = __builtin_cpu_supports("pclmul") != 0 && __builtin_cpu_supports("ssse3") != 0;
  return tem ? &ChecksumClmul : nullptr;
}

Via ViaVpclmul() noexcept {
  __builtin_cpu_init();
  const bool tem = __builtin_cpu_supports("vpclmulqdq") != 0 && __builtin_cpu_supports("avx2") != 0;
  return tem && ViaClmul() != nullptr ? &ChecksumVpclmul : nullptr;
}

Via ViaAvx512() noexcept {
  __builtin_cpu_init();
  return ViaVpclmul() != nullptr && __builtin_cpu_supports("avx512f") != 0 ? &ChecksumAvx512
                                                                           : nullptr;
}

Via ViaCRC32() noexcept { return nullptr; }

}  // namespace kx::interno

#elif defined(__aarch64__) && defined(__GNUC__) && !defined(__clang__)

#include <arm_acle.h>

#include <cstring>

#include "platform/Plataforma.h"

namespace kx::interno {
namespace {

// ARM's own instruction is of this very polynomial, and inverts nothing.
__attribute__((target("+crc"))) std::uint32_t ChecksumCRC32(const unsigned char* dados,
                                                            std::size_t n,
                                                            std::uint32_t anterior) noexcept {
  for (; n >= 8; n -= 8, dados += 8) {
    std::uint64_t palavra = 0;
    std::memcpy(&palavra, dados, sizeof(palavra));
    anterior = __crc32d(anterior, palavra);
  }
  for (; n > 0; --n, ++dados) anterior = __crc32b(anterior, *dados);
  return anterior;
}

}  // namespace

Via ViaClmul() noexcept { return nullptr; }
Via ViaVpclmul() noexcept { return nullptr; }
Via ViaAvx512() noexcept { return nullptr; }
Via ViaCRC32() noexcept { return plataforma::TemCRC32() ? &ChecksumCRC32 : nullptr; }

}  // namespace kx::interno

#else

namespace kx::interno {

Via ViaClmul() noexcept { return nullptr; }
Via ViaVpclmul() noexcept { return nullptr; }
Via ViaAvx512() noexcept { return nullptr; }
Via ViaCRC32() noexcept { return nullptr; }

}  // namespace kx::interno

#endif
