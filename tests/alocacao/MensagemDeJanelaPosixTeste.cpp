// The names of window messages, which the library keeps where the system does not.
#include <gtest/gtest.h>

#include "platform/Plataforma.h"
#include "tests/apoio/ContaAlocacoes.h"

namespace {

TEST(FalhasBase, MensagemDeJanelaSemMemoriaNaoTemNumero) {
  const char* nome = "um nome que nao cabe sem tomar memoria";
  apoio::FalhaNaAlocacao(1);
  EXPECT_EQ(kx::plataforma::RegistraMensagemJanela(nome), 0U);
  apoio::FalhaNaAlocacao(0);
  EXPECT_TRUE(apoio::AlocacaoFalhou());
  EXPECT_NE(kx::plataforma::RegistraMensagemJanela(nome), 0U);
}

}  // namespace
