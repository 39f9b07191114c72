// The purchase request: its remarks, what equality sees of it and the identity of its suppliers.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "cp/DadosCP.h"
#include "oc/DadosOC.h"
#include "sc/DadosSC.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Solicitacao = CKXDadosCM_SCSolicitacaoCompra;
using Item = CKXDadosCM_SCItem;
using Fornecedor = CKXDadosCM_SCFornecedor;
using Escrito = apoio::RegistroEscrito<tagREG_SOLICITACAO_COMPRAPS>;

CString TextoDe(std::size_t tamanho) {
  std::string texto(tamanho, 'a');
  for (std::size_t i = 0; i < tamanho; ++i) texto[i] = static_cast<char>('a' + i % 26);
  return CString(std::string_view(texto));
}

TEST(Solicitacao, ObservacaoECortadaNoRegistroENoObjeto) {
  for (const std::size_t tamanho : {2499U, 2500U, 2501U, 2600U}) {
    const std::size_t fica = tamanho < 2500 ? tamanho : 2500;
    Solicitacao solicitacao;
    solicitacao.SetObservacao(TextoDe(tamanho));
    Escrito escrito;
    EXPECT_EQ(&solicitacao.CopiarPara(&escrito.Reg), &solicitacao);
    EXPECT_EQ(escrito.Reg.TamanhoObservacao, fica + 1);
    EXPECT_STREQ(escrito.Reg.TextoObservacao, TextoDe(fica).GetString());
    EXPECT_TRUE(solicitacao.GetObservacao() == TextoDe(fica));
  }
}

TEST(Solicitacao, SoAObservacaoTemLimite) {
  Solicitacao solicitacao;
  solicitacao.SetLocalEntrega(TextoDe(2600));
  solicitacao.AdicionaItem(Item().SetObservacao(TextoDe(2600)));
  Escrito escrito;
  solicitacao.CopiarPara(&escrito.Reg);
  EXPECT_EQ(escrito.Reg.TamanhoLocalEntrega, 2601);
  EXPECT_EQ(escrito.Reg.ListaItem[0].TamanhoObservacao, 2601);
}

TEST(SolicitacaoItem, PosicaoDoProdutoSeComparaSemOsBytesReservados) {
  EXPECT_TRUE(Item().SetPosicaoProduto({0, 0, 0, 0, {1, 2, 3, 4, 5, 6}}) == Item());
}

// Of a request and of a quotation.
TEST(Fornecedores, IdentidadeNaoEIgualdade) {
  const auto confere = [](const auto& a, auto b) {
    using F = decltype(b);
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(F::CompareElements(a, b));
    EXPECT_FALSE(F::CompareElements(a, b.SetPonteiroFornecedor(-5)));
    EXPECT_FALSE(F::CompareElements(a, F(a).SetPonteiroFornecedor(6)));
  };
  const auto daSolicitacao = Fornecedor().SetPonteiroFornecedor(5);
  const auto daCotacao = CKXDadosCM_FornecedorCotacaoPreco().SetPonteiroFornecedor(5);
  confere(daSolicitacao, Fornecedor(daSolicitacao).SetNomeFornecedor("Souza"));
  confere(daCotacao, CKXDadosCM_FornecedorCotacaoPreco(daCotacao).SetFrete(CY{200}));
}

// Its size has 16 bits and counts the terminator.
TEST(SolicitacaoFornecedor, TextoLongoViajaAteOndeOTamanhoConta) {
  Fornecedor fornecedor;
  fornecedor.SetObservacao(TextoDe(65'535));
  apoio::RegistroEscrito<tagREG_SOLICITACAO_COMPRA_FORNECEDORPS> escrito;
  fornecedor.CopiarPara(&escrito.Reg);
  EXPECT_EQ(escrito.Reg.TamanhoObservacao, 65'535);
  EXPECT_EQ(std::strlen(escrito.Reg.TextoObservacao), 65'534U);
}

}  // namespace

// Each way of not fitting, at its edge; what is never written takes no room.
TEST(CabeNoRegistro, EmTodosOsNiveis) {
  CKXDadosCM_OrdemCompra ordem;
  ordem.AdicionaItem({}).GetPtrItem(0)->AdicionaProgramacao({});
  auto& recebimentos = ordem.GetPtrItem(0)->GetPtrProgramacao(0)->GetListaRecebimento();
  auto& parcelas = ordem.GetCondicaoPagamento().GetListaParcela();
  recebimentos.resize(65'535);
  parcelas.resize(65'535);
  ordem.GetListaCancelamento().resize(65'536);
  ordem.GetCondicaoPagamento().GetListaTituloImposto().resize(65'536);
  EXPECT_TRUE(ordem.CabeNoRegistro());
  parcelas.resize(65'536);
  EXPECT_FALSE(ordem.CabeNoRegistro());
  parcelas.clear();
  recebimentos.resize(65'536);
  EXPECT_FALSE(ordem.CabeNoRegistro());

  const auto comTexto = [](auto objeto, auto muda, std::size_t tamanho) {
    muda(objeto, CString(std::string(tamanho, 'x')));
    return objeto.CabeNoRegistro();
  };
  const auto local = [](auto& objeto, const CString& texto) { objeto.SetLocalEntrega(texto); };
  const auto observacao = [](auto& objeto, const CString& texto) { objeto.SetObservacao(texto); };
  EXPECT_TRUE(comTexto(CKXDadosCM_SCSolicitacaoCompra(), local, 65'534));
  EXPECT_FALSE(comTexto(CKXDadosCM_SCSolicitacaoCompra(), local, 65'535));
  EXPECT_TRUE(comTexto(CKXDadosCM_SCSolicitacaoCompra(), observacao, 2500));
  EXPECT_FALSE(comTexto(CKXDadosCM_SCSolicitacaoCompra(), observacao, 2501));
  EXPECT_TRUE(comTexto(CKXDadosCM_CotacaoPreco(), observacao, 70'000));
}
