#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <stdexcept>
#include <string>

#include "core/ConsisteRetorno.h"

using eConsiste = TKXConsisteRetornoItem::eConsiste;
using eConsisteCM = CKXDadosCM_ConsisteRetorno::eConsisteCM;

namespace {

constexpr std::string_view kFinal = " deve ser informado.";

std::string Mensagem(long codigo) {
  return std::string(CKXDadosCM_ConsisteRetorno::MontaMensagemErroCamposPersonalizados(codigo));
}

std::string Rotulo(long codigo) {
  std::string rotulo(CKXDadosCM_ConsisteRetorno::RotuloCampoPersonalizado(codigo));
  EXPECT_EQ(Mensagem(codigo), rotulo + std::string(kFinal)) << codigo;
  return rotulo;
}

}  // namespace

TEST(ConsisteRetorno, ModuloDeComprasAoNascerEAoLimpar) {
  CKXDadosCM_ConsisteRetorno retorno;
  EXPECT_EQ(static_cast<int>(retorno.GetModulo()), 7);
  EXPECT_TRUE(retorno.EstaVazio());
  retorno.SeteModuloCodigoKXMensagem(KXModulo::Nenhum);
  retorno.AdicionaItem({eConsiste::Aviso, "texto"});
  EXPECT_FALSE(retorno.EstaVazio());
  retorno.Limpar();
  EXPECT_EQ(static_cast<int>(retorno.GetModulo()), 7);
  EXPECT_TRUE(retorno.EstaVazio());
}

TEST(ConsisteRetorno, ConstrutoresPassamAMensagemABase) {
  const CKXDadosCM_ConsisteRetorno deOutro(eConsisteCM::Erro, 0xFFFFFFFF, KXModulo{12}, true);
  ASSERT_EQ(deOutro.GetQuantidadeItem(), 1);
  EXPECT_EQ(deOutro.GetItem(0),
            TKXConsisteRetornoItem(eConsiste::Erro, KXModulo{12}, 0xFFFFFFFF, true));
  EXPECT_EQ(deOutro.GetModulo(), KXModulo{12});
  EXPECT_EQ(deOutro.GetItem(0).GetCodigo(), 0xFFFFFFFF);

  const CKXDadosCM_ConsisteRetorno dele(eConsisteCM::Pergunta, 42, false);
  EXPECT_EQ(dele.GetItem(0),
            TKXConsisteRetornoItem(eConsiste::Pergunta, KXModulo::Compras, 42, false));
  EXPECT_EQ(dele.GetModulo(), KXModulo::Compras);

  const CKXDadosCM_ConsisteRetorno texto(eConsisteCM::Aviso, CString("Confira."));
  EXPECT_EQ(texto.GetItem(0).GetTexto(), "Confira.");
  EXPECT_EQ(texto.GetItem(0).GetTipo(), eConsiste::Aviso);
  EXPECT_EQ(texto.GetModulo(), KXModulo::Nenhum);
}

TEST(ConsisteRetorno, CopiaTudoEMoveDeixaVazio) {
  CKXDadosCM_ConsisteRetorno origem(eConsisteCM::Erro, 1, KXModulo{12}, true);
  const TKXConsisteRetornoItem aviso(eConsiste::Aviso, CString(std::string(50, 'x')));
  origem.AdicionaItem(aviso);
  const CKXDadosCM_ConsisteRetorno copia = origem;
  CKXDadosCM_ConsisteRetorno atribuida(eConsisteCM::Aviso, 9, false);
  atribuida = origem;
  EXPECT_EQ(copia, origem);
  EXPECT_EQ(atribuida, origem);
  const CKXDadosCM_ConsisteRetorno& ela = atribuida;
  atribuida = ela;
  atribuida.Copiar(nullptr);
  EXPECT_TRUE(atribuida.Igual(&copia));
  CKXDadosCM_ConsisteRetorno movida;
  movida = std::move(origem);
  EXPECT_EQ(movida, copia);
  EXPECT_TRUE(origem.EstaVazio());
}

TEST(ConsisteRetorno, Igualdade) {
  const CKXDadosCM_ConsisteRetorno base(eConsisteCM::Erro, 1, true);
  EXPECT_NE(base, CKXDadosCM_ConsisteRetorno(eConsisteCM::Aviso, 1, true));
  EXPECT_NE(base, CKXDadosCM_ConsisteRetorno(eConsisteCM::Erro, 2, true));
  EXPECT_NE(base, CKXDadosCM_ConsisteRetorno(eConsisteCM::Erro, 1, false));
  EXPECT_NE(base, CKXDadosCM_ConsisteRetorno(eConsisteCM::Erro, 1, KXModulo::Nenhum, true));
  CKXDadosCM_ConsisteRetorno deOutroModulo = base;
  deOutroModulo.SeteModuloCodigoKXMensagem(KXModulo::Nenhum);
  EXPECT_NE(base, deOutroModulo);
  EXPECT_FALSE(base.Igual(nullptr));
  const TKXBaseParaDados deOutraClasse;
  EXPECT_FALSE(CKXDadosCM_ConsisteRetorno().Igual(&deOutraClasse));
}

TEST(ConsisteRetorno, ItensEmOrdemEIndiceTestado) {
  TKXConsisteRetorno retorno;
  retorno.AdicionaItem({eConsiste::Aviso, "a"}).AdicionaItem({eConsiste::Erro, "b"});
  EXPECT_EQ(retorno.GetItem(1).GetTexto(), "b");
  EXPECT_THROW(retorno.GetItem(2), std::out_of_range);
  EXPECT_THROW(retorno.GetItem(-1), std::out_of_range);
  EXPECT_THROW(retorno.DeletarItem(2), std::out_of_range);
  retorno.DeletarItem(0);
  EXPECT_EQ(retorno.GetItem(0).GetTexto(), "b");
  EXPECT_TRUE(retorno.RemoveTodosItem().EstaVazio());
}

TEST(ConsisteRetorno, RotulosDosCamposPersonalizados) {
  EXPECT_EQ(Mensagem(5), "Contato deve ser informado.");
  EXPECT_EQ(Rotulo(9), "CFOP");
  EXPECT_EQ(Rotulo(11), "Hist\xF3rico");
  EXPECT_EQ(Rotulo(105), "Data Entrega");
  EXPECT_EQ(Rotulo(300),
            "C\xF3"
            "digo D\xE9"
            "bito Autom\xE1tico");
  EXPECT_EQ(Rotulo(411), "Tabela de Pre\xE7os (Servi\xE7o)");
  EXPECT_EQ(Rotulo(515), "Fun\xE7\xE3o");
  EXPECT_EQ(Rotulo(516), "E-mail");
}

TEST(ConsisteRetorno, CodigoSemRotuloNaoEhErro) {
  for (const long codigo : {LONG_MIN, -1L, 0L, 4L, 10L, 57L, 517L, 869L, 870L, LONG_MAX}) {
    EXPECT_EQ(Mensagem(codigo), kFinal) << codigo;
  }
}

TEST(ConsisteRetorno, TabelaDeRotulosCompleta) {
  std::set<std::string> distintos;
  int comRotulo = 0;
  for (long codigo = -10; codigo <= 1000; ++codigo) {
    const std::string rotulo = Rotulo(codigo);
    if (rotulo.empty()) continue;
    ++comRotulo;
    distintos.insert(rotulo);
  }
  EXPECT_EQ(comRotulo, 289);
  EXPECT_EQ(distintos.size(), 87u);
}
