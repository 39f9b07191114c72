// Approval rules: who must approve a purchase of a value band, validity, branch, department,
// product and currency. The groups of a rule are combined with AND, the users inside a group with
// OR.
//
//   CKXDadosCM_ACUsuarios diretoria;                      // either of the two
//   diretoria.AdicionaUsuarios_OR(CKXDadosCM_ACUsuario().SetUsuario(7));
//   diretoria.AdicionaUsuarios_OR(CKXDadosCM_ACUsuario().SetUsuario(9));
//   CKXDadosCM_ACAutorizacaoCompra regra;
//   regra.SetCodigo("DIR").SetFaixaValorInicial(CY{500000000}).AdicionaUsuarios_AND(diretoria);
//   const kx::RegistroDe registro(regra);  // releases itself
//
// Money is in 1/10,000. Grupo and StatusProdutoServico belong to the screens and the server and
// pass through unchanged.
#pragma once

#include "ac/RegistrosAC.h"
#include "core/ClasseDeRegistro.h"
#include "core/Colecao.h"
#include "core/TKXCMBaseParaDados.h"

// One approver, over tagREG_CM_AUTORIZACAO_USUARIO_CMSAUTPS (8 bytes). Equality compares Usuario.
class KX_API CKXDadosCM_ACUsuario : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ACUsuario, TKXCMBaseParaDados,
                        tagREG_CM_AUTORIZACAO_USUARIO_CMSAUTPS)

#define KX_CLASSE CKXDadosCM_ACUsuario
#define KX_TABELA "ac/tagREG_CM_AUTORIZACAO_USUARIO_CMSAUTPS.def"
#include "core/tabela/Acessores.h"
};

// One approver group, over tagREG_CM_AUTORIZACAO_USUARIOS_CMSAUTPS (24 bytes). Equality compares
// the approvers in their order.
class KX_API CKXDadosCM_ACUsuarios : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ACUsuarios, TKXCMBaseParaDados,
                        tagREG_CM_AUTORIZACAO_USUARIOS_CMSAUTPS)
  KX_COLECAO(CKXDadosCM_ACUsuarios, Usuarios_OR, CKXDadosCM_ACUsuario)

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaUsuarios_OR, &Registro::ListaUsuarios_OR, &Registro::QtdUsuarios_OR);
  }
};

// One approval rule, over tagREG_CM_AUTORIZACAO_CMSAUTPS (192 bytes), with its approver groups.
//
// Equality compares the groups in their order and the fields of the rule itself. Left out are the
// keys ChaveEste and ChaveProximoHistorico, the stamps of creation and last change, Excluido and
// the reserved bytes. A product counts only where both PonteiroProdutoServico and
// StatusProdutoServico are set: two rules that name none are equal whatever is in either field.
class KX_API CKXDadosCM_ACAutorizacaoCompra : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ACAutorizacaoCompra, TKXCMBaseParaDados,
                        tagREG_CM_AUTORIZACAO_CMSAUTPS)
  KX_COLECAO(CKXDadosCM_ACAutorizacaoCompra, Usuarios_AND, CKXDadosCM_ACUsuarios)

#define KX_CLASSE CKXDadosCM_ACAutorizacaoCompra
#define KX_TABELA "ac/tagREG_CM_AUTORIZACAO_CMSAUTPS.def"
#include "core/tabela/Acessores.h"

  // PonteiroProdutoServico and the three grid items as one value, its reserved bytes zero.
  _REG_POSICAO_PRODUTOPS GetRegPosicaoProdutoServico() const;
  CKXDadosCM_ACAutorizacaoCompra& SetRegPosicaoProdutoServico(const _REG_POSICAO_PRODUTOPS& valor);

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaUsuarios_AND, &Registro::ListaUsuarios_AND, &Registro::QtdUsuarios_AND);
  }

 private:
  // A product without a status, or a status without a product, names none.
  static Registro ComoSeCompara(Registro regra);
};
