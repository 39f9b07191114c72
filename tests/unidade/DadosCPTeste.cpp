// The price quotation: its text blocks, what travels, what equality sees and the identity of its
// suppliers.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "cp/DadosCP.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Cotacao = CKXDadosCM_CotacaoPreco;
using Item = CKXDadosCM_ItemCotacaoPreco;
using Fornecedor = CKXDadosCM_FornecedorCotacaoPreco;
using Acompanhamento = CKXDadosCM_AcompanhamentoCotacaoPreco;
using Escrito = apoio::RegistroEscrito<tagREG_COTACAOPS>;

Cotacao IdaEVolta(const Cotacao& cotacao) {
  Escrito escrito;
  cotacao.CopiarPara(&escrito.Reg);
  Cotacao volta;
  volta.CopiarDe(&escrito.Reg);
  return volta;
}

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

TEST(Cotacao, IndicesForaDasColecoesViajamComoEstao) {
  Cotacao cotacao;
  cotacao.AdicionaAcompanhamento(
      Acompanhamento().SetIndiceFornecedor(9).SetIndiceItem(65535).SetObservacao("a combinar"));
  const Cotacao volta = IdaEVolta(cotacao);
  ASSERT_EQ(volta.GetQuantidadeAcompanhamento(), 1);
  EXPECT_EQ(volta.GetAcompanhamento(0).GetIndiceFornecedor(), 9);
  EXPECT_EQ(volta.GetAcompanhamento(0).GetIndiceItem(), 65535);
  EXPECT_TRUE(volta == cotacao);
}

TEST(Cotacao, LogsNaoContamEVinculoConta) {
  const Cotacao a;
  Cotacao b = a;
  b.AdicionaLogs("linha");
  EXPECT_TRUE(a == b);
  b.GetRefVinculo().SetTipo(1);
  EXPECT_FALSE(a == b);
  const Cotacao volta = IdaEVolta(b);
  EXPECT_EQ(volta.GetQuantidadeLogs(), 0);
  EXPECT_TRUE(volta == a);
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

TEST(CotacaoFornecedor, CondicaoEDesconsiderarContamMasNaoViajam) {
  Fornecedor a;
  a.SetNomeFornecedor("Silva").SetPonteiroFornecedor(5);
  Fornecedor b = a;
  b.GetCondicaoPagamento().AdicionaParcela(CKXDadosCM_Parcela().SetValor(CY{10000}));
  EXPECT_FALSE(a == b);
  Fornecedor c = a;
  c.SetDesconsiderarSituacao(true);
  EXPECT_FALSE(a == c);
  Cotacao cotacao;
  cotacao.AdicionaFornecedor(b).AdicionaFornecedor(c);
  const Cotacao volta = IdaEVolta(cotacao);
  EXPECT_TRUE(volta.GetFornecedor(0) == a);
  EXPECT_TRUE(volta.GetFornecedor(1) == a);
}

TEST(CotacaoItem, ComparaRateioMasNaoReservaNemMarcaDaTela) {
  const Item original;
  EXPECT_TRUE(Item().SetDesconsiderarRateio(true) == original);
  EXPECT_TRUE(Item().SetPosicaoProduto({0, 0, 0, 0, {1, 2, 3, 4, 5, 6}}) == original);
  EXPECT_FALSE(Item().AdicionaRateio(CKXDadosCM_RateioCotacaoPreco()) == original);
}

}  // namespace
