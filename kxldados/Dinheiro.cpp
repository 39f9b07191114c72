#include "kxldados/Dinheiro.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::uint64_t kEscala = 10'000;
constexpr std::uint64_t kMaximo = std::numeric_limits<std::int64_t>::max();

// 128 bits without sign.
struct Largo {
  std::uint64_t Alto;
  std::uint64_t Baixo;
};

struct Divisao {
  bool Coube;  // the quotient fits in 64 bits
  std::uint64_t Quociente;
  std::uint64_t Resto;
};

std::uint64_t Modulo(std::int64_t valor) {
  const auto bits = static_cast<std::uint64_t>(valor);
  return valor < 0 ? 0 - bits : bits;
}

// An amount from its sign and magnitude; false when it is outside the range.
bool ComSinal(bool negativo, std::uint64_t modulo, std::int64_t& valor) {
  if (modulo > kMaximo + (negativo ? 1U : 0U)) return false;
  valor = static_cast<std::int64_t>(negativo ? 0 - modulo : modulo);
  return true;
}

Largo Multiplica(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t kMetade = 0xFFFFFFFFU;
  const std::uint64_t baixo = (a & kMetade) * (b & kMetade);
  const std::uint64_t meio1 = (a >> 32) * (b & kMetade) + (baixo >> 32);
  const std::uint64_t meio2 = (a & kMetade) * (b >> 32) + (meio1 & kMetade);
  return {(a >> 32) * (b >> 32) + (meio1 >> 32) + (meio2 >> 32), (meio2 << 32) | (baixo & kMetade)};
}

// Bit by bit where the dividend needs 128 bits; a divisor of at most 2^63 keeps the remainder
// within 64.
Divisao Divide(Largo dividendo, std::uint64_t divisor) {
  if (dividendo.Alto >= divisor) return {false, 0, 0};
  if (dividendo.Alto == 0) {
    return {true, dividendo.Baixo / divisor, dividendo.Baixo % divisor};
  }
  std::uint64_t quociente = 0;
  std::uint64_t resto = dividendo.Alto;
  for (int bit = 63; bit >= 0; --bit) {
    resto = (resto << 1) | ((dividendo.Baixo >> bit) & 1U);
    quociente <<= 1;
    if (resto >= divisor) {
      resto -= divisor;
      quociente |= 1U;
    }
  }
  return {true, quociente, resto};
}

// a * b / divisor, rounded half to even.
std::optional<CKXCurrencyEx> MultiplicaDivide(std::uint64_t a, std::uint64_t b,
                                              std::uint64_t divisor, bool negativo) {
  if (divisor == 0) return {};
  Divisao divisao = Divide(Multiplica(a, b), divisor);
  if (!divisao.Coube || divisao.Quociente > kMaximo + 1) return {};
  const std::uint64_t falta = divisor - divisao.Resto;
  const bool impar = (divisao.Quociente & 1U) != 0;
  if (divisao.Resto > falta || (divisao.Resto == falta && impar)) ++divisao.Quociente;
  CY valor{};
  if (!ComSinal(negativo, divisao.Quociente, valor.int64)) return {};
  return valor;
}

std::int64_t Numero(const CKXCurrencyEx& valor) { return CY(valor).int64; }

bool EhDigito(char c) { return c >= '0' && c <= '9'; }

std::string_view SemBrancos(std::string_view texto) {
  constexpr std::string_view kBrancos = " \t\r\n";
  const std::size_t inicio = texto.find_first_not_of(kBrancos);
  if (inicio == std::string_view::npos) return {};
  return texto.substr(inicio, texto.find_last_not_of(kBrancos) - inicio + 1);
}

bool SoDigitos(std::string_view texto) { return std::all_of(texto.begin(), texto.end(), EhDigito); }

// Appends digits to the magnitude; false when it leaves the range of an amount.
bool AcrescentaDigitos(std::string_view digitos, std::uint64_t& modulo) {
  for (const char c : digitos) {
    if (modulo > kMaximo / 10) return false;
    modulo = modulo * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return modulo <= kMaximo + 1;
}

// Whether decimals that are dropped round the digit before them up, half to even.
bool ArredondaParaCima(std::string_view sobra, bool impar) {
  if (sobra.empty() || sobra[0] != '5') return !sobra.empty() && sobra[0] > '5';
  return impar || sobra.find_first_not_of('0', 1) != std::string_view::npos;
}

}  // namespace

namespace kx {

std::optional<CKXCurrencyEx> Soma(const CKXCurrencyEx& a, const CKXCurrencyEx& b) noexcept {
  const std::int64_t x = Numero(a);
  const std::int64_t y = Numero(b);
  const bool coube = y > 0 ? x <= std::numeric_limits<std::int64_t>::max() - y
                           : x >= std::numeric_limits<std::int64_t>::min() - y;
  if (!coube) return {};
  return CY{x + y};
}

std::optional<CKXCurrencyEx> Subtracao(const CKXCurrencyEx& a, const CKXCurrencyEx& b) noexcept {
  const std::int64_t x = Numero(a);
  const std::int64_t y = Numero(b);
  const bool coube = y < 0 ? x <= std::numeric_limits<std::int64_t>::max() + y
                           : x >= std::numeric_limits<std::int64_t>::min() + y;
  if (!coube) return {};
  return CY{x - y};
}

std::optional<CKXCurrencyEx> Produto(const CKXCurrencyEx& a, const CKXCurrencyEx& b) noexcept {
  const std::int64_t x = Numero(a);
  const std::int64_t y = Numero(b);
  return MultiplicaDivide(Modulo(x), Modulo(y), kEscala, (x < 0) != (y < 0));
}

std::optional<CKXCurrencyEx> Quociente(const CKXCurrencyEx& a, const CKXCurrencyEx& b) noexcept {
  const std::int64_t x = Numero(a);
  const std::int64_t y = Numero(b);
  return MultiplicaDivide(Modulo(x), kEscala, Modulo(y), (x < 0) != (y < 0));
}

std::optional<CKXCurrencyEx> Produto(const CKXCurrencyEx& a, Inteiro b) noexcept {
  const std::int64_t x = Numero(a);
  return MultiplicaDivide(Modulo(x), b.Modulo(), 1, (x < 0) != b.Negativo());
}

std::optional<CKXCurrencyEx> Quociente(const CKXCurrencyEx& a, Inteiro b) noexcept {
  const std::int64_t x = Numero(a);
  return MultiplicaDivide(Modulo(x), 1, b.Modulo(), (x < 0) != b.Negativo());
}

}  // namespace kx

CKXCurrencyEx& CKXCurrencyEx::operator+=(const CKXCurrencyEx& outro) noexcept {
  return *this = kx::Soma(*this, outro).value_or(CKXCurrencyEx());
}

CKXCurrencyEx& CKXCurrencyEx::operator-=(const CKXCurrencyEx& outro) noexcept {
  return *this = kx::Subtracao(*this, outro).value_or(CKXCurrencyEx());
}

CKXCurrencyEx& CKXCurrencyEx::operator*=(const CKXCurrencyEx& outro) noexcept {
  return *this = kx::Produto(*this, outro).value_or(CKXCurrencyEx());
}

CKXCurrencyEx& CKXCurrencyEx::operator/=(const CKXCurrencyEx& outro) noexcept {
  return *this = kx::Quociente(*this, outro).value_or(CKXCurrencyEx());
}

CKXCurrencyEx& operator*=(CKXCurrencyEx& a, kx::Inteiro b) noexcept {
  return a = kx::Produto(a, b).value_or(CKXCurrencyEx());
}

CKXCurrencyEx& operator/=(CKXCurrencyEx& a, kx::Inteiro b) noexcept {
  return a = kx::Quociente(a, b).value_or(CKXCurrencyEx());
}

namespace kx {

ErroDinheiro DinheiroDeTexto(std::string_view texto, CY& valor) noexcept {
  texto = SemBrancos(texto);
  if (texto.empty()) return ErroDinheiro::Vazio;
  const bool negativo = texto[0] == '-';
  if (negativo || texto[0] == '+') texto.remove_prefix(1);

  const std::size_t ponto = std::min(texto.find('.'), texto.size());
  const std::string_view inteiros = texto.substr(0, ponto);
  const std::string_view decimais = texto.substr(std::min(ponto + 1, texto.size()));
  if (inteiros.empty() && decimais.empty()) return ErroDinheiro::NaoNumerico;
  if (!SoDigitos(inteiros) || !SoDigitos(decimais)) return ErroDinheiro::NaoNumerico;

  constexpr std::size_t kCasas = 4;
  const std::string_view guardadas = decimais.substr(0, kCasas);
  const std::string_view zeros = std::string_view("0000").substr(guardadas.size());
  std::uint64_t modulo = 0;
  if (!AcrescentaDigitos(inteiros, modulo) || !AcrescentaDigitos(guardadas, modulo) ||
      !AcrescentaDigitos(zeros, modulo)) {
    return ErroDinheiro::ForaDaFaixa;
  }
  const std::string_view sobra = decimais.substr(guardadas.size());
  if (ArredondaParaCima(sobra, (modulo & 1U) != 0)) ++modulo;
  return ComSinal(negativo, modulo, valor.int64) ? ErroDinheiro::Nenhum : ErroDinheiro::ForaDaFaixa;
}

const char* MensagemErroDinheiro(ErroDinheiro erro) noexcept {
  switch (erro) {
    case ErroDinheiro::Nenhum:
      break;
    case ErroDinheiro::Vazio:
      return "O valor n\xE3o foi informado.";
    case ErroDinheiro::NaoNumerico:
      return "O valor deve ser escrito como 1.234,50.";
    case ErroDinheiro::ForaDaFaixa:
      return "O valor deve ficar entre -922.337.203.685.477,5808 e 922.337.203.685.477,5807.";
    case ErroDinheiro::CasasDemais:
      return "O valor deve ter no m\xE1ximo quatro casas decimais.";
  }
  return "";
}

std::string TextoDeDinheiro(const CY& valor, int minimo) {
  const std::uint64_t modulo = Modulo(valor.int64);
  std::string texto = std::to_string(modulo / kEscala);
  for (std::size_t fim = texto.size(); fim > 3;) texto.insert(fim -= 3, 1, '.');
  if (valor.int64 < 0) texto.insert(0, 1, '-');

  // The first digit of 1dddd keeps the zeros of the decimals.
  std::string decimais = std::to_string(kEscala + modulo % kEscala).substr(1);
  const auto minimas = static_cast<std::size_t>(std::clamp(minimo, 0, 4));
  while (decimais.size() > minimas && decimais.back() == '0') decimais.pop_back();
  if (!decimais.empty()) texto += ',' + decimais;
  return texto;
}

}  // namespace kx
