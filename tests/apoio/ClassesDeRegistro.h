// Every class over a flat record: the sweeps run over this list. A new document adds its classes.
#pragma once

#include <gtest/gtest.h>

#include "ac/DadosAC.h"
#include "cc/DadosCC.h"
#include "core/Financeiro.h"
#include "core/Rateio.h"
#include "cp/DadosCP.h"
#include "ct/DadosCT.h"
#include "oc/DadosOC.h"
#include "re/DadosRE.h"
#include "sc/DadosSC.h"

namespace apoio {

using ClassesDeRegistro = ::testing::Types<
    TKXGerencial, CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD, CKXDadosCM_ImpostoDeducao,
    CKXDadosCM_ItemImposto, CKXDadosCM_Parcela, CKXDadosCM_TituloImposto,
    CKXDadosCM_RERateioProduto, CKXDadosCM_RERateioServico, CKXDadosCM_REComposicao,
    CKXDadosCM_REEntradaEstoque, CKXDadosCM_REItemAssociacaoREOC, CKXDadosCM_REMargemLucro,
    CKXDadosCM_REFormacaoPrecoVenda, CKXDadosCM_REItemProdutoTotais, CKXDadosCM_REItemProduto,
    CKXDadosCM_REItemServico, CKXDadosCM_RENFReferidas, CKXDadosCM_REObservacaoCFOP,
    CKXDadosCM_RERegistroEntrada, CKXDadosCM_RateioOrdemCompra, CKXDadosCM_RecebimentoOrdemCompra,
    CKXDadosCM_ProgramacaoOrdemCompra, CKXDadosCM_ItemTotaisOrdemCompra, CKXDadosCM_ItemOrdemCompra,
    CKXDadosCM_CancelamentoOrdemCompra, CKXDadosCM_OrdemCompra, CKXDadosCM_SCRateio,
    CKXDadosCM_SCFornecedor, CKXDadosCM_SCItem, CKXDadosCM_SCSolicitacaoCompra,
    CKXDadosCM_RateioCotacaoPreco, CKXDadosCM_FornecedorCotacaoPreco, CKXDadosCM_ItemCotacaoPreco,
    CKXDadosCM_AcompanhamentoCotacaoPreco, CKXDadosCM_CotacaoPreco, CKXDadosCM_ACUsuario,
    CKXDadosCM_ACUsuarios, CKXDadosCM_ACAutorizacaoCompra, CKXDadosCM_CTNotaFiscal,
    CKXDadosCM_CTRateio, CKXDadosCM_CTConhecimentoTransporte, CKXDadosCM_CCAditivo,
    CKXDadosCM_CCReajuste, CKXDadosCM_CCNotaFiscal, CKXDadosCM_CCClassificacao,
    CKXDadosCM_CCExecucao, CKXDadosCM_CCParcela, CKXDadosCM_CCUsuario, CKXDadosCM_CCContrato>;

}  // namespace apoio
