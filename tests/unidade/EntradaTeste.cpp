// The goods receipt: the rules of the entry, its items and its stock-entry lines.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <stdexcept>
#include <string>

#include "re/DadosRE.h"
#include "tests/apoio/Igualdade.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Entrada = CKXDadosCM_RERegistroEntrada;
using Produto = CKXDadosCM_REItemProduto;
using Servico = CKXDadosCM_REItemServico;
using Totais = CKXDadosCM_REItemProdutoTotais;
using RateioProduto = CKXDadosCM_RERateioProduto;
using RateioServico = CKXDadosCM_RERateioServico;

constexpr CY Dinheiro(std::int64_t unidades) { return CY{unidades * 10000}; }

// An entry of two products and one service, with totals and apportionment lines.
Entrada EntradaComItens() {
  Entrada entrada;
  for (int i = 1; i <= 2; ++i) {
    Produto item;
    item.SetValorTotal(Dinheiro(i)).SetLivreCobranca(200);
    item.AdicionaTotais(Totais().SetValorFrete(Dinheiro(10 * i)));
    item.AdicionaTotais(Totais().SetValorFrete(Dinheiro(1000)));
    for (int j = 0; j < 2; ++j) {
      item.AdicionaRateio(RateioProduto().SetNEWValor(Dinheiro(100 * i)));
    }
    item.AdicionaEntradaEstoque(CKXDadosCM_REEntradaEstoque().SetQuantidade(Dinheiro(5 * i)));
    entrada.AdicionaProduto(item);
  }
  Servico servico;
  servico.SetValorTotal(Dinheiro(7));
  servico.AdicionaRateio(RateioServico().SetNEWValor(Dinheiro(70)));
  entrada.AdicionaServico(servico);
  return entrada;
}

TEST(Entrada, ObservacaoECortadaSoNoRegistro) {
  Entrada entrada;
  entrada.SetObservacaoGeral(CString(std::string_view(std::string(7001, 'o'))));
  entrada.SetObservacaoFisco(CString(std::string_view(std::string(7000, 'f'))));
  apoio::RegistroEscrito<tagREG_ENTRADAPS> escrito;
  entrada.CopiarPara(&escrito.Reg);
  EXPECT_EQ(escrito.Reg.ObservacaoGeral.Tamanho, 7001U);
  EXPECT_EQ(std::strlen(escrito.Reg.ObservacaoGeral.Texto), 7000U);
  EXPECT_EQ(escrito.Reg.ObservacaoFisco.Tamanho, 7001U);
  EXPECT_EQ(entrada.GetObservacaoGeral().GetLength(), 7001);
}

TEST(Entrada, CondicaoDePagamentoViajaNoRegistro) {
  Entrada entrada;
  CKXDadosCM_CondicaoPagamento& condicao = entrada.GetCondicaoPagamento();
  condicao.SetPonteiroTipoPeriodo(0x11223344).SetPonteiroTipoCobranca(5);
  condicao.SetPonteiroCondicaoPagamento(6).SetDataPrimeiroVencimento({10, 12, 2026});
  condicao.AdicionaParcela(CKXDadosCM_Parcela().SetValor(Dinheiro(3)).SetNumeroDocumento("001"));
  condicao.AdicionaTituloImposto(CKXDadosCM_TituloImposto().SetValor(Dinheiro(4)));
  apoio::RegistroEscrito<tagREG_ENTRADAPS> escrito;
  entrada.CopiarPara(&escrito.Reg);
  const auto* bytes = reinterpret_cast<const unsigned char*>(&escrito.Reg);
  EXPECT_EQ(bytes[464], 0x44);
  EXPECT_EQ(bytes[532], 5);
  EXPECT_EQ(bytes[522], 6);
  EXPECT_EQ(bytes[128], 10);
  EXPECT_EQ(escrito.Reg.QtdParcela, 1);
  EXPECT_EQ(escrito.Reg.QtdTituloImposto, 1);
  Entrada volta;
  volta.CopiarDe(&escrito.Reg);
  EXPECT_TRUE(volta == entrada);
  volta.GetCondicaoPagamento().Limpar();
  EXPECT_TRUE(volta == Entrada());
}

TEST(Entrada, IgualRespondeComoAComparacao) {
  const Entrada entrada = EntradaComItens();
  EXPECT_TRUE(entrada.Igual(&entrada));
  const Entrada vazia;
  EXPECT_FALSE(entrada.Igual(&vazia));
  EXPECT_FALSE(entrada.Igual(nullptr));
  const CKXDadosCM_RENFReferidas outraClasse;
  EXPECT_FALSE(vazia.Igual(&outraClasse));
}

TEST(Entrada, ClasseBaseDeExecucao) {
  EXPECT_EQ(Entrada::_GetBaseClass(), TKXBaseParaDados::GetThisClass());
  EXPECT_EQ(RateioProduto::_GetBaseClass(), CKXDadosCM_RateioBase::GetThisClass());
  EXPECT_EQ(RateioServico::_GetBaseClass(), CKXDadosCM_RateioBase::GetThisClass());
}

TEST(Entrada, Somas) {
  const Entrada entrada = EntradaComItens();
  const auto valor = [](CKXCurrencyEx soma) { return CY(soma).int64 / 10000; };
  EXPECT_EQ(valor(entrada.GetSomaProdutoDe(&Produto::GetValorTotal)), 3);
  EXPECT_EQ(valor(entrada.GetSomaProdutoDe(&Produto::GetValorTotalReal)), 3);
  EXPECT_EQ(entrada.GetSomaProdutoDe(&Produto::GetLivreCobranca), 400 - 256);
  EXPECT_EQ(valor(entrada.GetSomaServicoDe(&Servico::GetValorTotal)), 7);
  EXPECT_EQ(valor(entrada.GetSomaProdutoTotaisDe(&Totais::GetValorFrete)), 2030);
  EXPECT_EQ(valor(entrada.GetSomaRateioProdutoDe(&RateioProduto::GetNEWValor)), 600);
  EXPECT_EQ(valor(entrada.GetSomaRateioProdutoDe(&RateioProduto::GetNEWValor, 1)), 400);
  EXPECT_EQ(valor(entrada.GetSomaRateioServicoDe(&RateioServico::GetNEWValor)), 70);
  EXPECT_EQ(
      valor(entrada.GetSomaEntradaEstoqueProdutoDe(&CKXDadosCM_REEntradaEstoque::GetQuantidade)),
      15);
  EXPECT_THROW(entrada.GetSomaRateioProdutoDe(&RateioProduto::GetNEWValor, 2), std::out_of_range);

  const Produto& item = entrada.GetProduto(1);
  EXPECT_EQ(valor(Entrada::GetSomaSuper(item, &Produto::GetValorTotal, &Totais::GetValorFrete,
                                        &RateioProduto::GetNEWValor)),
            2 + 20 + 400);
  EXPECT_EQ(valor(Entrada::GetSomaSuper(Produto(), nullptr, &Totais::GetValorFrete, nullptr)), 0);
  Produto deUmTotal;
  deUmTotal.AdicionaTotais(Totais().SetValorFrete(Dinheiro(8)));
  EXPECT_EQ(valor(Entrada::GetSomaSuper(deUmTotal, nullptr, &Totais::GetValorFrete, nullptr)), 8);
  EXPECT_EQ(valor(Entrada::GetSomaSuper(entrada, &Produto::GetValorTotal, &Totais::GetValorFrete,
                                        &RateioProduto::GetNEWValor, &Servico::GetValorTotal,
                                        &RateioServico::GetNEWValor)),
            3 + 30 + 600 + 7 + 70);
  EXPECT_EQ(valor(Entrada::GetSomaRateioProdutoDe_e_ProdutoTotaisDe_deprecated(
                entrada, &RateioProduto::GetNEWValor, &Totais::GetValorFrete)),
            630);
}

TEST(Entrada, FamiliaDaColecao) {
  Entrada entrada = EntradaComItens();
  entrada.TrocaProduto(0, 1);
  EXPECT_EQ(entrada.GetProduto(0).GetValorTotal(), Dinheiro(2));
  entrada.AdicionaProduto(entrada.GetProduto(0));
  EXPECT_EQ(entrada.GetProduto(2).GetValorTotal(), Dinheiro(2));
  entrada.DeletarProduto(0);
  EXPECT_EQ(entrada.GetQuantidadeProduto(), 2);
  EXPECT_EQ(entrada.GetProduto(0).GetValorTotal(), Dinheiro(1));
  EXPECT_EQ(entrada.GetPtrProduto(1), &entrada.GetRefProduto(1));

  const Entrada antes = entrada;
  for (const long long indice : {2LL, -1LL}) {
    EXPECT_THROW(entrada.GetProduto(indice), std::out_of_range);
    EXPECT_THROW(entrada.GetPtrProduto(indice), std::out_of_range);
    EXPECT_THROW(entrada.SetProduto(indice, Produto()), std::out_of_range);
    EXPECT_THROW(entrada.DeletarProduto(indice), std::out_of_range);
    EXPECT_THROW(entrada.TrocaProduto(0, indice), std::out_of_range);
  }
  try {
    entrada.GetProduto(2);
    FAIL();
  } catch (const std::out_of_range& erro) {
    EXPECT_STREQ(erro.what(), "invalid vector<T> subscript");
  }
  EXPECT_TRUE(entrada == antes);

  entrada.AdicionaProduto(Produto());
  entrada.SetValorUnicoProduto(entrada.GetProduto(1));
  EXPECT_EQ(entrada.GetQuantidadeProduto(), 1);
  EXPECT_TRUE(entrada.GetProduto(0) == antes.GetProduto(1));
}

TEST(ItemProduto, QuantidadeEValorReais) {
  Produto item;
  item.SetQuantidade(Dinheiro(10)).SetValorTotal(Dinheiro(20));
  item.SetNFComplementarValorTotal(Dinheiro(5));
  for (const int bandeira : {0, 2, 255}) {
    item.SetCFOPNFComplementar(static_cast<std::uint8_t>(bandeira));
    EXPECT_EQ(item.GetQuantidadeReal(), Dinheiro(10));
    EXPECT_EQ(item.GetValorTotalReal(), Dinheiro(20));
  }
  item.SetCFOPNFComplementar(1);
  EXPECT_EQ(item.GetQuantidadeReal(), Dinheiro(0));
  EXPECT_EQ(item.GetValorTotalReal(), Dinheiro(5));
  EXPECT_EQ(Produto::GetQuantidadeReal(1, Dinheiro(1), Dinheiro(2)), Dinheiro(2));
  EXPECT_EQ(Produto::GetValorTotalReal(255, Dinheiro(1), Dinheiro(2)), Dinheiro(1));
}

TEST(FormacaoPrecoVenda, TrocaSoORegistroDaMargem) {
  CKXDadosCM_REFormacaoPrecoVenda formacao;
  formacao.SetPosicaoProduto(4).SetPosicaoMargemLucro(2);
  CKXDadosCM_REMargemLucro margem;
  margem.SetPrecoNovoV8(Dinheiro(9)).SetLinhaArquivoImportacao(8);
  formacao.CopiarDe(margem);
  EXPECT_EQ(formacao.GetPrecoNovoV8(), Dinheiro(9));
  EXPECT_EQ(formacao.GetPosicaoProduto(), 4);
  formacao.SetPrecoNovoV8(Dinheiro(11)).CopiarPara(&margem);
  EXPECT_EQ(margem.GetPrecoNovoV8(), Dinheiro(11));
  EXPECT_EQ(margem.GetLinhaArquivoImportacao(), 8);
}

TEST(EntradaEstoque, DadosDoLoteSaoEstesEMaisNenhum) {
  using Linha = CKXDadosCM_REEntradaEstoque;
  const std::set<std::string> doLote{"LoteESVolume",
                                     "LoteESNumero",
                                     "LoteESDataValidade",
                                     "LoteESDataFabricacao",
                                     "LoteESNumeroDeDiaValidade",
                                     "LoteTipoReferencia",
                                     "LotePrecoTabelado",
                                     "ArmaFogo_Tipo",
                                     "ArmaFogo_Serie",
                                     "ArmaFogo_Cano",
                                     "ArmaFogo_Descricao"};
  std::set<std::string> achados;
  const auto confere = [&](const char* nome, Linha linha) {
    const Linha vazia;
    if (linha.TemDadosNoLote()) achados.insert(nome);
    EXPECT_FALSE(linha == vazia) << nome;
    linha.ZerarDadosDoLote();
    EXPECT_FALSE(linha.TemDadosNoLote()) << nome;
    EXPECT_EQ(linha == vazia, doLote.count(nome) > 0) << nome;
  };
  confere("ArmaFogo_Descricao", Linha().SetArmaFogo_Descricao("D"));
  for (const KXCampo& campo : KXMetadados<_REG_ENTRADA_ESTOQUE_ENTRADAPS>::kCampos) {
    if (!apoio::TemAcessor(campo) || !campo.Comparado) continue;
    _REG_ENTRADA_ESTOQUE_ENTRADAPS registro{};
    reinterpret_cast<unsigned char*>(&registro)[campo.Posicao] = 1;
    confere(campo.Nome, Linha().CopiarDe(&registro));
  }
  EXPECT_EQ(achados, doLote);
}

TEST(Composicao, FormaDoEstoqueTemZeroNoResto) {
  const apoio::RegistroAleatorio<_REG_ITEM_ENTRADA_COMPOSICAOPS> aleatorio(1);
  CKXDadosCM_REComposicao linha;
  linha.CopiarDe(&aleatorio.Reg);
  REG_ES_COMPOSICAO_PRODUTOPS estoque;
  std::memset(&estoque, 0xAB, sizeof(estoque));
  linha.CopiarPara(&estoque);
  for (const KXCampo& campo : KXMetadados<REG_ES_COMPOSICAO_PRODUTOPS>::kCampos) {
    if (campo.Papel != KXPapel::Zero) continue;
    for (unsigned i = 0; i < campo.Largura; ++i) {
      EXPECT_EQ(reinterpret_cast<unsigned char*>(&estoque)[campo.Posicao + i], 0) << campo.Nome;
    }
  }
  CKXDadosCM_REComposicao volta = linha;
  volta.CopiarDe(&estoque);
  _REG_ITEM_ENTRADA_COMPOSICAOPS semReserva = aleatorio.Reg;
  std::memset(semReserva.Reserva_99, 0, sizeof(semReserva.Reserva_99));
  EXPECT_EQ(std::memcmp(&volta.GetReg(), &semReserva, sizeof(semReserva)), 0);
}

TEST(QualEntradaEstoque, PadroesEPesquisas) {
  CKXDadosCM_REQualEntradaEstoque qual;
  EXPECT_TRUE(qual.EstaVazio());
  EXPECT_FALSE(qual.ContemEntrada(5));
  qual.AdicionaTipoLocalEntrada(5).AdicionaTipoLocalEntrada(5).AdicionaTipoLocalSaida(6);
  qual.AdicionaTipo(CKXDadosCM_REQualEntradaEstoqueTipo().SetTipo(7).SetNome("Venda"));
  EXPECT_EQ(qual.GetQuantidadeTipoLocalEntrada(), 2);
  qual.DeletarTipoLocalEntrada(0);
  EXPECT_TRUE(qual.ContemEntrada(5) && qual.ContemSaida(6) && qual.ContemTipo(7));
  EXPECT_FALSE(qual.ContemEntrada(6) || qual.ContemSaida(5) || qual.ContemTipo(5));

  qual.Limpar();
  EXPECT_EQ(qual.GetQuemContabilizouES(), 1);
  EXPECT_EQ(qual.GetCaracteristicaCFRT(), 12);
  EXPECT_EQ(qual.GetCaracteristicaLocal(), 512);
}

TEST(Espaco, EntradaDeMilItensCabeEmUmVezEUmQuarto) {
  Entrada entrada;
  for (int i = 0; i < 1000; ++i) entrada.AdicionaProduto(EntradaComItens().GetProduto(0));
  apoio::RegistroEscrito<tagREG_ENTRADAPS> escrito;
  entrada.CopiarPara(&escrito.Reg);
  Entrada lida;
  lida.CopiarDe(&escrito.Reg);
  const Produto& item = lida.GetProduto(0);
  const std::size_t registros =
      sizeof(tagREG_ENTRADAPS) +
      1000 * (sizeof(item.GetReg()) + 2 * sizeof(tagREG_ITEM_TOTAIS_ENTRADAPS) +
              2 * sizeof(tagREG_RATEIOPRODUTO_ENTRADAPS) + sizeof(_REG_ENTRADA_ESTOQUE_ENTRADAPS));
  const std::size_t objetos =
      sizeof(Entrada) + lida.GetListaProduto().capacity() * sizeof(Produto) +
      1000 * (item.GetListaTotais().capacity() * sizeof(Totais) +
              item.GetListaRateio().capacity() * sizeof(RateioProduto) +
              item.GetListaEntradaEstoque().capacity() * sizeof(CKXDadosCM_REEntradaEstoque));
  EXPECT_LE(static_cast<double>(objetos), 1.25 * static_cast<double>(registros));
}

}  // namespace
