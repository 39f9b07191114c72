// Every accessor that a table makes: what Set stores is found at the row's offset and nowhere else,
// and Get returns it; texts at N - 1, N and N + 1 characters.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

#include "core/Situacao.h"
#include "tests/apoio/ClassesDeRegistro.h"

namespace {

template <class T>
T Padrao() {
  static unsigned char proximo = 1;
  T valor;
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    reinterpret_cast<unsigned char*>(&valor)[i] = proximo++;
  }
  return valor;
}

// The record is `antes` but for the bytes at the offset, which are those given.
template <class REG>
bool SoMudou(REG antes, const REG& depois, std::size_t posicao, const void* bytes,
             std::size_t quantos) {
  std::memcpy(reinterpret_cast<unsigned char*>(&antes) + posicao, bytes, quantos);
  return std::memcmp(&antes, &depois, sizeof(REG)) == 0;
}

template <class T, class Classe, class Grava, class Le>
void TestaCampo(Classe& objeto, const char* nome, std::size_t posicao, Grava grava, Le le) {
  const auto antes = objeto.GetReg();
  const T valor = Padrao<T>();
  EXPECT_EQ(&grava(objeto, valor), &objeto) << nome;
  EXPECT_TRUE(le(objeto) == valor && le(std::as_const(objeto)) == valor) << nome;
  EXPECT_TRUE(SoMudou(antes, objeto.GetReg(), posicao, &valor, sizeof(valor))) << nome;
}

template <class Classe, class Grava, class Le>
void TestaTexto(Classe& objeto, const char* nome, std::size_t posicao, std::size_t largura,
                Grava grava, Le le) {
  for (const std::size_t tamanho : {largura - 1, largura, largura + 1, std::size_t{0}}) {
    const auto antes = objeto.GetReg();
    const std::string texto(tamanho, 'q');
    EXPECT_EQ(&grava(objeto, CString(std::string_view(texto))), &objeto) << nome;
    std::string guardado = texto.substr(0, largura - 1);
    EXPECT_EQ(le(objeto).Vista(), guardado) << nome;
    guardado.resize(largura, '\0');
    EXPECT_TRUE(SoMudou(antes, objeto.GetReg(), posicao, guardado.data(), largura)) << nome;
  }
}

}  // namespace

#define KX_CLASSE CKXDadosCM_Situacao
#define KX_TABELA "core/tagREG_CM_SITUACAO_PS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE TKXGerencial
#define KX_TABELA "core/tagREG_GERENCIALPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD
#define KX_TABELA "core/tagREG_PROCESSO_JURIDICOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_ImpostoDeducao
#define KX_TABELA "core/tagREG_IMPOSTO_DEDUCAOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_ItemImposto
#define KX_TABELA "core/tagREG_ITEM_IMPOSTOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_Parcela
#define KX_TABELA "core/tagREG_FATURA_ENTRADAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_TituloImposto
#define KX_TABELA "core/tagREG_TITULO_IMPOSTOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_RERateioProduto
#define KX_TABELA "re/tagREG_RATEIOPRODUTO_ENTRADAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_RERateioServico
#define KX_TABELA "re/tagREG_RATEIOSERVICO_ENTRADAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REComposicao
#define KX_TABELA "re/_REG_ITEM_ENTRADA_COMPOSICAOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REEntradaEstoque
#define KX_TABELA "re/_REG_ENTRADA_ESTOQUE_ENTRADAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REItemAssociacaoREOC
#define KX_TABELA "re/tagREG_ASSOCIACAO_ITEM_RE_OCPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REMargemLucro
#define KX_TABELA "re/tagREG_MARGEMLUCROPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REFormacaoPrecoVenda
#define KX_TABELA "re/tagREG_MARGEMLUCROPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REItemProdutoTotais
#define KX_TABELA "re/tagREG_ITEM_TOTAIS_ENTRADAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REItemProduto
#define KX_TABELA "re/tagREG_ITEM_ENTRADA_PRODUTOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REItemServico
#define KX_TABELA "re/tagREG_ITEM_ENTRADA_SERVICOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_RENFReferidas
#define KX_TABELA "re/tagREG_NF_REFERIDASPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_REObservacaoCFOP
#define KX_TABELA "re/tagREG_OBSERVACAO_CFOPPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_RERegistroEntrada
#define KX_TABELA "re/tagREG_ENTRADAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_RateioOrdemCompra
#define KX_TABELA "oc/tagREG_RATEIO_COMPRAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_RecebimentoOrdemCompra
#define KX_TABELA "oc/tagREG_RECEBIMENTO_COMPRAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_ProgramacaoOrdemCompra
#define KX_TABELA "oc/tagREG_PROGRAMACAO_COMPRAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_ItemTotaisOrdemCompra
#define KX_TABELA "oc/tagREG_ITEM_TOTAIS_ORDEMPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_ItemOrdemCompra
#define KX_TABELA "oc/tagREG_ITENS_ORDEMPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CancelamentoOrdemCompra
#define KX_TABELA "oc/tagREG_CANCELAMENTO_ORDEM_COMPRAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_OrdemCompra
#define KX_TABELA "oc/tagREG_ORDEMPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_SCRateio
#define KX_TABELA "core/tagREG_SOLICITACAO_RATEIO_COMPRAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_SCFornecedor
#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRA_FORNECEDORPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_SCItem
#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRA_ITEMPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_SCSolicitacaoCompra
#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_RateioCotacaoPreco
#define KX_TABELA "core/tagREG_SOLICITACAO_RATEIO_COMPRAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_FornecedorCotacaoPreco
#define KX_TABELA "cp/tagREG_COTACAOITEMFORNECEDORPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_ItemCotacaoPreco
#define KX_TABELA "cp/tagREG_COTACAOITEMPRODUTOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_AcompanhamentoCotacaoPreco
#define KX_TABELA "cp/tagREG_COTACAOACOMPANHAMENTOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CotacaoPreco
#define KX_TABELA "cp/tagREG_COTACAOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_ACUsuario
#define KX_TABELA "ac/tagREG_CM_AUTORIZACAO_USUARIO_CMSAUTPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_ACAutorizacaoCompra
#define KX_TABELA "ac/tagREG_CM_AUTORIZACAO_CMSAUTPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CTNotaFiscal
#define KX_TABELA "ct/tagREG_NOTAFISCAL_CONHECIMENTOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CTRateio
#define KX_TABELA "ct/tagREG_RATEIO_CONHECIMENTOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CTConhecimentoTransporte
#define KX_TABELA "ct/tagREG_CONHECIMENTOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CCAditivo
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_ADITIVOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CCReajuste
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_REAJUSTEPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CCNotaFiscal
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_NOTA_FISCALPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CCClassificacao
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_CLASSIFICACAOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CCExecucao
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_EXECUCAOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CCParcela
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_PARCELAPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CCUsuario
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_USUARIOPS.def"
#include "tests/apoio/TestaAcessores.h"
#define KX_CLASSE CKXDadosCM_CCContrato
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRAPS.def"
#include "tests/apoio/TestaAcessores.h"
