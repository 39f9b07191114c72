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

// The carrier of a save gives its rules by value.
using Gravacao = CKXDadosCM_ACThread;
static_assert(std::is_same_v<decltype(std::declval<Gravacao&>().GetAC()), Regra> &&
              std::is_same_v<decltype(std::declval<Gravacao&>().GetACAnterior()), Regra>);

}  // namespace
