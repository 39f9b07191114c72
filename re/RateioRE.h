// Apportionment lines of the goods receipt's items: to which management accounts, branches and
// classifications an item's value, quantity and taxes are charged. Money is in 1/10,000.
//
// Conversions take their arrays from the task allocator (ZerarGlobalAlloc releases them).
#pragma once

#include "core/Rateio.h"
#include "re/RegistrosRE.h"

// Apportionment line of a product item, over tagREG_RATEIOPRODUTO_ENTRADAPS (1,456 bytes). The
// fields whose names hold _deprecatedEstoque are kept so that old records still convert; new code
// does not fill them. Equality compares the whole record and the three collections.
class KX_API CKXDadosCM_RERateioProduto : public CKXDadosCM_RateioBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_RERateioProduto, CKXDadosCM_RateioBase,
                        tagREG_RATEIOPRODUTO_ENTRADAPS)
  KX_COLECAO(CKXDadosCM_RERateioProduto, GerencialOrigem, TKXGerencial)
  KX_COLECAO(CKXDadosCM_RERateioProduto, GerencialFilialClassificacao, TKXGerencial)

  // A getter of money of this class.
  using Function_Get_CURRENCY = const CY& (CKXDadosCM_RERateioProduto::*)() const;

  // The value of a money getter on this line.
  const CY& Get_CURRENCY(Function_Get_CURRENCY getter) const { return (this->*getter)(); }

#define KX_CLASSE CKXDadosCM_RERateioProduto
#define KX_TABELA "re/tagREG_RATEIOPRODUTO_ENTRADAPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.ListaHerdada(&Esta::_ListaGerencial, &Registro::ListaGerencial, &Registro::QtdGerencial);
    v.Lista(&Esta::_ListaGerencialOrigem, &Registro::ListaGerencialOrigem,
            &Registro::QtdGerencialOrigem);
    v.Lista(&Esta::_ListaGerencialFilialClassificacao, &Registro::ListaGerencialFilialClassificacao,
            &Registro::QtdGerencialFilialClassificacao);
  }
};

// Apportionment line of a service item, over tagREG_RATEIOSERVICO_ENTRADAPS (896 bytes). Equality
// compares the whole record and both collections.
class KX_API CKXDadosCM_RERateioServico : public CKXDadosCM_RateioBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_RERateioServico, CKXDadosCM_RateioBase,
                        tagREG_RATEIOSERVICO_ENTRADAPS)
  KX_COLECAO(CKXDadosCM_RERateioServico, GerencialFilialClassificacao, TKXGerencial)

  // A getter of money of this class.
  using Function_Get_CURRENCY = const CY& (CKXDadosCM_RERateioServico::*)() const;

  // The value of a money getter on this line.
  const CY& Get_CURRENCY(Function_Get_CURRENCY getter) const { return (this->*getter)(); }

#define KX_CLASSE CKXDadosCM_RERateioServico
#define KX_TABELA "re/tagREG_RATEIOSERVICO_ENTRADAPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.ListaHerdada(&Esta::_ListaGerencial, &Registro::ListaGerencial, &Registro::QtdGerencial);
    v.Lista(&Esta::_ListaGerencialFilialClassificacao, &Registro::ListaGerencialFilialClassificacao,
            &Registro::QtdGerencialFilialClassificacao);
  }
};
