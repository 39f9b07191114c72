// The price quotation: its text blocks, what travels, what equality sees and the identity of its
// suppliers.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "cp/DadosCP.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Cotacao = CKXDadosCM_CotacaoPreco;
using Fornecedor = CKXDadosCM_FornecedorCotacaoPreco;
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

TEST(CotacaoFornecedor, IdentidadeNaoEIgualdade) {
  Fornecedor a;
  a.SetPonteiroFornecedor(5).SetFrete(CY{100});
  Fornecedor b = a;
  b.SetFrete(CY{200});
  EXPECT_TRUE(Fornecedor::CompareElements(a, b));
  EXPECT_FALSE(a == b);
  b = a;
  b.SetPonteiroFornecedor(6);
  EXPECT_FALSE(Fornecedor::CompareElements(a, b));
}

}  // namespace
