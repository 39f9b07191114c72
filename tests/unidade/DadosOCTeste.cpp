// The purchase order: the rules of the order, its items and what hangs from them.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "oc/DadosOC.h"
#include "tests/apoio/Igualdade.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Ordem = CKXDadosCM_OrdemCompra;
using Item = CKXDadosCM_ItemOrdemCompra;
using Rateio = CKXDadosCM_RateioOrdemCompra;
using Programacao = CKXDadosCM_ProgramacaoOrdemCompra;
using Totais = CKXDadosCM_ItemTotaisOrdemCompra;

constexpr CY Dinheiro(std::int64_t unidades) { return CY{unidades * 10000}; }

// A product with its children and a free-text item, bought in two installments.
Ordem OrdemCompleta() {
  Rateio rateio;
  rateio.SetValor(Dinheiro(50)).AdicionaGerencial(TKXGerencial().SetPonteiroGerencial(3));
  Programacao programacao;
  programacao.AdicionaRecebimento({});
  Item produto;
  produto.SetPonteiroProdutoServico(7).SetQuantidade(Dinheiro(2)).SetComplemento("azul");
  produto.AdicionaRateio(rateio).AdicionaProgramacao(programacao).AdicionaTotais(Totais());
  Ordem ordem;
  ordem.AdicionaItem(produto).AdicionaItem(Item().SetComplemento("mesa de jantar"));
  ordem.SetPonteiroFornecedor(9).SetValorTotalProdutos(Dinheiro(100));
  ordem.GetCondicaoPagamento().AdicionaParcela({}).AdicionaParcela({});
  return ordem;
}

TEST(OrdemCompra, CancelamentosSoChegam) {
  tagREG_CANCELAMENTO_ORDEM_COMPRAPS cancelamentos[2] = {};
  cancelamentos[1].Valor = Dinheiro(5);
  std::memset(cancelamentos[1].Reserva_32, 0x5A, sizeof(cancelamentos[1].Reserva_32));
  tagREG_ORDEMPS recebido{};
  recebido.QtdCancelamento = 2;
  recebido.ListaCancelamento = cancelamentos;
  Ordem ordem;
  ordem.CopiarDe(&recebido);
  ASSERT_EQ(ordem.GetQuantidadeCancelamento(), 2);
  EXPECT_EQ(std::memcmp(&ordem.GetCancelamento(1).GetReg(), &cancelamentos[1], 48), 0);
  EXPECT_EQ(ordem, Ordem());

  apoio::RegistroEscrito<tagREG_ORDEMPS> escrito;
  ordem.CopiarPara(&escrito.Reg);
  const tagREG_ORDEMPS zero{};
  EXPECT_EQ(std::memcmp(&escrito.Reg, &zero, sizeof(zero)), 0);
}

TEST(OrdemCompra, CondicaoViajaNosCamposDoRegistro) {
  Ordem ordem = OrdemCompleta();
  ordem.GetCondicaoPagamento()
      .SetPonteiroTipoPeriodo(70000)
      .SetDataPrimeiroVencimento({1, 2, 2026})
      .SetPonteiroCondicaoPagamento(5);
  ordem.GetCondicaoPagamento().GetRefParcela(1).SetValor(Dinheiro(30)).SetNumeroDias(60);
  apoio::RegistroEscrito<tagREG_ORDEMPS> escrito;
  ordem.CopiarPara(&escrito.Reg);
  EXPECT_EQ(escrito.Reg.PonteiroTipoPeriodo, 70000U);
  EXPECT_EQ(escrito.Reg.DataPrimeiroVencimento, (REG_KXDMA{1, 2, 2026}));
  EXPECT_EQ(escrito.Reg.PonteiroCondicaoPagamento, 5);
  ASSERT_EQ(escrito.Reg.QtdParcela, 2);
  EXPECT_EQ(escrito.Reg.ListaParcela[1].Valor, Dinheiro(30));

  Ordem volta;
  volta.CopiarDe(&escrito.Reg);
  EXPECT_EQ(volta, ordem);
  EXPECT_EQ(volta.GetReg().QtdItem, 0);
  EXPECT_EQ(volta.GetReg().ListaParcela, nullptr);
}

TEST(OrdemCompra, CompetenciaVemAntesDaEmissao) {
  constexpr REG_KXDMA kEmissao{1, 2, 2026};
  constexpr REG_KXDMA kCompetencia{3, 4, 2026};
  for (const REG_KXDMA& competencia : {REG_KXDMA{}, kCompetencia}) {
    const REG_KXDMA esperada = competencia == kCompetencia ? kCompetencia : kEmissao;
    tagREG_ORDEM_LIGHTPS leve{};
    leve.RegDataEmissao = kEmissao;
    leve.RegDataCompetencia = competencia;
    const Ordem ordem = Ordem().SetRegDataEmissao(kEmissao).SetRegDataCompetencia(competencia);
    EXPECT_EQ(ordem.GetDataEmissaoOuCompetencia(), esperada);
    EXPECT_EQ(Ordem::GetDataEmissaoOuCompetencia(leve), esperada);
    EXPECT_EQ(Ordem::GetDataEmissaoOuCompetencia(kEmissao, competencia), esperada);
  }
}

// The answers of Igual(x, 0, 0), (x, 0, 1), (x, 1, 0), (x, 1, 1) and ==, one bit each from the
// left.
std::string Respostas(const Ordem& ordem, const Ordem& outra) {
  std::string respostas;
  for (const bool resposta : {ordem.Igual(outra, 0, 0), ordem.Igual(outra, 0, 1),
                              ordem.Igual(outra, 1, 0), ordem.Igual(outra, 1, 1), ordem == outra}) {
    respostas += resposta ? '1' : '0';
  }
  return respostas;
}

TEST(OrdemCompra, IgualVeCondicaoTextoEContas) {
  const struct {
    const char* Nome;
    void (*Muda)(Ordem&);
    const char* Esperado;
  } casos[] = {
      {"nada", [](Ordem&) {}, "11111"},
      {"condicao", [](Ordem& o) { o.GetCondicaoPagamento().AdicionaParcela({}); }, "00100"},
      {"mais um item", [](Ordem& o) { o.AdicionaItem(Item()); }, "00000"},
      {"entrega a mais", [](Ordem& o) { o.GetRefItem(0).AdicionaProgramacao({}); }, "11110"},
      {"rateio a mais", [](Ordem& o) { o.GetRefItem(1).AdicionaRateio({}); }, "00000"},
      {"gerencial",
       [](Ordem& o) { o.GetRefItem(0).GetRefRateio(0).GetRefGerencial(0).SetValor({1}); }, "00000"},
  };
  const Ordem ordem = OrdemCompleta();
  for (const auto& caso : casos) {
    Ordem outra = ordem;
    caso.Muda(outra);
    EXPECT_EQ(Respostas(ordem, outra), caso.Esperado) << caso.Nome;
    EXPECT_TRUE(ordem.Igual(&outra)) << "the base's answer";
  }
}

// The fields of one part of the order's record that decide Igual, each tried by changing its first
// byte.
template <class REG>
apoio::Nomes DecidemIgual(const tagREG_ORDEMPS& registro, REG& parte, int semFornecedor,
                          int comCondicao) {
  const Ordem ordem = Ordem().CopiarDe(&registro);
  apoio::Nomes nomes;
  for (const KXCampo& campo : KXMetadados<REG>::kCampos) {
    if (!apoio::TemAcessor(campo)) continue;
    auto* byte = reinterpret_cast<unsigned char*>(&parte) + campo.Posicao;
    *byte ^= 1;
    const Ordem outra = Ordem().CopiarDe(&registro);
    *byte ^= 1;
    if (!ordem.Igual(outra, semFornecedor, comCondicao)) nomes.insert(campo.Nome);
  }
  return nomes;
}

TEST(OrdemCompra, IgualVeOConteudoComercial) {
  const apoio::Nomes fornecedor{"PonteiroFornecedor", "PonteiroDepartamento", "PonteiroComprador"};
  const apoio::Nomes semFornecedor{"RegDataCompetencia",
                                   "RegDataNecessidade",
                                   "Moeda",
                                   "RegDataEntrega",
                                   "ValorDescontoTotalProdutos",
                                   "ValorDescontoTotalServicos",
                                   "ValorTotalIPI",
                                   "ValorTotalICMS",
                                   "ValorTotalICMSST",
                                   "ValorDescontoNaNota",
                                   "ValorTotalOrdemCompra",
                                   "ValorFrete",
                                   "ValorSeguro",
                                   "ValorDespesasAcessorias"};
  const apoio::Nomes produto{"PonteiroTabelaPreco",    "PonteiroProdutoServico",
                             "PonteiroItemGrade1",     "PonteiroItemGrade2",
                             "PonteiroItemGrade3",     "Quantidade",
                             "ValorUnitarioV8",        "DescontoUnitarioV8",
                             "ValorDescontoTotalItem", "ValorIPI"};
  const apoio::Nomes rateio{"Quantidade", "Valor", "PonteiroClassificacao"};
  apoio::Nomes completa = semFornecedor;
  completa.insert(fornecedor.begin(), fornecedor.end());
  apoio::Nomes textoLivre = produto;
  textoLivre.insert("Complemento");

  apoio::RegistroEscrito<tagREG_ORDEMPS> escrito;
  OrdemCompleta().CopiarPara(&escrito.Reg);
  tagREG_ORDEMPS& ordem = escrito.Reg;
  for (const int sem : {0, 1}) {
    for (const int com : {0, 1}) {
      EXPECT_EQ(DecidemIgual(ordem, ordem, sem, com), sem == 0 ? completa : semFornecedor);
      EXPECT_EQ(DecidemIgual(ordem, ordem.ListaItem[0], sem, com), produto);
      EXPECT_EQ(DecidemIgual(ordem, ordem.ListaItem[1], sem, com), textoLivre);
      EXPECT_EQ(DecidemIgual(ordem, ordem.ListaItem[0].ListaRateio[0], sem, com), rateio);
    }
  }
}

TEST(OrdemCompra, HistoricoSeComparaPorTresLinhas) {
  const Ordem ordem = Ordem().SetComplementoHistorico("a\r\nb\r\nc\r\nd");
  EXPECT_EQ(ordem, Ordem().SetComplementoHistorico("a\nb\nc\ne"));
  EXPECT_NE(ordem, Ordem().SetComplementoHistorico("a\nb\nx"));
}

TEST(ItemOrdemCompra, TotaisDeUmLadoSoNaoDecidem) {
  Item um;
  um.AdicionaTotais(Totais().SetValorFrete(Dinheiro(1)));
  EXPECT_EQ(um, Item());
  EXPECT_EQ(Item(), um);
  EXPECT_NE(um, Item().SetStatus(1));

  Item outro = um;
  outro.GetRefTotais(0).SetValorISSRetido(CY{1});
  EXPECT_NE(um, outro);
  outro = um;
  outro.AdicionaTotais(Totais());
  EXPECT_NE(um, outro);
}

TEST(ItemOrdemCompra, PosicaoDoProdutoReuneAsPartes) {
  Item item;
  item.SetPosicaoProduto({-5, 1, 2, 3, {9}}).SetPonteiroItemGrade2(8);
  EXPECT_EQ(item.GetPonteiroProdutoServico(), -5);
  EXPECT_EQ(item.GetPosicaoProduto(), (_REG_POSICAO_PRODUTOPS{-5, 1, 8, 3, {9}}));
}

TEST(ItemOrdemCompra, UsoDeImobilizadoEDeProdutoDespesa) {
  const struct {
    char EhServico;
    unsigned short CFOP;
    int Imobilizado;
    int ProdutoDespesa;
  } casos[] = {{0, 0, 1, 1}, {0, 5102, 0, 0}, {1, 0, 1, 0}, {1, 5102, 1, 0}};
  for (const auto& caso : casos) {
    const Item item = Item().SetItemEhServico(caso.EhServico).SetPonteiroCFOP(caso.CFOP);
    EXPECT_EQ(item.GetUsaImobilizado(), caso.Imobilizado);
    EXPECT_EQ(item.GetUsaProdutoDespesa(), caso.ProdutoDespesa);
  }
}

// The count has 16 bits: it wraps, and what is written is what it says.
TEST(ItemOrdemCompra, ContaDeFilhosDaAVolta) {
  for (const std::size_t quantos : {65535U, 65536U, 65537U}) {
    Item item;
    item.SetListaProgramacao(CKXVector<Programacao>(quantos, Programacao().SetHoraEntrega(77)));
    apoio::RegistroEscrito<tagREG_ITENS_ORDEMPS> escrito;
    item.CopiarPara(&escrito.Reg);
    const std::size_t escritos = quantos % 65536;
    EXPECT_EQ(escrito.Reg.QtdProgramacao, escritos);
    ASSERT_EQ(escrito.Reg.ListaProgramacao == nullptr, escritos == 0);
    if (escritos != 0) {
      EXPECT_EQ(escrito.Reg.ListaProgramacao[escritos - 1].HoraEntrega, 77);
    }
    EXPECT_EQ(Item().CopiarDe(&escrito.Reg).GetQuantidadeProgramacao(),
              static_cast<long long>(escritos));
  }
}

}  // namespace
