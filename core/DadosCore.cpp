#include "core/DadosCore.h"

#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosCore";

}  // namespace

KX_IMPLEMENTA(TKXGerencial, TKXBaseParaDados, Tarefa)
KX_IMPLEMENTA(CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD, TKXBaseParaDados, Tarefa)
KX_IMPLEMENTA_SEM_REGISTRO(CKXDadosCM_RateioBase, TKXCMBaseParaDados)

KX_IMPLEMENTA(CKXDadosCM_ImpostoDeducao, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA_ESCRITA_PS(CKXDadosCM_ImpostoDeducao)
KX_IMPLEMENTA(CKXDadosCM_ItemImposto, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA_ESCRITA_PS(CKXDadosCM_ItemImposto)
KX_IMPLEMENTA(CKXDadosCM_TituloImposto, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA_ESCRITA_PS(CKXDadosCM_TituloImposto)
KX_IMPLEMENTA_SEM_REGISTRO(CKXDadosCM_CondicaoPagamento, TKXCMBaseParaDados)

// All but the release, which leaves the nested arrays to the caller.
KX_IMPLEMENTA_REGISTRO(CKXDadosCM_Parcela, TKXCMBaseParaDados)
KX_IMPLEMENTA_ESCRITA(CKXDadosCM_Parcela, Delete)
KX_IMPLEMENTA_ESCRITA_PS(CKXDadosCM_Parcela)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_Parcela)

KX_IMPLEMENTA_CLASSE(CKXDadosCM_Situacao, TKXBaseParaDados)

CKXDadosCM_Situacao::~CKXDadosCM_Situacao() = default;

CKXDadosCM_Situacao& CKXDadosCM_Situacao::operator=(const CKXDadosCM_Situacao& outro) {
  Copiar(&outro);
  return *this;
}
