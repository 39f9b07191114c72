#include "ac/DadosAC.h"

#include "core/Motor.h"

KX_IMPLEMENTA_VIDA(CKXDadosCM_ACThread, TKXCMBaseParaDados)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_ACThread)

CKXDadosCM_ACThread::CKXDadosCM_ACThread() = default;
