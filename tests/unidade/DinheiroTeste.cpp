// Money: arithmetic and text.
#include <gtest/gtest.h>

#include <limits>

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
  }
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

TEST(Dinheiro, TextoRecusadoNaoMudaOValor) {
  using enum kx::ErroDinheiro;
  const struct {
    const char* Texto;
    kx::ErroDinheiro Erro;
  } casos[] = {
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
  };
  for (const auto& caso : casos) {
    CY valor{42};
    EXPECT_EQ(kx::DinheiroDeTexto(caso.Texto, valor), caso.Erro) << caso.Texto;
    EXPECT_EQ(valor.int64, 42) << caso.Texto;
  }
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

}  // namespace
