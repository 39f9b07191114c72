// The purchase contract: its calculations, what travels, its texts and what equality sees.
#include <gtest/gtest.h>

#include <fstream>
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

// tests/dados/gera_vetores_dinheiro.py says what the lines are.
TEST(ContratoCalculos, ConferemComVetoresIndependentes) {
  std::ifstream arquivo(KX_RAIZ "/tests/dados/vetores_dinheiro.txt");
  char operacao = 0;
  CY a{};
  CY b{};
  CY esperado{};
  int linhas = 0;
  for (; arquivo >> operacao >> a.int64 >> b.int64 >> esperado.int64; ++linhas) {
    SCOPED_TRACE(testing::Message() << operacao << ' ' << a.int64 << ' ' << b.int64);
    if (operacao == '*' || operacao == '/') {
      const CKXCurrencyEx x = a;
      EXPECT_EQ(CY(operacao == '*' ? x * b : x / b).int64, esperado.int64);
      continue;
    }
    const bool percentual = operacao == 'P';
    const CY fica = a.int64 == 0 ? kAntes : esperado;
    for (const Par& par : Executa(operacao, percentual ? kAntes : a, percentual ? a : kAntes, b)) {
      EXPECT_EQ(par.Resultado.int64, esperado.int64) << par.Nome;
      EXPECT_EQ((percentual ? par.Percentual : par.Valor).int64, fica.int64) << par.Nome;
      EXPECT_EQ((percentual ? par.Valor : par.Percentual).int64, a.int64) << par.Nome;
    }
  }
  EXPECT_TRUE(arquivo.eof());
  EXPECT_GT(linhas, 2000);
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
