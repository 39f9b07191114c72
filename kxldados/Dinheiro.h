// Money: arithmetic on amounts and their conversion from and to text. An amount is a 64-bit count
// of 1/10,000 (CY), so it lies between -922,337,203,685,477.5808 and 922,337,203,685,477.5807.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "kxldados/Tipos.h"
#include "platform/Exporta.h"

// An amount with arithmetic; converts implicitly from and to CY and has its 8-byte layout.
//
// Each operation is exact on its operands and rounds its result once, to 4 decimals, half to even.
// An operation without a result (a zero divisor, or a result outside the range) gives zero; none
// throws. So the order of operations decides the rounding, and an overflow on the way:
//
//   const CKXCurrencyEx percentual = valor * CKXCurrencyEx::DeInteiro(100) / total;
class KX_API CKXCurrencyEx {
 public:
  constexpr CKXCurrencyEx() noexcept = default;
  // The same amount in the other type.
  constexpr CKXCurrencyEx(const CY& valor) noexcept : _Valor(valor) {}
  constexpr operator CY() const noexcept { return _Valor; }

  // The amount of so many whole units: DeInteiro(2) is 2.0000.
  static constexpr CKXCurrencyEx DeInteiro(std::int32_t unidades) noexcept {
    return CY{unidades * kEscala};
  }

  // Each rounds once, as the class says.
  CKXCurrencyEx& operator+=(const CKXCurrencyEx& outro) noexcept;
  CKXCurrencyEx& operator-=(const CKXCurrencyEx& outro) noexcept;
  CKXCurrencyEx& operator*=(const CKXCurrencyEx& outro) noexcept;
  CKXCurrencyEx& operator/=(const CKXCurrencyEx& outro) noexcept;
  CKXCurrencyEx operator-() const noexcept { return CKXCurrencyEx() -= *this; }

  // The same into a new amount.
  friend CKXCurrencyEx operator+(CKXCurrencyEx a, const CKXCurrencyEx& b) noexcept {
    return a += b;
  }
  friend CKXCurrencyEx operator-(CKXCurrencyEx a, const CKXCurrencyEx& b) noexcept {
    return a -= b;
  }
  friend CKXCurrencyEx operator*(CKXCurrencyEx a, const CKXCurrencyEx& b) noexcept {
    return a *= b;
  }
  friend CKXCurrencyEx operator/(CKXCurrencyEx a, const CKXCurrencyEx& b) noexcept {
    return a /= b;
  }

  friend constexpr bool operator==(const CKXCurrencyEx& a, const CKXCurrencyEx& b) noexcept {
    return a._Valor == b._Valor;
  }
  // Without it a comparison with a CY could convert either side.
  friend constexpr bool operator==(const CKXCurrencyEx& a, const CY& b) noexcept {
    return a._Valor == b;
  }
  // By amount.
  friend constexpr std::strong_ordering operator<=>(const CKXCurrencyEx& a,
                                                    const CKXCurrencyEx& b) noexcept {
    return a._Valor.int64 <=> b._Valor.int64;
  }

 private:
  static constexpr std::int64_t kEscala = 10'000;

  CY _Valor{};
};

static_assert(sizeof(CKXCurrencyEx) == sizeof(CY));

// The library's functions, and what its headers share.
namespace kx {

// Why a text is not an amount; Nenhum when it is.
enum class ErroDinheiro : std::uint8_t { Nenhum, Vazio, NaoNumerico, ForaDaFaixa };

// Reads an amount as XML Schema writes a decimal: an optional sign, digits, an optional point and
// decimals ("-12.3456", "7", ".5"). Blanks around it are skipped, decimals beyond the fourth
// rounded half to even; exponents and thousands separators are refused. On error `valor` is left
// as it was.
KX_API ErroDinheiro DinheiroDeTexto(std::string_view texto, CY& valor) noexcept;

// Writes an amount as Brazil does: "1.234,50", "-0,0001". At least `minimo` decimals (0 to 4), and
// no zeros at the end beyond them. Throws std::bad_alloc.
KX_API std::string TextoDeDinheiro(const CY& valor, int minimo = 2);

}  // namespace kx
