#include "core/Situacao.h"

KX_IMPLEMENTA_CLASSE(CKXDadosCM_Situacao, TKXBaseParaDados)

CKXDadosCM_Situacao::~CKXDadosCM_Situacao() = default;

CKXDadosCM_Situacao& CKXDadosCM_Situacao::operator=(const CKXDadosCM_Situacao& outro) {
  Copiar(&outro);
  return *this;
}
