// Purchase approval: the rules (ac/RegrasAC.h), their hierarchy (ac/ArvoreAC.h) and what travels
// with one save of a rule.
#pragma once

#include "ac/ArvoreAC.h"
#include "ac/RegrasAC.h"
#include "core/ConsisteRetorno.h"
#include "core/Membro.h"

// One save of a rule: the rule as it is (AC) and as it was (ACAnterior), the result of its
// validation, and the keys of the rule that went in and came out. Both rules are handed out as
// copies. Equality compares all five.
class KX_API CKXDadosCM_ACThread : public TKXCMBaseParaDados {
  KX_CLASSE_SEM_REGISTRO(CKXDadosCM_ACThread, TKXCMBaseParaDados)
  KX_MEMBRO_POR_VALOR(CKXDadosCM_ACThread, CKXDadosCM_ACAutorizacaoCompra, AC)
  KX_MEMBRO_POR_VALOR(CKXDadosCM_ACThread, CKXDadosCM_ACAutorizacaoCompra, ACAnterior)
  KX_MEMBRO(CKXDadosCM_ACThread, CKXDadosCM_ConsisteRetorno, ConsisteGrava)
  KX_MEMBRO(CKXDadosCM_ACThread, std::uint32_t, ChaveACIn)
  KX_MEMBRO(CKXDadosCM_ACThread, std::uint32_t, ChaveACOut)

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(AC));
    v.Local(KX_DO_OBJETO(ACAnterior));
    v.Local(KX_DO_OBJETO(ConsisteGrava));
    v.Local(KX_DO_OBJETO(ChaveACIn));
    v.Local(KX_DO_OBJETO(ChaveACOut));
  }
};
