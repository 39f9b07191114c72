// Money: arithmetic on amounts and their conversion from and to text. An amount is a 64-bit count
// of 1/10,000 (CY), so it lies between -922,337,203,685,477.5808 and 922,337,203,685,477.5807.
//
//   using namespace kx::literais;
//   ordem.SetValorFrete("15,00"_rs);                               // CY{15} would be R$ 0,0015
//   const CKXCurrencyEx total = CKXCurrencyEx(item.GetPreco()) * 12 + "0,50"_rs;
//   if (const auto soma = kx::Soma(total, frete)) Mostra(kx::TextoDeDinheiro(*soma));
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "kxldados/Tipos.h"
#include "platform/Exporta.h"

namespace kx {

// A whole number, by which amounts are multiplied and divided: any integer makes one by itself, but
// neither bool nor a character does.
class Inteiro {
 public:
  // From a whole number of at most 64 bits; neither characters nor `bool` are one.
  template <class T>
  requires(std::is_integral_v<T> && sizeof(T) <= 8 && !std::is_same_v<T, bool> &&
           !std::is_same_v<T, char> && !std::is_same_v<T, wchar_t> && !std::is_same_v<T, char8_t> &&
           !std::is_same_v<T, char16_t> &&
           !std::is_same_v<T, char32_t>) constexpr Inteiro(T valor) noexcept
      : _Modulo(valor < T{} ? 0 - static_cast<std::uint64_t>(valor)
                            : static_cast<std::uint64_t>(valor)),
        _Negativo(valor < T{}) {}

  // The number without its sign.
  constexpr std::uint64_t Modulo() const noexcept { return _Modulo; }
  // Below zero.
  constexpr bool Negativo() const noexcept { return _Negativo; }

 private:
  std::uint64_t _Modulo;
  bool _Negativo;
};

}  // namespace kx

// An amount with arithmetic; converts implicitly from and to CY and has its 8-byte layout.
//
// Each operation is exact on its operands and rounds its result once, to 4 decimals, half to even.
// An operation without a result (a zero divisor, or a result outside the range) gives zero; none
// throws. kx::Soma and its like, below, tell it instead. So the order of operations decides the
// rounding, and an overflow on the way:
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

  // So many times the amount, and a part of it: valor * 3, 3 * valor, valor / 3.
  KX_API friend CKXCurrencyEx& operator*=(CKXCurrencyEx& a, kx::Inteiro b) noexcept;
  KX_API friend CKXCurrencyEx& operator/=(CKXCurrencyEx& a, kx::Inteiro b) noexcept;
  friend CKXCurrencyEx operator*(CKXCurrencyEx a, kx::Inteiro b) noexcept { return a *= b; }
  friend CKXCurrencyEx operator*(kx::Inteiro a, CKXCurrencyEx b) noexcept { return b *= a; }
  friend CKXCurrencyEx operator/(CKXCurrencyEx a, kx::Inteiro b) noexcept { return a /= b; }

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
    return a._Valor <=> b._Valor;
  }
  friend constexpr std::strong_ordering operator<=>(const CKXCurrencyEx& a, const CY& b) noexcept {
    return a._Valor <=> b;
  }

 private:
  static constexpr std::int64_t kEscala = 10'000;

  CY _Valor{};
};

static_assert(sizeof(CKXCurrencyEx) == sizeof(CY));

// The library's functions, and what its headers share.
namespace kx {

// Sum, difference, product and quotient, rounded as the operators do; nothing where these give zero
// for want of a result: a zero divisor, or a result outside the range.
KX_API std::optional<CKXCurrencyEx> Soma(const CKXCurrencyEx& a, const CKXCurrencyEx& b) noexcept;
KX_API std::optional<CKXCurrencyEx> Subtracao(const CKXCurrencyEx& a,
                                              const CKXCurrencyEx& b) noexcept;
KX_API std::optional<CKXCurrencyEx> Produto(const CKXCurrencyEx& a,
                                            const CKXCurrencyEx& b) noexcept;
KX_API std::optional<CKXCurrencyEx> Quociente(const CKXCurrencyEx& a,
                                              const CKXCurrencyEx& b) noexcept;
KX_API std::optional<CKXCurrencyEx> Produto(const CKXCurrencyEx& a, Inteiro b) noexcept;
KX_API std::optional<CKXCurrencyEx> Quociente(const CKXCurrencyEx& a, Inteiro b) noexcept;

// Why a text is not an amount; Nenhum when it is.
enum class ErroDinheiro : std::uint8_t {
  Nenhum,       // it is one
  Vazio,        // no text
  NaoNumerico,  // not written as a number
  ForaDaFaixa,  // more than an amount holds
  CasasDemais,  // more than four decimals; DinheiroDeTexto rounds them instead
};

// Reads an amount as XML Schema writes a decimal: an optional sign, digits, an optional point and
// decimals ("-12.3456", "7", ".5"). Blanks around it are skipped, decimals beyond the fourth
// rounded half to even; exponents and thousands separators are refused. On error `valor` is left
// as it was.
KX_API ErroDinheiro DinheiroDeTexto(std::string_view texto, CY& valor) noexcept;

// Reads an amount as Brazil writes it, and TextoDeDinheiro: "1.234,50", "-0,0001", "7". Strictly:
// the points stand before every three digits of the whole part or are left out altogether; a comma
// has one to four decimals behind it; no zero stands before another digit of the whole part; a "+"
// may stand for the "-". Anything else is refused, blanks too. So "12.50" is no amount, and "1.234"
// is one thousand. On error `valor` is left as it was.
constexpr ErroDinheiro DinheiroDeTextoBrasileiro(std::string_view texto, CY& valor) noexcept {
  if (texto.empty()) return ErroDinheiro::Vazio;
  const bool negativo = texto[0] == '-';
  if (negativo || texto[0] == '+') texto.remove_prefix(1);
  const std::size_t virgula = texto.find(',');
  const bool temVirgula = virgula != std::string_view::npos;
  const std::string_view inteiros = texto.substr(0, virgula);
  const std::string_view decimais = texto.substr(temVirgula ? virgula + 1 : texto.size());
  bool numero = !inteiros.empty() && (inteiros[0] != '0' || inteiros.size() == 1) &&
                temVirgula != decimais.empty();

  const std::uint64_t maximo = (std::uint64_t{1} << 63) - (negativo ? 0U : 1U);
  std::uint64_t modulo = 0;
  bool coube = true;
  const auto acrescenta = [&](char c) {
    if (c < '0' || c > '9') {
      numero = false;
      return;
    }
    const auto algarismo = static_cast<std::uint64_t>(c - '0');
    coube = coube && modulo <= (maximo - algarismo) / 10;
    if (coube) modulo = modulo * 10 + algarismo;
  };
  const bool comPontos = inteiros.find('.') != std::string_view::npos;
  for (std::size_t i = 0; i < inteiros.size(); ++i) {
    if (!comPontos || (inteiros.size() - i) % 4 != 0) {
      acrescenta(inteiros[i]);
    } else if (i == 0 || inteiros[i] != '.') {
      numero = false;
    }
  }
  constexpr std::size_t kCasas = 4;
  for (const char c : decimais) acrescenta(c);
  for (std::size_t i = decimais.size(); i < kCasas; ++i) acrescenta('0');

  if (!numero) return ErroDinheiro::NaoNumerico;
  if (decimais.size() > kCasas) return ErroDinheiro::CasasDemais;
  if (!coube) return ErroDinheiro::ForaDaFaixa;
  valor.int64 = static_cast<std::int64_t>(negativo ? 0 - modulo : modulo);
  return ErroDinheiro::Nenhum;
}

// Message for the user who typed the amount as Brazil writes it, in Portuguese (Latin-1); empty for
// Nenhum. A constant.
KX_API const char* MensagemErroDinheiro(ErroDinheiro erro) noexcept;

// Writes an amount as Brazil does: "1.234,50", "-0,0001". At least `minimo` decimals (0 to 4), and
// no zeros at the end beyond them. Throws std::bad_alloc.
KX_API std::string TextoDeDinheiro(const CY& valor, int minimo = 2);

// Not there: what the compiler names where a text before _rs is no amount.
void TextoNaoEhDinheiro();

// What `using namespace kx::literais;` brings.
inline namespace literais {

// An amount in the program's text, read by the compiler as DinheiroDeTextoBrasileiro reads it:
// "15,00"_rs, "1.234,5678"_rs. A text that is no amount does not compile.
consteval CY operator""_rs(const char* texto, std::size_t tamanho) {
  CY valor{};
  if (DinheiroDeTextoBrasileiro({texto, tamanho}, valor) != ErroDinheiro::Nenhum) {
    TextoNaoEhDinheiro();
  }
  return valor;
}

}  // namespace literais

}  // namespace kx
