#include "ac/DadosAC.h"

#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosAC";

}  // namespace

KX_IMPLEMENTA(CKXDadosCM_ACUsuario, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_ACUsuarios, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA_SEM_REGISTRO(CKXDadosCM_ACThread, TKXCMBaseParaDados)
KX_IMPLEMENTA(CKXDadosCM_ACAutorizacaoCompra, TKXCMBaseParaDados, Delete)
