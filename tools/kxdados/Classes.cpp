#include "Classes.h"

#include <concepts>
#include <type_traits>
#include <utility>

#include "ac/DadosAC.h"
#include "cc/DadosCC.h"
#include "core/Financeiro.h"
#include "core/Rateio.h"
#include "core/Situacao.h"
#include "cp/DadosCP.h"
#include "ct/DadosCT.h"
#include "oc/DadosOC.h"
#include "re/DadosRE.h"
#include "sc/DadosSC.h"

namespace kxdados {

namespace {

template <class C>
using RegistroDe = std::remove_cvref_t<decltype(std::declval<const C&>().GetReg())>;

template <class C>
constexpr bool kPorValor = std::same_as<C, CKXDadosCM_CTConhecimentoTransporte>;
static_assert(
    std::same_as<decltype(std::declval<CKXDadosCM_CTConhecimentoTransporte>().GetValorDesconto()),
                 CY>);

// The classes of one header.
template <class... C>
void Junta(std::vector<Classe>& todas, const char* cabecalho) {
  (todas.push_back({C::GetThisClass()->m_lpszClassName, cabecalho,
                    &KXMetadados<RegistroDe<C>>::kInfo, true, kPorValor<C>}),
   ...);
}

template <class C, class REG>
concept LeRegistro = requires(C objeto, const REG* registro) {
  objeto.CopiarDe(registro);
};

// Further records that the class reads.
template <class C, class... REG>
requires(LeRegistro<C, REG>&&...) void JuntaConvertidos(std::vector<Classe>& todas,
                                                        const char* cabecalho) {
  (todas.push_back(
       {C::GetThisClass()->m_lpszClassName, cabecalho, &KXMetadados<REG>::kInfo, false, false}),
   ...);
}

void JuntaComuns(std::vector<Classe>& todas) {
  Junta<CKXDadosCM_Situacao>(todas, "core/Situacao.h");
  Junta<TKXGerencial, CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD>(todas, "core/Rateio.h");
  Junta<CKXDadosCM_ImpostoDeducao, CKXDadosCM_ItemImposto, CKXDadosCM_Parcela,
        CKXDadosCM_TituloImposto>(todas, "core/Financeiro.h");
  JuntaConvertidos<CKXDadosCM_Parcela, tagREG_FATURA_CONHECIMENTOPS, tagREG_FATURA_COMPRAPS,
                   tagREG_COTACAOITEMFATURAPS>(todas, "core/Financeiro.h");
}

void JuntaEntrada(std::vector<Classe>& todas) {
  Junta<CKXDadosCM_RERateioProduto, CKXDadosCM_RERateioServico>(todas, "re/RateioRE.h");
  Junta<CKXDadosCM_REComposicao, CKXDadosCM_REEntradaEstoque>(todas, "re/EstoqueRE.h");
  JuntaConvertidos<CKXDadosCM_REComposicao, REG_ES_COMPOSICAO_PRODUTOPS>(todas, "re/EstoqueRE.h");
  Junta<CKXDadosCM_REItemAssociacaoREOC, CKXDadosCM_REMargemLucro, CKXDadosCM_REFormacaoPrecoVenda,
        CKXDadosCM_REItemProdutoTotais, CKXDadosCM_REItemProduto, CKXDadosCM_REItemServico>(
      todas, "re/ItensRE.h");
  Junta<CKXDadosCM_RENFReferidas, CKXDadosCM_REObservacaoCFOP, CKXDadosCM_RERegistroEntrada>(
      todas, "re/DadosRE.h");
}

void JuntaOrdem(std::vector<Classe>& todas) {
  Junta<CKXDadosCM_RateioOrdemCompra, CKXDadosCM_RecebimentoOrdemCompra,
        CKXDadosCM_ProgramacaoOrdemCompra, CKXDadosCM_ItemTotaisOrdemCompra,
        CKXDadosCM_ItemOrdemCompra>(todas, "oc/ItensOC.h");
  Junta<CKXDadosCM_CancelamentoOrdemCompra, CKXDadosCM_OrdemCompra>(todas, "oc/DadosOC.h");
}

void JuntaSolicitacaoECotacao(std::vector<Classe>& todas) {
  Junta<CKXDadosCM_SCRateio, CKXDadosCM_SCFornecedor, CKXDadosCM_SCItem,
        CKXDadosCM_SCSolicitacaoCompra>(todas, "sc/DadosSC.h");
  Junta<CKXDadosCM_RateioCotacaoPreco, CKXDadosCM_FornecedorCotacaoPreco,
        CKXDadosCM_ItemCotacaoPreco, CKXDadosCM_AcompanhamentoCotacaoPreco,
        CKXDadosCM_CotacaoPreco>(todas, "cp/DadosCP.h");
}

void JuntaAprovacao(std::vector<Classe>& todas) {
  Junta<CKXDadosCM_ACUsuario, CKXDadosCM_ACUsuarios, CKXDadosCM_ACAutorizacaoCompra>(
      todas, "ac/RegrasAC.h");
  JuntaConvertidos<CKXDadosCM_ACTreeAutorizacaoCompra, tagREG_CM_LE_LISTA_AC_CMSAUTPS>(
      todas, "ac/ArvoreAC.h");
}

void JuntaConhecimentoEContrato(std::vector<Classe>& todas) {
  Junta<CKXDadosCM_CTNotaFiscal, CKXDadosCM_CTRateio, CKXDadosCM_CTConhecimentoTransporte>(
      todas, "ct/DadosCT.h");
  Junta<CKXDadosCM_CCAditivo, CKXDadosCM_CCReajuste, CKXDadosCM_CCNotaFiscal,
        CKXDadosCM_CCClassificacao, CKXDadosCM_CCExecucao, CKXDadosCM_CCParcela,
        CKXDadosCM_CCUsuario, CKXDadosCM_CCContrato>(todas, "cc/DadosCC.h");
}

}  // namespace

std::vector<Classe> Classes() {
  std::vector<Classe> todas;
  JuntaComuns(todas);
  JuntaEntrada(todas);
  JuntaOrdem(todas);
  JuntaSolicitacaoECotacao(todas);
  JuntaAprovacao(todas);
  JuntaConhecimentoEContrato(todas);
  return todas;
}

}  // namespace kxdados
