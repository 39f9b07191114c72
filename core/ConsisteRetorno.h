// Validation result of the purchasing module.
//
//   CKXDadosCM_ConsisteRetorno retorno;      // no message, module Compras
//   retorno.AdicionaItem({TKXConsisteRetornoItem::eConsiste::Erro,
//                         CKXDadosCM_ConsisteRetorno::MontaMensagemErroCamposPersonalizados(5)});
#pragma once

#include <cstdint>

#include "kxldados/CString.h"
#include "kxldados/TKXConsisteRetorno.h"
#include "platform/Exporta.h"

class KX_API CKXDadosCM_ConsisteRetorno : public TKXConsisteRetorno {
  KX_DECLARA_CLASSE(CKXDadosCM_ConsisteRetorno)

 public:
  // The kinds of the general result, under the module's own name.
  enum class eConsisteCM : std::int32_t {
    Nenhum = static_cast<std::int32_t>(TKXConsisteRetornoItem::eConsiste::Nenhum),
    Aviso = static_cast<std::int32_t>(TKXConsisteRetornoItem::eConsiste::Aviso),
    Pergunta = static_cast<std::int32_t>(TKXConsisteRetornoItem::eConsiste::Pergunta),
    Erro = static_cast<std::int32_t>(TKXConsisteRetornoItem::eConsiste::Erro),
  };

  // An empty result of the module Compras.
  CKXDadosCM_ConsisteRetorno() noexcept;
  // One message with a code of the module given, of Compras when none is. The code is kept in 32
  // bits.
  CKXDadosCM_ConsisteRetorno(eConsisteCM tipo, unsigned long codigo, KXModulo modulo, bool flag);
  CKXDadosCM_ConsisteRetorno(eConsisteCM tipo, unsigned long codigo, bool flag);
  // One message with a free text; a text has no message file, so the module is Nenhum.
  CKXDadosCM_ConsisteRetorno(eConsisteCM tipo, CString mensagem);
  CKXDadosCM_ConsisteRetorno(const CKXDadosCM_ConsisteRetorno& outro) = default;
  CKXDadosCM_ConsisteRetorno(CKXDadosCM_ConsisteRetorno&& outro) noexcept = default;
  CKXDadosCM_ConsisteRetorno& operator=(const CKXDadosCM_ConsisteRetorno& outro);
  CKXDadosCM_ConsisteRetorno& operator=(CKXDadosCM_ConsisteRetorno&& outro) noexcept;
  ~CKXDadosCM_ConsisteRetorno() override;

  // The label of a user-defined field, "Vendedor" (Latin-1), by the field's code, from 5 to 869. A
  // code that is not of such a field has the empty label: that is no error.
  static CString RotuloCampoPersonalizado(const long& codigo);
  // "<label> deve ser informado.", for a required user-defined field that was left empty. With the
  // empty label it reads " deve ser informado.", blank included: whoever may have another code asks
  // for the label first.
  static CString MontaMensagemErroCamposPersonalizados(const long& codigo);

 protected:
  // No message, module Compras.
  void OnLimpar() override;
};
