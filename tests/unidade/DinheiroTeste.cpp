// Money: what fuzz/Dinheiro.cpp does not try.
#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "kxldados/Dinheiro.h"

namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

TEST(Dinheiro, VezesEPorNumeroInteiro) {
  CKXCurrencyEx valor = CY{10'0001};
  EXPECT_EQ(valor * 3, CY{30'0003});
  EXPECT_EQ(-3L * valor, CY{-30'0003});
  EXPECT_EQ(CKXCurrencyEx(CY{5}) / 2U, CY{2});  // half to even, once
  EXPECT_EQ(CKXCurrencyEx(CY{-15}) / std::int8_t{10}, CY{-2});
  EXPECT_EQ((valor *= 4) /= std::uint8_t{3}, CY{13'3335});
  EXPECT_EQ(kx::Produto(CY{-1}, std::uint64_t{1} << 63), CY{kMin});
  EXPECT_EQ(kx::Quociente(valor, 0), std::nullopt);
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

struct Recusado {
  const char* Texto;
  kx::ErroDinheiro Erro;
};

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

// Which texts are refused, fuzz/Dinheiro.cpp tries; here, what is said of each.
TEST(Dinheiro, TextoBrasileiroRecusadoNaoMudaOValor) {
  using enum kx::ErroDinheiro;
  for (const Recusado& caso : {Recusado{"", Vazio},
                               {"-", NaoNumerico},
                               {",50", NaoNumerico},
                               {"1,", NaoNumerico},
                               {"R$ 1,00", NaoNumerico},
                               {"1,00000", CasasDemais},
                               {"922.337.203.685.477,5808", ForaDaFaixa},
                               {"-922.337.203.685.477,5809", ForaDaFaixa},
                               {"18446744073709551616", ForaDaFaixa},
                               {"1844674407370955,1617", ForaDaFaixa}}) {
    CY valor{42};
    EXPECT_EQ(kx::DinheiroDeTextoBrasileiro(caso.Texto, valor), caso.Erro) << caso.Texto;
    EXPECT_EQ(valor.int64, 42) << caso.Texto;
    EXPECT_STRNE(kx::MensagemErroDinheiro(caso.Erro), "");
  }
  EXPECT_STREQ(kx::MensagemErroDinheiro(Nenhum), "");
}

TEST(Dinheiro, Literal) {
  using namespace kx::literais;
  static_assert("15,00"_rs == CY{15'0000} && "-922.337.203.685.477,5808"_rs == CY{kMin});
  constexpr CKXCurrencyEx kFrete = "1.234,5"_rs;
  EXPECT_EQ(kFrete + "-0,0001"_rs, CY{1234'4999});
}

}  // namespace
