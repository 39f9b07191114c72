// Money: arithmetic and text.
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <type_traits>

#include "kxldados/Dinheiro.h"

namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

struct Conta {
  char Operacao;
  std::int64_t A, B, Resultado;
};

// The extremes and what lies beside them, computed apart with integers of any size. Products and
// quotients have vectors of their own, tests/dados/vetores_dinheiro.txt, which the contract's tests
// read.
// clang-format off
constexpr Conta kSomas[] = {
    {'+', kMax, kMax, 0}, {'+', kMax, kMin, -1}, {'+', kMax, 1, 0},
    {'+', kMax, -1, 9223372036854775806}, {'+', kMin, kMax, -1}, {'+', kMin, kMin, 0},
    {'+', kMin, 1, -9223372036854775807}, {'+', kMin, -1, 0}, {'+', 9223372036854775806, kMax, 0},
    {'+', 9223372036854775806, kMin, -2}, {'+', 9223372036854775806, 1, kMax},
    {'+', 9223372036854775806, -1, 9223372036854775805}, {'+', -9223372036854775807, kMax, 0},
    {'+', -9223372036854775807, kMin, 0}, {'+', -9223372036854775807, 1, -9223372036854775806},
    {'+', -9223372036854775807, -1, kMin}, {'-', kMax, kMax, 0}, {'-', kMax, kMin, 0},
    {'-', kMax, 1, 9223372036854775806}, {'-', kMax, -1, 0}, {'-', kMin, kMax, 0},
    {'-', kMin, kMin, 0}, {'-', kMin, 1, 0}, {'-', kMin, -1, -9223372036854775807},
    {'-', 9223372036854775806, kMax, -1}, {'-', 9223372036854775806, kMin, 0},
    {'-', 9223372036854775806, 1, 9223372036854775805}, {'-', 9223372036854775806, -1, kMax},
    {'-', -9223372036854775807, kMax, 0}, {'-', -9223372036854775807, kMin, 1},
    {'-', -9223372036854775807, 1, kMin}, {'-', -9223372036854775807, -1, -9223372036854775806},
};
// clang-format on

TEST(Dinheiro, SomaForaDaFaixaDaZero) {
  for (const Conta& conta : kSomas) {
    const CKXCurrencyEx a = CY{conta.A};
    const CKXCurrencyEx b = CY{conta.B};
    EXPECT_EQ(conta.Operacao == '+' ? a + b : a - b, CY{conta.Resultado})
        << conta.A << conta.Operacao << conta.B;
    // Zero for want of a result is told from zero, which only operands of the right signs give
    // here.
    const auto dita = conta.Operacao == '+' ? kx::Soma(a, b) : kx::Diferenca(a, b);
    const bool certa =
        conta.Resultado != 0 || ((conta.A < 0) != (conta.B < 0)) == (conta.Operacao == '+');
    EXPECT_EQ(dita.has_value(), certa) << conta.A << conta.Operacao << conta.B;
  }
}

TEST(Dinheiro, ProdutoEQuocienteDizemQueNaoHaResultado) {
  const CKXCurrencyEx maximo = CY{kMax};
  const CKXCurrencyEx minimo = CY{kMin};
  EXPECT_EQ(kx::Produto(maximo, CY{1'0000}), maximo);
  EXPECT_EQ(kx::Produto(maximo, CY{1'0001}), std::nullopt);
  EXPECT_EQ(kx::Quociente(minimo, CY{-1'0000}), std::nullopt);
  EXPECT_EQ(kx::Quociente(maximo, CY{}), std::nullopt);
  EXPECT_EQ(kx::Quociente(CY{}, CY{3}), CKXCurrencyEx());
  EXPECT_EQ(kx::Produto(minimo, 1), minimo);
  EXPECT_EQ(kx::Produto(minimo, -1), std::nullopt);
  EXPECT_EQ(kx::Produto(CY{-1}, kMin), std::nullopt);
  EXPECT_EQ(kx::Produto(CY{-1}, std::uint64_t{1} << 63), minimo);
  EXPECT_EQ(kx::Produto(CY{2}, ~std::uint64_t{0}), std::nullopt);
  EXPECT_EQ(kx::Quociente(minimo, -1), std::nullopt);
  EXPECT_EQ(kx::Quociente(minimo, kMin), CY{1});
  EXPECT_EQ(kx::Quociente(maximo, 0), std::nullopt);
}

// Against the products and quotients of amounts, which know nothing of whole numbers.
TEST(Dinheiro, VezesEPorNumeroInteiro) {
  CKXCurrencyEx valor = CY{10'0001};
  EXPECT_EQ(valor * 3, CY{30'0003});
  EXPECT_EQ(-3L * valor, CY{-30'0003});
  EXPECT_EQ(CKXCurrencyEx(CY{5}) / 2U, CY{2});  // half to even, once
  EXPECT_EQ(CKXCurrencyEx(CY{-15}) / std::int8_t{10}, CY{-2});
  EXPECT_EQ((valor *= 4) /= std::uint8_t{3}, CY{13'3335});
  std::mt19937_64 sorteio(7);
  for (int i = 0; i < 10'000; ++i) {
    const CKXCurrencyEx x = CY{static_cast<std::int64_t>(sorteio()) >> sorteio() % 64};
    const auto n = static_cast<std::int32_t>(sorteio()) >> sorteio() % 32;
    EXPECT_EQ(x * n, x * CKXCurrencyEx::DeInteiro(n)) << n;
    EXPECT_EQ(x / n, x / CKXCurrencyEx::DeInteiro(n)) << n;
  }
}

template <class T>
concept Multiplica = requires(CKXCurrencyEx valor, T outro) {
  valor* outro;
};

TEST(Dinheiro, NemFracaoNemLetraSaoNumeroInteiro) {
  EXPECT_TRUE(Multiplica<CY> && Multiplica<short> && Multiplica<unsigned long long>);
  EXPECT_FALSE(Multiplica<double> || Multiplica<bool> || Multiplica<char> || Multiplica<void*>);
}

TEST(Dinheiro, OrdemDasOperacoesDecideOArredondamento) {
  const CKXCurrencyEx um = CKXCurrencyEx::DeInteiro(1);
  const CKXCurrencyEx tres = CKXCurrencyEx::DeInteiro(3);
  const CKXCurrencyEx cem = CKXCurrencyEx::DeInteiro(100);
  EXPECT_EQ(um * cem / tres, CY{333333});
  EXPECT_EQ(um / tres * cem, CY{333300});
  EXPECT_EQ(-CKXCurrencyEx(CY{kMin}), CY{0});
}

TEST(Dinheiro, ComparaComDinheiroEComCY) {
  const CKXCurrencyEx menor = CY{-1};
  const CKXCurrencyEx maior = CY{2};
  EXPECT_TRUE(menor < maior && maior > CY{1} && CY{-1} == menor && maior != CY{1});
  EXPECT_EQ(CKXCurrencyEx(), CY{0});
  EXPECT_TRUE(CY{-1} < CY{2} && CY{-1} < maior && maior >= CY{2} && CY{kMin} < CY{kMax});
  EXPECT_TRUE(std::is_trivially_copyable_v<CY> && std::is_aggregate_v<CY>);
}

TEST(Dinheiro, LeTexto) {
  const struct {
    const char* Texto;
    std::int64_t Valor;
  } casos[] = {
      {"-12.3456", -123456},
      {"7", 70000},
      {" \t+0.5\r\n", 5000},
      {".25", 2500},
      {"3.", 30000},
      {"-0", 0},
      {"1.23445", 12344},
      {"1.23455", 12346},
      {"1.234450000000000000000000000001", 12345},
      {"-1.23445", -12344},
      {"1.23446", 12345},
      {"9.99999", 100000},
      {"000000000000000000000000000001", 10000},
      {"922337203685477.5807", kMax},
      {"-922337203685477.5808", kMin},
      {"-922337203685477.58085", kMin},
      {"922337203685477.580749", kMax},
  };
  for (const auto& caso : casos) {
    CY valor{};
    EXPECT_EQ(kx::DinheiroDeTexto(caso.Texto, valor), kx::ErroDinheiro::Nenhum) << caso.Texto;
    EXPECT_EQ(valor.int64, caso.Valor) << caso.Texto;
  }
}

struct Recusado {
  const char* Texto;
  kx::ErroDinheiro Erro;
};

void EsperaRecusas(kx::ErroDinheiro (*le)(std::string_view, CY&),
                   std::initializer_list<Recusado> casos) {
  for (const Recusado& caso : casos) {
    CY valor{42};
    EXPECT_EQ(le(caso.Texto, valor), caso.Erro) << caso.Texto;
    EXPECT_EQ(valor.int64, 42) << caso.Texto;
    EXPECT_STRNE(kx::MensagemErroDinheiro(caso.Erro), "");
  }
}

TEST(Dinheiro, TextoRecusadoNaoMudaOValor) {
  using enum kx::ErroDinheiro;
  EsperaRecusas(kx::DinheiroDeTexto, {
                                         {"", Vazio},
                                         {" \n", Vazio},
                                         {"-", NaoNumerico},
                                         {".", NaoNumerico},
                                         {"1e5", NaoNumerico},
                                         {"1,50", NaoNumerico},
                                         {"1.2.3", NaoNumerico},
                                         {"--1", NaoNumerico},
                                         {"1 2", NaoNumerico},
                                         {"0x1", NaoNumerico},
                                         {"99999999999999999999999x", NaoNumerico},
                                         {"922337203685477.5808", ForaDaFaixa},
                                         {"922337203685477.58075", ForaDaFaixa},
                                         {"-922337203685477.5809", ForaDaFaixa},
                                         {"922337203685478", ForaDaFaixa},
                                         {"9223372036854775808", ForaDaFaixa},
                                         {"18446744073709551616000", ForaDaFaixa},
                                     });
}

TEST(Dinheiro, EscreveTextoBrasileiro) {
  EXPECT_EQ(kx::TextoDeDinheiro(CY{12345678}), "1.234,5678");
  EXPECT_EQ(kx::TextoDeDinheiro(CY{12345000}), "1.234,50");
  EXPECT_EQ(kx::TextoDeDinheiro(CY{-1}), "-0,0001");
  EXPECT_EQ(kx::TextoDeDinheiro(CY{0}), "0,00");
  EXPECT_EQ(kx::TextoDeDinheiro(CY{9990000}, 0), "999");
  EXPECT_EQ(kx::TextoDeDinheiro(CY{9990500}, 4), "999,0500");
  EXPECT_EQ(kx::TextoDeDinheiro(CY{10000000000}), "1.000.000,00");
  EXPECT_EQ(kx::TextoDeDinheiro(CY{kMin}), "-922.337.203.685.477,5808");
}

// Every text that is written is read again, without its points too; and what is read of shuffled
// characters is written in the same way, but for a plus, zeros at the end, and points.
TEST(Dinheiro, TextoBrasileiroIdaEVolta) {
  std::mt19937_64 sorteio(11);
  const auto semPontos = [](std::string texto) {
    std::erase(texto, '.');
    return texto;
  };
  for (int i = 0; i < 20'000; ++i) {
    const CY valor{static_cast<std::int64_t>(sorteio()) >> sorteio() % 64};
    const std::string texto = kx::TextoDeDinheiro(valor, i % 5);
    CY lido{42};
    ASSERT_EQ(kx::DinheiroDeTextoBrasileiro(texto, lido), kx::ErroDinheiro::Nenhum) << texto;
    ASSERT_EQ(lido, valor) << texto;
    ASSERT_EQ(kx::DinheiroDeTextoBrasileiro(semPontos(texto), lido), kx::ErroDinheiro::Nenhum);
    ASSERT_EQ(lido, valor) << texto;

    std::string solto(sorteio() % 10, ' ');
    for (char& c : solto) c = "0155.,-+ "[sorteio() % 9];
    if (kx::DinheiroDeTextoBrasileiro(solto, lido) != kx::ErroDinheiro::Nenhum) continue;
    const std::size_t virgula = solto.find(',');
    const auto casas = virgula == std::string::npos ? 0 : solto.size() - virgula - 1;
    std::string escrito = kx::TextoDeDinheiro(lido, static_cast<int>(casas));
    if (solto[0] == '+' || (lido == CY{} && solto[0] == '-')) escrito.insert(0, 1, solto[0]);
    if (solto.find('.') == std::string::npos) escrito = semPontos(escrito);
    ASSERT_EQ(solto, escrito);
  }
}

TEST(Dinheiro, TextoBrasileiroRecusadoNaoMudaOValor) {
  using enum kx::ErroDinheiro;
  EsperaRecusas(kx::DinheiroDeTextoBrasileiro, {
                                                   {"", Vazio},
                                                   {" 1,00", NaoNumerico},
                                                   {"1,00 ", NaoNumerico},
                                                   {"-", NaoNumerico},
                                                   {"+-1", NaoNumerico},
                                                   {",50", NaoNumerico},
                                                   {"1,", NaoNumerico},
                                                   {"1,2,3", NaoNumerico},
                                                   {"1,2.3", NaoNumerico},
                                                   {"12.50", NaoNumerico},
                                                   {"1234.567", NaoNumerico},
                                                   {"1.2345", NaoNumerico},
                                                   {"1.234567", NaoNumerico},
                                                   {".123", NaoNumerico},
                                                   {"1..234", NaoNumerico},
                                                   {"0.123", NaoNumerico},
                                                   {"00", NaoNumerico},
                                                   {"R$ 1,00", NaoNumerico},
                                                   {"1,2345x", NaoNumerico},
                                                   {"1,00000", CasasDemais},
                                                   {"922.337.203.685.477,5808", ForaDaFaixa},
                                                   {"-922.337.203.685.477,5809", ForaDaFaixa},
                                                   {"18446744073709551616", ForaDaFaixa},
                                                   {"1844674407370955,1617", ForaDaFaixa},
                                               });
  EXPECT_STREQ(kx::MensagemErroDinheiro(Nenhum), "");
}

TEST(Dinheiro, Literal) {
  using namespace kx::literais;
  static_assert("15,00"_rs == CY{15'0000} && "-922.337.203.685.477,5808"_rs == CY{kMin});
  constexpr CKXCurrencyEx kFrete = "1.234,5"_rs;
  EXPECT_EQ(kFrete + "-0,0001"_rs, CY{1234'4999});
}

}  // namespace
