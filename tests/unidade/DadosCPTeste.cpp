// The price quotation: its text blocks and what travels.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "cp/DadosCP.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Cotacao = CKXDadosCM_CotacaoPreco;
using Escrito = apoio::RegistroEscrito<tagREG_COTACAOPS>;

TEST(Cotacao, TextosSemLimiteEBytesDeSobraZero) {
  const std::string longo(70000, 'x');
  Escrito escrito;
  Cotacao().SetObservacao(CString(std::string_view(longo))).CopiarPara(&escrito.Reg);
  EXPECT_EQ(escrito.Reg.Observacao.Tamanho, longo.size() + 1);
  EXPECT_EQ(escrito.Reg.Observacao.Texto, longo);
  EXPECT_EQ(escrito.Reg.LocalEntrega.Tamanho, 0U);
  EXPECT_EQ(escrito.Reg.LocalEntrega.Texto, nullptr);

  // What a sender left in the spare bytes does not travel on.
  tagREG_COTACAOPS recebido{};
  std::fill(std::begin(recebido.Reserva_16), std::end(recebido.Reserva_16), std::uint8_t{7});
  recebido.Observacao.Reserva = 7;
  Cotacao cotacao;
  cotacao.CopiarDe(&recebido);
  EXPECT_TRUE(cotacao.EstaVazio());
}

}  // namespace
