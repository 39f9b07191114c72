// Folding by carry-less multiplication: V. Gopal et al., "Fast CRC Computation for Generic
// Polynomials Using PCLMULQDQ Instruction", Intel, 2009.
//
// A block of 16 bytes is a polynomial A; moving it d bits ahead multiplies it by x^d. Modulo the
// checksum's polynomial that is the sum of two 64-bit products, one per half of A, and the sum can
// be added to the block that stands there. So 64 bytes at a time are folded into the next 64, the
// last four blocks into one, and the tables finish the 16 bytes that remain.
#include "core/ChecksumClmul.h"

#include "core/Checksum.h"

#if defined(__x86_64__) && defined(__GNUC__)

#include <immintrin.h>

#define KX_CLMUL __attribute__((target("pclmul,sse2")))

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

}  // namespace

bool TemClmul() noexcept {
  __builtin_cpu_init();
  return __builtin_cpu_supports("pclmul") != 0;
}

KX_CLMUL std::uint32_t ChecksumClmul(const unsigned char* dados, std::size_t n,
                                     std::uint32_t anterior) noexcept {
  const __m128i inicio = _mm_cvtsi32_si128(static_cast<int>(anterior));
  __m128i a = _mm_xor_si128(Le(dados), inicio);
  __m128i b = Le(dados + 16);
  __m128i c = Le(dados + 32);
  __m128i d = Le(dados + 48);
  dados += 64;
  n -= 64;

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

  unsigned char resto[16];
  _mm_storeu_si128(reinterpret_cast<__m128i*>(resto), a);
  return CalculaChecksumTabela(dados, n, CalculaChecksumTabela(resto, sizeof(resto)));
}

}  // namespace kx::interno

#else

namespace kx::interno {

bool TemClmul() noexcept { return false; }

std::uint32_t ChecksumClmul(const unsigned char* dados, std::size_t n,
                            std::uint32_t anterior) noexcept {
  return CalculaChecksumTabela(dados, n, anterior);
}

}  // namespace kx::interno

#endif
