// The layouts as they are documented, typed by hand: what a table cannot prove is that its numbers
// are the right ones. Every record has its size here, and offsets from its middle and end.
#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <string_view>

#include "compras/KXDadosCompras.h"
#include "cp/RegistrosCP.h"
#include "oc/RegistrosOC.h"
#include "re/RegistrosRE.h"
#include "sc/RegistrosSC.h"

namespace {

struct Medida {
  std::string_view Onde;
  std::size_t Medido;
  std::size_t Documentado;
};

#define TAMANHO(Registro, Bytes) \
  { #Registro, sizeof(Registro), Bytes }
#define POSICAO(Registro, Campo, Bytes) \
  { #Registro "." #Campo, offsetof(Registro, Campo), Bytes }

constexpr Medida kComuns[] = {
    TAMANHO(tagREG_CM_SITUACAO_PS, 40),
    POSICAO(tagREG_CM_SITUACAO_PS, TemSituacao, 8),
    POSICAO(tagREG_CM_SITUACAO_PS, SemPermissao, 12),
    POSICAO(tagREG_CM_SITUACAO_PS, VersaoGravacao, 13),
    TAMANHO(tagREG_GERENCIALPS, 24),
    POSICAO(tagREG_GERENCIALPS, PonteiroFilial, 4),
    POSICAO(tagREG_GERENCIALPS, Percentual, 16),
    TAMANHO(tagREG_PROCESSO_JURIDICOPS, 16),
    POSICAO(tagREG_PROCESSO_JURIDICOPS, TipoProcesso, 4),
    POSICAO(tagREG_PROCESSO_JURIDICOPS, Valor, 8),
};

constexpr Medida kFinanceiro[] = {
    TAMANHO(tagREG_IMPOSTO_DEDUCAOPS, 280),
    POSICAO(tagREG_IMPOSTO_DEDUCAOPS, TipoDeducao, 12),
    POSICAO(tagREG_IMPOSTO_DEDUCAOPS, Descricao, 16),
    TAMANHO(tagREG_ITEM_IMPOSTOPS, 64),
    POSICAO(tagREG_ITEM_IMPOSTOPS, RegDataFatoGerador, 36),
    POSICAO(tagREG_ITEM_IMPOSTOPS, QtdDeducao, 46),
    POSICAO(tagREG_ITEM_IMPOSTOPS, ListaDeducao, 48),
    TAMANHO(tagREG_COTACAOITEMFATURAPS, 24),
    POSICAO(tagREG_COTACAOITEMFATURAPS, ValorDigitado, 6),
    POSICAO(tagREG_COTACAOITEMFATURAPS, NumeroDias, 16),
    TAMANHO(tagREG_FATURA_COMPRAPS, 24),
    POSICAO(tagREG_FATURA_COMPRAPS, PonteiroTipoVencimento, 4),
    POSICAO(tagREG_FATURA_COMPRAPS, Valor, 8),
    TAMANHO(tagREG_FATURA_CONHECIMENTOPS, 144),
    POSICAO(tagREG_FATURA_CONHECIMENTOPS, NumeroDias, 32),
    POSICAO(tagREG_FATURA_CONHECIMENTOPS, QtdItemImposto, 36),
    POSICAO(tagREG_FATURA_CONHECIMENTOPS, Valor, 40),
    POSICAO(tagREG_FATURA_CONHECIMENTOPS, NumeroDocumento, 56),
    POSICAO(tagREG_FATURA_CONHECIMENTOPS, PonteiroTipoVencimento, 118),
    POSICAO(tagREG_FATURA_CONHECIMENTOPS, PonteiroFormaPagamento, 119),
    POSICAO(tagREG_FATURA_CONHECIMENTOPS, ListaItemImposto, 128),
    TAMANHO(tagREG_FATURA_ENTRADAPS, 248),
    POSICAO(tagREG_FATURA_ENTRADAPS, ValorLiquido, 16),
    POSICAO(tagREG_FATURA_ENTRADAPS, NumeroDocumento, 24),
    POSICAO(tagREG_FATURA_ENTRADAPS, ListaItemImposto, 96),
    TAMANHO(tagREG_TITULO_IMPOSTOPS, 648),
    POSICAO(tagREG_TITULO_IMPOSTOPS, PonteiroTipoCobranca, 50),
    POSICAO(tagREG_TITULO_IMPOSTOPS, ComplementoHistorico, 114),
    POSICAO(tagREG_TITULO_IMPOSTOPS, Situacao, 626),
};

constexpr Medida kRateio[] = {
    TAMANHO(tagREG_RATEIOPRODUTO_ENTRADAPS, 1456),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, _deprecatedEstoqueCalcValorIRRF, 280),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, ListaGerencial, 288),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, ListaGerencialOrigem, 296),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, ListaGerencialFilialClassificacao, 592),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, SerieNotaFiscalOrigem_deprecatedEstoque, 676),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, NEWValor, 712),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, QtdGerencial, 730),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, QtdGerencialFilialClassificacao, 734),
    POSICAO(tagREG_RATEIOPRODUTO_ENTRADAPS, ComplementoHistorico, 897),
    TAMANHO(tagREG_RATEIOSERVICO_ENTRADAPS, 896),
    POSICAO(tagREG_RATEIOSERVICO_ENTRADAPS, InfValorISS, 168),
    POSICAO(tagREG_RATEIOSERVICO_ENTRADAPS, QtdGerencial, 346),
    POSICAO(tagREG_RATEIOSERVICO_ENTRADAPS, ComplementoHistorico, 352),
    POSICAO(tagREG_RATEIOSERVICO_ENTRADAPS, VariavelSomaGerencial, 864),
    POSICAO(tagREG_RATEIOSERVICO_ENTRADAPS, ListaGerencial, 880),
};

constexpr Medida kEstoque[] = {
    TAMANHO(_REG_ITEM_ENTRADA_COMPOSICAOPS, 120),
    POSICAO(_REG_ITEM_ENTRADA_COMPOSICAOPS, RegPosProdutoSubstituido, 24),
    POSICAO(_REG_ITEM_ENTRADA_COMPOSICAOPS, PonteiroControleFCI, 88),
    POSICAO(_REG_ITEM_ENTRADA_COMPOSICAOPS, CasasDecimais, 98),
    TAMANHO(REG_ES_COMPOSICAO_PRODUTOPS, 272),
    POSICAO(REG_ES_COMPOSICAO_PRODUTOPS, RegPosProdutoSubstituido, 80),
    POSICAO(REG_ES_COMPOSICAO_PRODUTOPS, RegPonteiroMovimentoOrigem, 136),
    POSICAO(REG_ES_COMPOSICAO_PRODUTOPS, PonteiroFilial, 200),
    POSICAO(REG_ES_COMPOSICAO_PRODUTOPS, PonteiroControleFCI, 228),
    POSICAO(REG_ES_COMPOSICAO_PRODUTOPS, PonteiroLocal, 248),
    POSICAO(REG_ES_COMPOSICAO_PRODUTOPS, CasasDecimais, 260),
    TAMANHO(_REG_ENTRADA_ESTOQUE_ENTRADAPS, 544),
    POSICAO(_REG_ENTRADA_ESTOQUE_ENTRADAPS, RegPosProduto, 32),
    POSICAO(_REG_ENTRADA_ESTOQUE_ENTRADAPS, LoteESNumeroDeDiaValidade, 98),
    POSICAO(_REG_ENTRADA_ESTOQUE_ENTRADAPS, LoteESNumero, 358),
    POSICAO(_REG_ENTRADA_ESTOQUE_ENTRADAPS, VariavelSomaGerencial, 499),
    POSICAO(_REG_ENTRADA_ESTOQUE_ENTRADAPS, ListaGerencialSaida, 512),
    POSICAO(_REG_ENTRADA_ESTOQUE_ENTRADAPS, ListaGerencial, 520),
};

constexpr Medida kItens[] = {
    TAMANHO(tagREG_ASSOCIACAO_ITEM_RE_OCPS, 24),
    POSICAO(tagREG_ASSOCIACAO_ITEM_RE_OCPS, Ordem, 8),
    POSICAO(tagREG_ASSOCIACAO_ITEM_RE_OCPS, SequenciaItem, 16),
    TAMANHO(tagREG_MARGEMLUCROPS, 56),
    POSICAO(tagREG_MARGEMLUCROPS, PercentualLucroV8, 24),
    POSICAO(tagREG_MARGEMLUCROPS, OpcaoMarkupNovoValor, 38),
    TAMANHO(tagREG_ITEM_TOTAIS_ENTRADAPS, 352),
    POSICAO(tagREG_ITEM_TOTAIS_ENTRADAPS, BaseIPI, 88),
    POSICAO(tagREG_ITEM_TOTAIS_ENTRADAPS, ValorICMSST, 152),
    POSICAO(tagREG_ITEM_TOTAIS_ENTRADAPS, ParcelaImportada, 336),
    TAMANHO(tagREG_ITEM_ENTRADA_PRODUTOPS, 1896),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, PosicaoProduto, 32),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, PosicaoProduto.PonteiroItemGrade3, 40),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, DI_DesembaracoUF, 352),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, Quantidade, 440),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, ValorICMS, 816),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, QtdRateio, 1032),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, ClassificacaoFiscal, 1734),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, CFOPNFComplementar, 1806),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, ListaEntradaEstoque, 1880),
    POSICAO(tagREG_ITEM_ENTRADA_PRODUTOPS, ListaTotais, 1888),
    TAMANHO(tagREG_ITEM_ENTRADA_SERVICOPS, 816),
    POSICAO(tagREG_ITEM_ENTRADA_SERVICOPS, ValorINSS, 192),
    POSICAO(tagREG_ITEM_ENTRADA_SERVICOPS, PonteiroSitServico, 236),
    POSICAO(tagREG_ITEM_ENTRADA_SERVICOPS, ComplementoServico, 258),
    POSICAO(tagREG_ITEM_ENTRADA_SERVICOPS, ListaProcessoRetencaoAdicionalAjuizada, 800),
};

constexpr Medida kEntrada[] = {
    TAMANHO(tagREG_ASSOCIACAO_RE_OCPS, 24),
    POSICAO(tagREG_ASSOCIACAO_RE_OCPS, Ordem, 8),
    TAMANHO(tagREG_NF_REFERIDASPS, 96),
    POSICAO(tagREG_NF_REFERIDASPS, PonteiroECF, 48),
    POSICAO(tagREG_NF_REFERIDASPS, NumeroNotaFiscalOrigem, 59),
    POSICAO(tagREG_NF_REFERIDASPS, SerieNotaFiscalOrigem, 87),
    TAMANHO(tagREG_OBSERVACAO_CFOPPS, 32),
    POSICAO(tagREG_OBSERVACAO_CFOPPS, Observacao, 0),
    POSICAO(tagREG_OBSERVACAO_CFOPPS, PonteiroCFOP, 24),
    TAMANHO(tagREG_ENTRADAPS, 1368),
    POSICAO(tagREG_ENTRADAPS, ObservacaoFisco, 56),
    POSICAO(tagREG_ENTRADAPS, DataPrimeiroVencimento, 128),
    POSICAO(tagREG_ENTRADAPS, ValorTotalNotaFiscal, 264),
    POSICAO(tagREG_ENTRADAPS, PonteiroTipoPeriodo, 464),
    POSICAO(tagREG_ENTRADAPS, PonteiroTipoCobranca, 532),
    POSICAO(tagREG_ENTRADAPS, QtdTituloImposto, 542),
    POSICAO(tagREG_ENTRADAPS, ComplementoHistorico, 556),
    POSICAO(tagREG_ENTRADAPS, Moeda, 1256),
    POSICAO(tagREG_ENTRADAPS, ManterParcelasOriginaisNFe, 1296),
    POSICAO(tagREG_ENTRADAPS, ListaProduto, 1320),
    POSICAO(tagREG_ENTRADAPS, ListaObservacoesCFOP, 1352),
};

constexpr Medida kOrdem[] = {
    TAMANHO(tagREG_RECEBIMENTO_COMPRAPS, 112),
    POSICAO(tagREG_RECEBIMENTO_COMPRAPS, RegDataHoraEntrega, 24),
    POSICAO(tagREG_RECEBIMENTO_COMPRAPS, PonteiroTaxaConversao, 72),
    POSICAO(tagREG_RECEBIMENTO_COMPRAPS, NumeroNotaFiscal, 88),
    POSICAO(tagREG_RECEBIMENTO_COMPRAPS, Recebimento, 104),
    TAMANHO(tagREG_PROGRAMACAO_COMPRAPS, 48),
    POSICAO(tagREG_PROGRAMACAO_COMPRAPS, HoraEntregaAnterior, 18),
    POSICAO(tagREG_PROGRAMACAO_COMPRAPS, QtdRecebimento, 20),
    POSICAO(tagREG_PROGRAMACAO_COMPRAPS, ListaRecebimento, 32),
    TAMANHO(tagREG_RATEIO_COMPRAPS, 576),
    POSICAO(tagREG_RATEIO_COMPRAPS, QtdGerencial, 32),
    POSICAO(tagREG_RATEIO_COMPRAPS, VariavelSomaGerencial, 554),
    POSICAO(tagREG_RATEIO_COMPRAPS, ListaGerencial, 568),
    TAMANHO(tagREG_ITEM_TOTAIS_ORDEMPS, 240),
    POSICAO(tagREG_ITEM_TOTAIS_ORDEMPS, BaseICMS, 96),
    POSICAO(tagREG_ITEM_TOTAIS_ORDEMPS, ValorISSRetido, 224),
    TAMANHO(tagREG_ITENS_ORDEMPS, 896),
    POSICAO(tagREG_ITENS_ORDEMPS, ValorDIFA, 256),
    POSICAO(tagREG_ITENS_ORDEMPS, QtdTotais, 324),
    POSICAO(tagREG_ITENS_ORDEMPS, ItemEhServico, 830),
    POSICAO(tagREG_ITENS_ORDEMPS, InformarValorFCP_ST, 848),
    POSICAO(tagREG_ITENS_ORDEMPS, ListaProgramacao, 872),
    TAMANHO(tagREG_CANCELAMENTO_ORDEM_COMPRAPS, 48),
    TAMANHO(tagREG_ORDEMPS, 3592),
    POSICAO(tagREG_ORDEMPS, DataPrimeiroVencimento, 40),
    POSICAO(tagREG_ORDEMPS, PonteiroTipoPeriodo, 196),
    POSICAO(tagREG_ORDEMPS, PonteiroCondicaoPagamento, 206),
    POSICAO(tagREG_ORDEMPS, QtdCancelamento, 224),
    POSICAO(tagREG_ORDEMPS, Codigo, 3448),
    POSICAO(tagREG_ORDEMPS, Excluido, 3531),
    POSICAO(tagREG_ORDEMPS, ListaItem, 3568),
    POSICAO(tagREG_ORDEMPS, ListaCancelamento, 3576),
    TAMANHO(tagREG_ORDEM_LIGHTPS, 128),
};

constexpr Medida kSolicitacao[] = {
    TAMANHO(tagREG_SOLICITACAO_RATEIO_COMPRAPS, 568),
    POSICAO(tagREG_SOLICITACAO_RATEIO_COMPRAPS, PonteiroHistorico, 28),
    POSICAO(tagREG_SOLICITACAO_RATEIO_COMPRAPS, ComplementoHistorico, 30),
    POSICAO(tagREG_SOLICITACAO_RATEIO_COMPRAPS, QtdGerencial, 558),
    POSICAO(tagREG_SOLICITACAO_RATEIO_COMPRAPS, ListaGerencial, 560),
    TAMANHO(tagREG_SOLICITACAO_COMPRA_FORNECEDORPS, 40),
    POSICAO(tagREG_SOLICITACAO_COMPRA_FORNECEDORPS, TamanhoNomeFornecedor, 4),
    POSICAO(tagREG_SOLICITACAO_COMPRA_FORNECEDORPS, TextoNomeFornecedor, 24),
    POSICAO(tagREG_SOLICITACAO_COMPRA_FORNECEDORPS, TextoObservacao, 32),
    TAMANHO(tagREG_SOLICITACAO_COMPRA_ITEMPS, 136),
    POSICAO(tagREG_SOLICITACAO_COMPRA_ITEMPS, IDItem, 28),
    POSICAO(tagREG_SOLICITACAO_COMPRA_ITEMPS, PonteiroFornecedor, 68),
    POSICAO(tagREG_SOLICITACAO_COMPRA_ITEMPS, TipoControleReposicao, 85),
    POSICAO(tagREG_SOLICITACAO_COMPRA_ITEMPS, TamanhoComplemento, 96),
    POSICAO(tagREG_SOLICITACAO_COMPRA_ITEMPS, QtdRateio, 100),
    POSICAO(tagREG_SOLICITACAO_COMPRA_ITEMPS, TextoObservacao, 112),
    POSICAO(tagREG_SOLICITACAO_COMPRA_ITEMPS, ListaRateio, 120),
    TAMANHO(tagREG_SOLICITACAO_COMPRAPS, 184),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, DataSolicitacao, 40),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, PonteiroUsuarioInclusao, 76),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, QtdFornecedor, 78),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, QtdItem, 80),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, TamanhoObservacao, 82),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, CodigoSolicitacao, 88),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, EmailStatusInclusaoPendente, 149),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, ListaFornecedor, 152),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, ListaItem, 160),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, TextoObservacao, 168),
    POSICAO(tagREG_SOLICITACAO_COMPRAPS, TextoLocalEntrega, 176),
};

constexpr Medida kCotacao[] = {
    TAMANHO(tagREG_COTACAOITEMFORNECEDORPS, 152),
    POSICAO(tagREG_COTACAOITEMFORNECEDORPS, Observacao, 24),
    POSICAO(tagREG_COTACAOITEMFORNECEDORPS, Frete, 64),
    POSICAO(tagREG_COTACAOITEMFORNECEDORPS, PrazoEntrega, 98),
    POSICAO(tagREG_COTACAOITEMFORNECEDORPS, Moeda, 104),
    POSICAO(tagREG_COTACAOITEMFORNECEDORPS, EmailCotacaoWebEnviado, 125),
    TAMANHO(tagREG_COTACAOITEMPRODUTOPS, 168),
    POSICAO(tagREG_COTACAOITEMPRODUTOPS, PosicaoProduto, 48),
    POSICAO(tagREG_COTACAOITEMPRODUTOPS, v8CustoMedio, 112),
    POSICAO(tagREG_COTACAOITEMPRODUTOPS, QtdRateio, 138),
    POSICAO(tagREG_COTACAOITEMPRODUTOPS, Integrado, 145),
    POSICAO(tagREG_COTACAOITEMPRODUTOPS, ListaRateio, 152),
    TAMANHO(tagREG_COTACAOACOMPANHAMENTOPS, 248),
    POSICAO(tagREG_COTACAOACOMPANHAMENTOPS, RegDataHoraEntrega, 24),
    POSICAO(tagREG_COTACAOACOMPANHAMENTOPS, ValorICMSST, 128),
    POSICAO(tagREG_COTACAOACOMPANHAMENTOPS, ValorFCP_ST, 216),
    POSICAO(tagREG_COTACAOACOMPANHAMENTOPS, IndiceFornecedor, 224),
    POSICAO(tagREG_COTACAOACOMPANHAMENTOPS, InformarValorIPI, 237),
    TAMANHO(tagREG_COTACAOPS, 240),
    POSICAO(tagREG_COTACAOPS, LocalEntrega, 24),
    POSICAO(tagREG_COTACAOPS, PonteiroEsteCP, 96),
    POSICAO(tagREG_COTACAOPS, QtdFornecedor, 124),
    POSICAO(tagREG_COTACAOPS, QtdItem, 126),
    POSICAO(tagREG_COTACAOPS, QtdAcompanhamento, 128),
    POSICAO(tagREG_COTACAOPS, CodigoCotacao, 136),
    POSICAO(tagREG_COTACAOPS, Excluido, 193),
    POSICAO(tagREG_COTACAOPS, ListaFornecedor, 208),
    POSICAO(tagREG_COTACAOPS, ListaItem, 216),
    POSICAO(tagREG_COTACAOPS, ListaAcompanhamento, 224),
};

constexpr std::span<const Medida> kAreas[] = {kComuns,  kFinanceiro, kRateio,      kEstoque, kItens,
                                              kEntrada, kOrdem,      kSolicitacao, kCotacao};

class LeiauteDourado : public ::testing::TestWithParam<std::span<const Medida>> {};

TEST_P(LeiauteDourado, ConfereComODocumentado) {
  for (const Medida& medida : GetParam()) {
    EXPECT_EQ(medida.Medido, medida.Documentado) << medida.Onde;
  }
}

INSTANTIATE_TEST_SUITE_P(Areas, LeiauteDourado, ::testing::ValuesIn(kAreas));

bool EstaDocumentado(std::string_view registro) {
  for (const auto& area : kAreas) {
    for (const Medida& medida : area) {
      if (medida.Onde == registro) return true;
    }
  }
  return false;
}

TEST(LeiauteDouradoRegistros, NenhumFicaDeFora) {
  for (const KXRegistroInfo* info : KXRegistros()) {
    EXPECT_TRUE(EstaDocumentado(info->Nome)) << info->Nome;
  }
}

}  // namespace
