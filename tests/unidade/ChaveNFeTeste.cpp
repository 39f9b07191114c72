#include <gtest/gtest.h>

#include <string>

#include "kxldados/ChaveNFe.h"

using kx::ErroChave;

namespace {

constexpr const char* kNumerica = "51160624686092000173570010000000031000000020";
constexpr const char* kAlfanumerica = "35260312ABC34501DE35550010001234561987654327";

// Of a text that must be refused.
ErroChave Erro(std::string_view texto) {
  _KX_NFE_ps chave{{1, 2, 3}};
  const ErroChave erro = kx::ChaveDeTexto(texto, chave);
  EXPECT_EQ(chave, (_KX_NFE_ps{{1, 2, 3}})) << texto;
  return erro;
}

}  // namespace

TEST(ChaveNFe, ExtremosEVazia) {
  _KX_NFE_ps chave{};
  EXPECT_EQ(kx::ModeloDaChave(chave) + kx::SerieDaChave(chave) + kx::NumeroDaChave(chave), 0);
  for (const char* texto : {"00000000000000000000000000000000000000000000",
                            "999999ZZZZZZZZZZZZ99999999999999999999999997"}) {
    EXPECT_EQ(kx::ChaveDeTexto(texto, chave), ErroChave::Nenhum) << texto;
    EXPECT_FALSE(kx::ChaveVazia(chave)) << texto;
    EXPECT_EQ(kx::TextoDeChave(chave), texto);
  }
}

TEST(ChaveNFe, RecusaSemTocarNoDestino) {
  const std::string boa = kAlfanumerica;
  EXPECT_EQ(Erro(""), ErroChave::Tamanho);
  EXPECT_EQ(Erro(boa + "0"), ErroChave::Tamanho);
  EXPECT_EQ(Erro(boa.substr(1)), ErroChave::Tamanho);
  std::string minuscula = boa;
  minuscula[8] = 'a';
  EXPECT_EQ(Erro(minuscula), ErroChave::Alfabeto);
  for (std::size_t i = 0; i < boa.size(); ++i) {
    std::string trocada = boa;
    trocada[i] = boa[i] == '4' ? '5' : '4';
    EXPECT_EQ(Erro(trocada), ErroChave::DigitoVerificador) << i;
    const bool aceitaLetra = i >= 6 && i < 18;
    trocada[i] = aceitaLetra ? '[' : 'A';
    EXPECT_EQ(Erro(trocada), ErroChave::Alfabeto) << i;
  }
}

TEST(ChaveNFe, BytesQueNaoSaoChaveDaoTextoVazio) {
  _KX_NFE_ps boa{};
  EXPECT_EQ(kx::TextoDeChave(boa), "");
  kx::ChaveDeTexto(kNumerica, boa);
  _KX_NFE_ps outra = boa;
  outra.Partes[1] += 10'000'000'000'000;
  EXPECT_EQ(kx::TextoDeChave(outra), "");
  outra = boa;
  outra.Partes[2] += 1;
  EXPECT_EQ(kx::TextoDeChave(outra), "");
  outra = boa;
  outra.Partes[0] = ~std::uint64_t{0};
  EXPECT_EQ(kx::TextoDeChave(outra), "");
}

TEST(ChaveNFe, CadaErroTemMensagem) {
  EXPECT_STREQ(kx::MensagemErroChave(ErroChave::Nenhum), "");
  EXPECT_STREQ(kx::MensagemErroChave(ErroChave::DigitoVerificador),
               "O d\xEDgito verificador da chave de acesso n\xE3o confere.");
  EXPECT_STRNE(kx::MensagemErroChave(ErroChave::Tamanho),
               kx::MensagemErroChave(ErroChave::Alfabeto));
}
