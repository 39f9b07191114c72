// Rules of their own of approval rules and of the carrier of a save; the sweeps test the rest.
#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "ac/DadosAC.h"

namespace {

using Regra = CKXDadosCM_ACAutorizacaoCompra;
using Grupo = CKXDadosCM_ACUsuarios;
using Usuario = CKXDadosCM_ACUsuario;

TEST(RegraAprovacao, ProdutoContaSoComSituacao) {
  const auto regra = [](std::uint32_t produto, char situacao) {
    return Regra().SetPonteiroProdutoServico(produto).SetStatusProdutoServico(situacao);
  };
  EXPECT_TRUE(regra(5, 0) == regra(7, 0));
  EXPECT_TRUE(regra(0, 'A') == regra(0, 'B'));
  EXPECT_TRUE(regra(5, 0) == regra(0, 'A'));
  EXPECT_FALSE(regra(5, 'A') == regra(5, 0));
  EXPECT_FALSE(regra(5, 'A') == regra(5, 'B'));
  EXPECT_FALSE(regra(5, 'A') == regra(7, 'A'));
}

TEST(RegraAprovacao, MarcasEChavePropriaNaoContam) {
  Regra a;
  a.SetCodigo("DIR").AdicionaUsuarios_AND(Grupo().AdicionaUsuarios_OR(Usuario().SetUsuario(7)));
  Regra b = a;
  b.SetChaveEste(1).SetExcluido(1);
  EXPECT_TRUE(a == b);
  b.GetRefUsuarios_AND(0).GetRefUsuarios_OR(0).SetUsuario(8);
  EXPECT_FALSE(a == b);
}

TEST(RegraAprovacao, PosicaoDoProdutoEmUmValor) {
  Regra regra;
  regra.SetRegPosicaoProdutoServico({-2, 3, 4, 5, {1, 1, 1, 1, 1, 1}});
  EXPECT_EQ(regra.GetPonteiroProdutoServico(), 0xFFFFFFFEU);
  EXPECT_EQ(regra.GetPonteiroItemGrade1(), 3);
  EXPECT_EQ(regra.GetPonteiroItemGrade3(), 5);
  EXPECT_EQ(regra.GetRegPosicaoProdutoServico(), (_REG_POSICAO_PRODUTOPS{-2, 3, 4, 5, {}}));
}

TEST(RegraAprovacao, ArraysDeNewEmDoisNiveis) {
  Regra regra;
  regra.AdicionaUsuarios_AND(Grupo()).AdicionaUsuarios_AND(
      Grupo().AdicionaUsuarios_OR(Usuario().SetUsuario(7)).AdicionaUsuarios_OR(Usuario()));
  tagREG_CM_AUTORIZACAO_CMSAUTPS registro;
  regra.CopiarPara(&registro);
  EXPECT_EQ(registro.QtdUsuarios_AND, 2);
  EXPECT_EQ(registro.ListaUsuarios_AND[0].ListaUsuarios_OR, nullptr);
  EXPECT_EQ(registro.ListaUsuarios_AND[1].QtdUsuarios_OR, 2);
  EXPECT_EQ(registro.ListaUsuarios_AND[1].ListaUsuarios_OR[0].Usuario, 7);
  Regra::ZerarDelete(&registro);
  EXPECT_EQ(registro.QtdUsuarios_AND, 0);
  EXPECT_EQ(registro.ListaUsuarios_AND, nullptr);
}

TEST(GravacaoDeRegra, CopiaComparaELimpaOsCinco) {
  using Gravacao = CKXDadosCM_ACThread;
  static_assert(std::is_same_v<decltype(std::declval<Gravacao&>().GetAC()), Regra> &&
                std::is_same_v<decltype(std::declval<Gravacao&>().GetACAnterior()), Regra>);
  Gravacao gravacao;
  EXPECT_TRUE(gravacao.EstaVazio());
  gravacao.SetAC(Regra().SetCodigo("A")).SetACAnterior(Regra().SetCodigo("B"));
  gravacao.SetConsisteGrava({CKXDadosCM_ConsisteRetorno::eConsisteCM::Erro, CString("x")});
  gravacao.SetChaveACIn(5).SetChaveACOut(6);
  const Gravacao copia(gravacao);
  EXPECT_TRUE(copia == gravacao);
  EXPECT_TRUE(Gravacao(copia).SetAC(Regra()) != copia);
  EXPECT_TRUE(Gravacao(copia).SetACAnterior(Regra()) != copia);
  EXPECT_TRUE(Gravacao(copia).SetConsisteGrava({}) != copia);
  EXPECT_TRUE(Gravacao(copia).SetChaveACIn(7) != copia);
  EXPECT_TRUE(Gravacao(copia).SetChaveACOut(7) != copia);
  gravacao.Limpar();
  EXPECT_TRUE(gravacao.EstaVazio());
  EXPECT_TRUE(gravacao == Gravacao());
  gravacao = copia;
  EXPECT_EQ(gravacao.GetACAnterior().GetCodigo(), "B");
}

}  // namespace
