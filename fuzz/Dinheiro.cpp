// Money: arithmetic against integers of 128 bits, and conversion from and to text.
#include "kxldados/Dinheiro.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "fuzz/Fuzz.h"

namespace {

using fuzz::Bytes;
__extension__ using i128 = __int128;

constexpr i128 kEscala = 10'000;
constexpr i128 kMaximo = std::numeric_limits<std::int64_t>::max();
constexpr i128 kMinimo = std::numeric_limits<std::int64_t>::min();

bool Cabe(i128 valor) { return valor >= kMinimo && valor <= kMaximo; }

// The amount, or that there is none.
std::optional<CKXCurrencyEx> Dita(i128 valor) {
  if (!Cabe(valor)) return std::nullopt;
  return CY{static_cast<std::int64_t>(valor)};
}

CY Dentro(i128 valor) { return Dita(valor).value_or(CY{}); }

// Rounded half to even; the divisor is not zero.
i128 Divide(i128 dividendo, i128 divisor) {
  if (divisor < 0) return Divide(-dividendo, -divisor);
  i128 piso = dividendo / divisor;
  if (piso * divisor > dividendo) --piso;
  const i128 dobro = (dividendo - piso * divisor) * 2;
  const bool sobe = dobro > divisor || (dobro == divisor && piso % 2 != 0);
  return sobe ? piso + 1 : piso;
}

// Any amount; those near a power of two, near zero and near the ends come up more often, and so do
// those of which products and quotients end in half a unit of the last decimal.
CY LeValor(Bytes& bytes) {
  constexpr std::int64_t kMeio = 50;
  const unsigned modo = bytes.Ate(4);
  if (modo == 4) return {bytes.Valor<std::int16_t>() * kMeio};
  if (modo == 0) return {bytes.Valor<std::int64_t>()};
  if (modo == 1) return {bytes.Valor<std::int32_t>()};
  const auto perto = static_cast<std::uint64_t>(std::int64_t{bytes.Valor<std::int8_t>()});
  const std::uint64_t potencia = std::uint64_t{1} << bytes.Ate(63);
  return {static_cast<std::int64_t>(modo == 2 ? potencia + perto : perto - potencia)};
}

void ExigeContas(CY a, CY b) {
  const CKXCurrencyEx x = a;
  const CKXCurrencyEx y = b;
  const i128 va = a.int64;
  const i128 vb = b.int64;
  KX_EXIGE(x + y == Dentro(va + vb) && kx::Soma(x, y) == Dita(va + vb));
  KX_EXIGE(x - y == Dentro(va - vb) && kx::Subtracao(x, y) == Dita(va - vb));
  KX_EXIGE(-x == Dentro(-va));
  const auto produto = Dita(Divide(va * vb, kEscala));
  KX_EXIGE(x * y == produto.value_or(CY{}) && kx::Produto(x, y) == produto);
  KX_EXIGE(x * b.int64 == Dentro(va * vb) && kx::Produto(x, b.int64) == Dita(va * vb));
  const auto semSinal = static_cast<std::uint64_t>(b.int64);
  KX_EXIGE(semSinal * x == Dentro(va * semSinal));
  const auto parte = vb == 0 ? std::nullopt : Dita(Divide(va, vb));
  KX_EXIGE(x / b.int64 == parte.value_or(CY{}) && kx::Quociente(x, b.int64) == parte);
  const auto quociente = vb == 0 ? std::nullopt : Dita(Divide(va * kEscala, vb));
  KX_EXIGE(x / y == quociente.value_or(CY{}) && kx::Quociente(x, y) == quociente);
  KX_EXIGE((x < y) == (va < vb) && (x == y) == (va == vb));
}

// The form that the reading takes, of the form of the writing.
std::string SemMilhares(const std::string& texto) {
  std::string lido;
  for (const char c : texto) {
    if (c != '.') lido += c == ',' ? '.' : c;
  }
  return lido;
}

void ExigeIdaEVolta(CY valor, int minimo) {
  const std::string texto = kx::TextoDeDinheiro(valor, minimo);
  CY lido{};
  KX_EXIGE(kx::DinheiroDeTexto(SemMilhares(texto), lido) == kx::ErroDinheiro::Nenhum, texto);
  KX_EXIGE(lido == valor, texto);
  lido = {};
  KX_EXIGE(kx::DinheiroDeTextoBrasileiro(texto, lido) == kx::ErroDinheiro::Nenhum, texto);
  KX_EXIGE(lido == valor, texto);
  const std::size_t virgula = texto.find(',');
  const std::size_t casas = virgula == std::string::npos ? 0 : texto.size() - virgula - 1;
  const std::size_t pedidas = minimo < 0 ? 0 : static_cast<std::size_t>(minimo);
  KX_EXIGE(casas <= 4 && casas >= (pedidas > 4 ? 4 : pedidas), texto);
  KX_EXIGE(casas <= pedidas || texto.back() != '0', texto);

  // Counted from the comma, every fourth character of the whole part is a point.
  std::string inteiros = texto.substr(0, virgula);
  if (valor.int64 < 0) inteiros.erase(0, 1);
  for (std::size_t i = 0; i < inteiros.size(); ++i) {
    KX_EXIGE((inteiros[i] == '.') == ((inteiros.size() - i) % 4 == 0), texto);
  }
}

struct Leitura {
  kx::ErroDinheiro Erro;
  CY Valor;
};

// The reading, as one reads: a sign, digits around a point, and what is dropped against one half.
// Magnitudes stop growing where they are out of range anyway.
Leitura LePlano(std::string texto) {
  texto.erase(0, texto.find_first_not_of(" \t\r\n"));
  texto.erase(texto.find_last_not_of(" \t\r\n") + 1);
  if (texto.empty()) return {kx::ErroDinheiro::Vazio, {}};
  const bool negativo = texto[0] == '-';
  if (negativo || texto[0] == '+') texto.erase(0, 1);
  const std::size_t ponto = texto.find('.');
  std::string casas = ponto == std::string::npos ? "" : texto.substr(ponto + 1);
  texto.resize(std::min(ponto, texto.size()));
  const std::string digitos = texto + casas;
  if (digitos.empty() || digitos.find_first_not_of("0123456789") != std::string::npos) {
    return {kx::ErroDinheiro::NaoNumerico, {}};
  }

  casas.append(5, '0');
  i128 valor = 0;
  for (const char c : texto + casas.substr(0, 4)) {
    if (valor < kMaximo * 100) valor = valor * 10 + (c - '0');
  }
  const std::string resto = casas.substr(4);
  const std::string meio = '5' + std::string(resto.size() - 1, '0');
  if (resto > meio || (resto == meio && valor % 2 != 0)) ++valor;
  if (negativo) valor = -valor;
  if (!Cabe(valor)) return {kx::ErroDinheiro::ForaDaFaixa, {}};
  return {kx::ErroDinheiro::Nenhum, {static_cast<std::int64_t>(valor)}};
}

void ExigeLeitura(const std::string& texto) {
  constexpr CY kAntes{77};
  const Leitura esperada = LePlano(texto);
  CY lido = kAntes;
  KX_EXIGE(kx::DinheiroDeTexto(texto, lido) == esperada.Erro, texto);
  KX_EXIGE(lido == (esperada.Erro == kx::ErroDinheiro::Nenhum ? esperada.Valor : kAntes), texto);

  // The other reading takes what the writing gives, but for a plus, the sign of zero, and points.
  if (kx::DinheiroDeTextoBrasileiro(texto, lido) != kx::ErroDinheiro::Nenhum) return;
  const std::size_t virgula = texto.find(',');
  const std::size_t casas = virgula == std::string::npos ? 0 : texto.size() - virgula - 1;
  std::string escrito = kx::TextoDeDinheiro(lido, static_cast<int>(casas));
  if (texto[0] == '+' || (lido == CY{} && texto[0] == '-')) escrito.insert(0, 1, texto[0]);
  if (texto.find('.') == std::string::npos) std::erase(escrito, '.');
  KX_EXIGE(texto == escrito, escrito);
}

// Digits for most bytes, so that few texts are refused.
std::string Numero(std::string texto, std::string_view caracteres) {
  for (char& c : texto) c = caracteres[static_cast<unsigned char>(c) % caracteres.size()];
  return texto;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  Bytes bytes(dados, tamanho);
  const CY a = LeValor(bytes);
  const CY b = LeValor(bytes);
  ExigeContas(a, b);
  ExigeIdaEVolta(a, bytes.Valor<std::int8_t>());
  // Beyond the ends of the range, too.
  std::string vizinho = SemMilhares(kx::TextoDeDinheiro(a, 4));
  vizinho.back() = static_cast<char>('0' + bytes.Ate(9));
  ExigeLeitura(vizinho);
  const std::string texto = bytes.Tudo();
  ExigeLeitura(texto);
  ExigeLeitura(Numero(texto, "0123456789055550999900009.-+ ,e"));
  ExigeLeitura(Numero(texto.substr(0, 9), "0155.,-+"));
  return 0;
}
