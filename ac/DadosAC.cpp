#include "ac/DadosAC.h"

#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosAC";

}  // namespace

KX_IMPLEMENTA(CKXDadosCM_ACUsuario, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_ACUsuarios, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA_SEM_REGISTRO(CKXDadosCM_ACThread, TKXCMBaseParaDados)

// All but the equality, to which a product counts in part.
KX_IMPLEMENTA_REGISTRO(CKXDadosCM_ACAutorizacaoCompra, TKXCMBaseParaDados)
KX_IMPLEMENTA_LIBERACAO(CKXDadosCM_ACAutorizacaoCompra)
KX_IMPLEMENTA_ESCRITA(CKXDadosCM_ACAutorizacaoCompra, Delete)
