// The purchase contract: its calculations, what travels, its texts and what equality sees.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "cc/DadosCC.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Contrato = CKXDadosCM_CCContrato;
using Classificacao = CKXDadosCM_CCClassificacao;
using Parcela = CKXDadosCM_CCParcela;
using Escrito = apoio::RegistroEscrito<tagREG_CONTRATO_COMPRAPS>;

// A percentage, a value and the two calculations between them, of either class.
struct Par {
  const char* Nome;
  CY Percentual;
  CY Valor;
  CY Resultado;
};

template <class Classe>
struct Calculo {
  const char* Nome;
  CY& (Classe::*Percentual)();
  CY& (Classe::*Valor)();
  CKXCurrencyEx (Classe::*CalculaPercentual)(CKXCurrencyEx);
  CKXCurrencyEx (Classe::*CalculaValor)(CKXCurrencyEx);
};

template <class Classe>
Par Executa(const Calculo<Classe>& calculo, char qual, CY percentual, CY valor, CY total) {
  Classe objeto;
  (objeto.*calculo.Percentual)() = percentual;
  (objeto.*calculo.Valor)() = valor;
  const CY resultado = qual == 'P' ? (objeto.*calculo.CalculaPercentual)(total)
                                   : (objeto.*calculo.CalculaValor)(total);
  return {calculo.Nome, (objeto.*calculo.Percentual)(), (objeto.*calculo.Valor)(), resultado};
}

const Calculo<Classificacao> kRateio = {
    "Rateio", &Classificacao::GetPercRateio, &Classificacao::GetValorRateio,
    &Classificacao::CalculaPercentual, &Classificacao::CalculaValor};

const Calculo<Parcela> kDaParcela[] = {
    {"Descontos", &Parcela::GetPercentualDescontos, &Parcela::GetValorDescontos,
     &Parcela::CalculaPercentualDescontos, &Parcela::CalculaValorDescontos},
    {"Juros", &Parcela::GetPercentualJuros, &Parcela::GetValorJuros,
     &Parcela::CalculaPercentualJuros, &Parcela::CalculaValorJuros},
    {"Multas", &Parcela::GetPercentualMultas, &Parcela::GetValorMultas,
     &Parcela::CalculaPercentualMultas, &Parcela::CalculaValorMultas},
};

// Each of the four pairs, calculated in the direction given: 'P' percentage, 'V' value.
std::vector<Par> Executa(char qual, CY percentual, CY valor, CY total) {
  std::vector<Par> pares = {Executa(kRateio, qual, percentual, valor, total)};
  for (const auto& calculo : kDaParcela) {
    pares.push_back(Executa(calculo, qual, percentual, valor, total));
  }
  return pares;
}

constexpr CY kAntes{-77};

// The arithmetic of amounts has a proof of its own, fuzz/Dinheiro.cpp.
TEST(ContratoCalculos, PercentualEValorDoTotal) {
  constexpr CY kCem{1'000'000};
  std::mt19937_64 sorteio(20260101);
  const auto sorteia = [&sorteio](bool zero) {
    return CY{zero ? 0 : static_cast<std::int64_t>(sorteio()) >> (sorteio() % 64)};
  };
  for (int i = 0; i < 2000; ++i) {
    const CY a = sorteia(i % 20 == 0);
    const CY b = sorteia(i % 20 == 1);
    for (const bool percentual : {true, false}) {
      SCOPED_TRACE(testing::Message() << percentual << ' ' << a.int64 << ' ' << b.int64);
      const CKXCurrencyEx x = a;
      const CY esperado = a.int64 == 0 ? CY{} : CY(percentual ? x * kCem / b : x * b / kCem);
      const CY fica = a.int64 == 0 ? kAntes : esperado;
      for (const Par& par :
           Executa(percentual ? 'P' : 'V', percentual ? kAntes : a, percentual ? a : kAntes, b)) {
        EXPECT_EQ(par.Resultado.int64, esperado.int64) << par.Nome;
        EXPECT_EQ((percentual ? par.Percentual : par.Valor).int64, fica.int64) << par.Nome;
        EXPECT_EQ((percentual ? par.Valor : par.Percentual).int64, a.int64) << par.Nome;
      }
    }
  }
}

TEST(Contrato, TextosSaoPonteirosNulosQuandoVazios) {
  const std::string longo(70000, 'x');
  Escrito escrito;
  Contrato().SetObservacao(CString(std::string_view(longo))).CopiarPara(&escrito.Reg);
  EXPECT_EQ(escrito.Reg.TextoObservacao, longo);
  EXPECT_EQ(escrito.Reg.TextoDescricaoContrato, nullptr);

  tagREG_CONTRATO_COMPRAPS recebido{};
  char vazio[] = "";
  char escritoALapis[] = "obra\0resto";
  recebido.TextoObservacao = vazio;
  recebido.TextoDescricaoContrato = escritoALapis;
  Contrato contrato;
  contrato.CopiarDe(&recebido);
  EXPECT_TRUE(contrato.GetObservacao().IsEmpty());
  EXPECT_EQ(contrato.GetDescricaoContrato().Vista(), "obra");
  EXPECT_EQ(contrato.GetReg().TextoDescricaoContrato, nullptr);
}

}  // namespace
