#include "core/Rateio.h"

#include "core/Motor.h"

KX_IMPLEMENTA_REGISTRO(TKXGerencial, TKXBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(TKXGerencial, kx::Alocador::Tarefa, "DadosCore")
KX_IMPLEMENTA_IGUALDADE(TKXGerencial)

KX_IMPLEMENTA_REGISTRO(CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD, TKXBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD, kx::Alocador::Tarefa,
                        "DadosCore")
KX_IMPLEMENTA_IGUALDADE(CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD)

KX_IMPLEMENTA_VIDA(CKXDadosCM_RateioBase, TKXCMBaseParaDados)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_RateioBase)

CKXDadosCM_RateioBase::CKXDadosCM_RateioBase() = default;
