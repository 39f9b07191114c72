#include "ct/DadosCT.h"

#include "core/Checksum.h"
#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosCT";

}  // namespace

KX_IMPLEMENTA(CKXDadosCM_CTNotaFiscal, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA_CHECKSUM(CKXDadosCM_CTNotaFiscal)

KX_IMPLEMENTA(CKXDadosCM_CTRateio, CKXDadosCM_RateioBase, Tarefa)
KX_IMPLEMENTA_CHECKSUM(CKXDadosCM_CTRateio)

KX_IMPLEMENTA(CKXDadosCM_CTConhecimentoTransporte, TKXCMBaseParaDados, Tarefa)
KX_IMPLEMENTA_CHECKSUM(CKXDadosCM_CTConhecimentoTransporte)
