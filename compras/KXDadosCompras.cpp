#include "compras/KXDadosCompras.h"

#include <algorithm>
#include <iterator>

#include "core/Registros.h"
#include "gerado/Cabecalhos.inc"
#include "platform/Plataforma.h"

namespace {

// Registered when the library is loaded.
const std::uint32_t gMensagemUltimaTab =
    kx::plataforma::RegistraMensagemJanela("CKXEnter::WM_KXENTER_EH_ULTIMA_TAB");
const std::uint32_t gMensagemPodeSetarFocoTab =
    kx::plataforma::RegistraMensagemJanela("CKXEnter::WM_KXENTER_PODE_SETAR_FOCO_TAB");
const CKXCurrencyEx gZero;

#define KX_REGISTRO(Registro) &KXMetadados<Registro>::kInfo,
constexpr const KXRegistroInfo* kRegistros[] = {
#include "gerado/Registros.def"
};
#undef KX_REGISTRO

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
      std::find_if(std::begin(kRegistros), std::end(kRegistros),
                   [nome](const KXRegistroInfo* info) { return nome == info->Nome; });
  return achado != std::end(kRegistros) ? *achado : nullptr;
}
