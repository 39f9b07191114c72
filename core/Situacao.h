// CKXDadosCM_Situacao: the server's answer about a document, over tagREG_CM_SITUACAO_PS (40 bytes):
// whether it exists, whether the key was valid, whether it was deleted, whether the user may see
// it. Bytes 0 to 7 and 14 to 39 belong to the server; they are carried, compared and count for
// emptiness. A move is a copy.
#pragma once

#include "core/DadosRegistro.h"
#include "core/Registros.h"

class KX_API CKXDadosCM_Situacao : public T_KXDadosRegistro<tagREG_CM_SITUACAO_PS> {
  KX_DECLARA_CLASSE(CKXDadosCM_Situacao)

 public:
  CKXDadosCM_Situacao() noexcept = default;
  CKXDadosCM_Situacao(const CKXDadosCM_Situacao& outro) noexcept = default;
  CKXDadosCM_Situacao& operator=(const CKXDadosCM_Situacao& outro);
  ~CKXDadosCM_Situacao() override;

#define KX_CLASSE CKXDadosCM_Situacao
#define KX_TABELA "core/tagREG_CM_SITUACAO_PS.def"
#include "core/tabela/Acessores.h"
};
