#include "compras/KXDadosCompras.h"

#include <algorithm>
#include <array>

#include "ac/RegistrosAC.h"
#include "cc/RegistrosCC.h"
#include "core/Registros.h"
#include "cp/RegistrosCP.h"
#include "ct/RegistrosCT.h"
#include "oc/RegistrosOC.h"
#include "platform/Plataforma.h"
#include "re/RegistrosRE.h"
#include "sc/RegistrosSC.h"

namespace {

// Registered when the library is loaded.
const std::uint32_t gMensagemUltimaTab =
    kx::plataforma::RegistraMensagemJanela("CKXEnter::WM_KXENTER_EH_ULTIMA_TAB");
const std::uint32_t gMensagemPodeSetarFocoTab =
    kx::plataforma::RegistraMensagemJanela("CKXEnter::WM_KXENTER_PODE_SETAR_FOCO_TAB");
const CKXCurrencyEx gZero;

template <class... REG>
constexpr std::array<const KXRegistroInfo*, sizeof...(REG)> Registros() {
  return {&KXMetadados<REG>::kInfo...};
}

constexpr auto kRegistros = Registros<
    tagREG_CM_SITUACAO_PS, tagREG_GERENCIALPS, tagREG_PROCESSO_JURIDICOPS, tagREG_IMPOSTO_DEDUCAOPS,
    tagREG_ITEM_IMPOSTOPS, tagREG_COTACAOITEMFATURAPS, tagREG_FATURA_COMPRAPS,
    tagREG_FATURA_CONHECIMENTOPS, tagREG_FATURA_ENTRADAPS, tagREG_TITULO_IMPOSTOPS,
    tagREG_RATEIOPRODUTO_ENTRADAPS, tagREG_RATEIOSERVICO_ENTRADAPS, _REG_ITEM_ENTRADA_COMPOSICAOPS,
    REG_ES_COMPOSICAO_PRODUTOPS, _REG_ENTRADA_ESTOQUE_ENTRADAPS, tagREG_ASSOCIACAO_ITEM_RE_OCPS,
    tagREG_MARGEMLUCROPS, tagREG_ITEM_TOTAIS_ENTRADAPS, tagREG_ITEM_ENTRADA_PRODUTOPS,
    tagREG_ITEM_ENTRADA_SERVICOPS, tagREG_ASSOCIACAO_RE_OCPS, tagREG_NF_REFERIDASPS,
    tagREG_OBSERVACAO_CFOPPS, tagREG_ENTRADAPS, tagREG_RECEBIMENTO_COMPRAPS,
    tagREG_PROGRAMACAO_COMPRAPS, tagREG_RATEIO_COMPRAPS, tagREG_ITEM_TOTAIS_ORDEMPS,
    tagREG_ITENS_ORDEMPS, tagREG_CANCELAMENTO_ORDEM_COMPRAPS, tagREG_ORDEMPS, tagREG_ORDEM_LIGHTPS,
    tagREG_SOLICITACAO_RATEIO_COMPRAPS, tagREG_SOLICITACAO_COMPRA_FORNECEDORPS,
    tagREG_SOLICITACAO_COMPRA_ITEMPS, tagREG_SOLICITACAO_COMPRAPS, tagREG_COTACAOITEMFORNECEDORPS,
    tagREG_COTACAOITEMPRODUTOPS, tagREG_COTACAOACOMPANHAMENTOPS, tagREG_COTACAOPS,
    tagREG_CM_AUTORIZACAO_USUARIO_CMSAUTPS, tagREG_CM_AUTORIZACAO_USUARIOS_CMSAUTPS,
    tagREG_CM_AUTORIZACAO_CMSAUTPS, tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS,
    tagREG_CM_LE_LISTA_AC_CMSAUTPS, tagREG_RATEIO_CONHECIMENTOPS, tagREG_NOTAFISCAL_CONHECIMENTOPS,
    tagREG_CONHECIMENTOPS, tagREG_CONTRATO_COMPRA_ADITIVOPS, tagREG_CONTRATO_COMPRA_REAJUSTEPS,
    tagREG_CONTRATO_COMPRA_NOTA_FISCALPS, tagREG_CONTRATO_COMPRA_CLASSIFICACAOPS,
    tagREG_CONTRATO_COMPRA_EXECUCAOPS, tagREG_CONTRATO_COMPRA_PARCELAPS,
    tagREG_CONTRATO_COMPRA_USUARIOPS, tagREG_CONTRATO_COMPRAPS>();

}  // namespace

const char* KXDadosComprasVersao() noexcept { return KX_VERSAO; }

std::uint32_t KXDadosComprasMensagemUltimaTab() noexcept { return gMensagemUltimaTab; }

std::uint32_t KXDadosComprasMensagemPodeSetarFocoTab() noexcept {
  return gMensagemPodeSetarFocoTab;
}

const CKXCurrencyEx& KXDadosComprasZero() noexcept { return gZero; }

std::span<const KXRegistroInfo* const> KXRegistros() noexcept { return kRegistros; }

const KXRegistroInfo* KXProcuraRegistro(std::string_view nome) noexcept {
  const auto achado =
      std::find_if(kRegistros.begin(), kRegistros.end(),
                   [nome](const KXRegistroInfo* info) { return nome == info->Nome; });
  return achado != kRegistros.end() ? *achado : nullptr;
}
