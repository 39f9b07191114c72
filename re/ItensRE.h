// Product and service items of the goods receipt, with what hangs from them. Money, quantities and
// rates are in 1/10,000. Codes of taxes, movements and import declarations belong to the fiscal
// server and pass through unchanged.
//
// Conversions take their arrays from the task allocator (ZerarGlobalAlloc releases them). Equality
// compares whole records and all collections.
#pragma once

#include "core/Financeiro.h"
#include "re/EstoqueRE.h"
#include "re/RateioRE.h"
#include "re/RegistrosRE.h"

// Link of an item to a purchase-order item, over tagREG_ASSOCIACAO_ITEM_RE_OCPS (24 bytes). The two
// flags live in the object alone and are not compared.
class KX_API CKXDadosCM_REItemAssociacaoREOC : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REItemAssociacaoREOC, TKXCMBaseParaDados,
                        tagREG_ASSOCIACAO_ITEM_RE_OCPS)
  KX_MEMBRO(CKXDadosCM_REItemAssociacaoREOC, bool, CancelarItem)
  KX_MEMBRO(CKXDadosCM_REItemAssociacaoREOC, bool, EhIncluirTodos)

#define KX_CLASSE CKXDadosCM_REItemAssociacaoREOC
#define KX_TABELA "re/tagREG_ASSOCIACAO_ITEM_RE_OCPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Auxiliar(KX_DO_OBJETO(CancelarItem));
    v.Auxiliar(KX_DO_OBJETO(EhIncluirTodos));
  }
};

// Profit-margin line of a product item, over tagREG_MARGEMLUCROPS (56 bytes).
class KX_API CKXDadosCM_REMargemLucro : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REMargemLucro, TKXCMBaseParaDados, tagREG_MARGEMLUCROPS)
  friend class CKXDadosCM_REFormacaoPrecoVenda;

#define KX_CLASSE CKXDadosCM_REMargemLucro
#define KX_TABELA "re/tagREG_MARGEMLUCROPS.def"
#include "core/tabela/Acessores.h"
};

// Sale-price formation: a margin record and the place in the entry to which it belongs.
class KX_API CKXDadosCM_REFormacaoPrecoVenda : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REFormacaoPrecoVenda, TKXCMBaseParaDados, tagREG_MARGEMLUCROPS)
  KX_MEMBRO(CKXDadosCM_REFormacaoPrecoVenda, std::int32_t, PosicaoProduto)      // index of the item
  KX_MEMBRO(CKXDadosCM_REFormacaoPrecoVenda, std::int32_t, PosicaoMargemLucro)  // index in the item
  KX_MEMBRO(CKXDadosCM_REFormacaoPrecoVenda, _REG_POSICAO_PRODUTOPS, RegPosicaoProduto)

#define KX_CLASSE CKXDadosCM_REFormacaoPrecoVenda
#define KX_TABELA "re/tagREG_MARGEMLUCROPS.def"
#include "core/tabela/Acessores.h"

  // Exchange the 56-byte margin record with a margin line; the positions stay. A null destination
  // is left alone.
  CKXDadosCM_REFormacaoPrecoVenda& CopiarDe(CKXDadosCM_REMargemLucro origem);
  const CKXDadosCM_REFormacaoPrecoVenda& CopiarPara(CKXDadosCM_REMargemLucro* destino) const;

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(PosicaoProduto));
    v.Local(KX_DO_OBJETO(PosicaoMargemLucro));
    v.Local(KX_DO_OBJETO(RegPosicaoProduto));
  }
};

// A product item's share of the invoice's totals, over tagREG_ITEM_TOTAIS_ENTRADAPS (352 bytes).
class KX_API CKXDadosCM_REItemProdutoTotais : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REItemProdutoTotais, TKXCMBaseParaDados,
                        tagREG_ITEM_TOTAIS_ENTRADAPS)

  // A getter of money of this class.
  using Function_Get_CURRENCY = const CY& (CKXDadosCM_REItemProdutoTotais::*)() const;

#define KX_CLASSE CKXDadosCM_REItemProdutoTotais
#define KX_TABELA "re/tagREG_ITEM_TOTAIS_ENTRADAPS.def"
#include "core/tabela/Acessores.h"
};

// What product and service items share: the links to purchase-order items.
class KX_API CKXDadosCM_REItemBase : public TKXCMBaseParaDados {
  KX_CLASSE_SEM_REGISTRO(CKXDadosCM_REItemBase, TKXCMBaseParaDados)
  KX_COLECAO(CKXDadosCM_REItemBase, ItemAssociacao, CKXDadosCM_REItemAssociacaoREOC)

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(ListaItemAssociacao));
  }
};

// A product item, over tagREG_ITEM_ENTRADA_PRODUTOPS (1,896 bytes). Fields whose names begin with
// _deprecatedLote are the former lot data of the item, superseded by the stock-entry lines.
class KX_API CKXDadosCM_REItemProduto : public CKXDadosCM_REItemBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REItemProduto, CKXDadosCM_REItemBase,
                        tagREG_ITEM_ENTRADA_PRODUTOPS)
  KX_MEMBRO(CKXDadosCM_REItemProduto, CString, MascaraTagLote)
  KX_COLECAO(CKXDadosCM_REItemProduto, Rateio, CKXDadosCM_RERateioProduto)
  KX_COLECAO(CKXDadosCM_REItemProduto, MargemLucro, CKXDadosCM_REMargemLucro)
  KX_COLECAO(CKXDadosCM_REItemProduto, Imposto, CKXDadosCM_ItemImposto)
  KX_COLECAO(CKXDadosCM_REItemProduto, EntradaEstoque, CKXDadosCM_REEntradaEstoque)
  KX_COLECAO(CKXDadosCM_REItemProduto, Totais, CKXDadosCM_REItemProdutoTotais)

#define KX_CLASSE CKXDadosCM_REItemProduto
#define KX_TABELA "re/tagREG_ITEM_ENTRADA_PRODUTOPS.def"
#include "core/tabela/Acessores.h"

  // A getter of money of this class.
  using Function_Get_CURRENCY = const CY& (CKXDadosCM_REItemProduto::*)() const;
  // A getter of an 8-bit number of this class.
  using Function_Get_UCHAR = const std::uint8_t& (CKXDadosCM_REItemProduto::*)() const;

  // The value of a getter on this item.
  const CY& Get_CURRENCY(Function_Get_CURRENCY getter) const { return (this->*getter)(); }
  const std::uint8_t& Get_UCHAR(Function_Get_UCHAR getter) const { return (this->*getter)(); }

  // Quantity and value that count: those of the complementary invoice when CFOPNFComplementar is 1,
  // the item's own otherwise (also when it is 2 or 255).
  const CY& GetQuantidadeReal() const;
  const CY& GetValorTotalReal() const;
  static CY GetQuantidadeReal(unsigned char complementar, CY normal, CY complemento);
  static CY GetValorTotalReal(unsigned char complementar, CY normal, CY complemento);

 protected:
  // The checksum of the stored record, from 0 whatever is passed in; collections and the lot mask
  // do not enter it.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;

  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaRateio, &Registro::ListaRateio, &Registro::QtdRateio);
    v.ListaHerdada(&Esta::_ListaItemAssociacao, &Registro::ListaItemAssociacao,
                   &Registro::QtdItemAssociacao);
    v.Lista(&Esta::_ListaMargemLucro, &Registro::ListaMargemLucro, &Registro::QtdMargemLucro);
    v.Lista(&Esta::_ListaImposto, &Registro::ListaImposto, &Registro::QtdImposto);
    v.Lista(&Esta::_ListaEntradaEstoque, &Registro::ListaEntradaEstoque,
            &Registro::QtdEntradaEstoque);
    v.Lista(&Esta::_ListaTotais, &Registro::ListaTotais, &Registro::QtdTotais);
    v.Contado(&Esta::_MascaraTagLote, &Registro::MascaraTagLote);
  }
};

// A service item, over tagREG_ITEM_ENTRADA_SERVICOPS (816 bytes).
class KX_API CKXDadosCM_REItemServico : public CKXDadosCM_REItemBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REItemServico, CKXDadosCM_REItemBase,
                        tagREG_ITEM_ENTRADA_SERVICOPS)
  KX_COLECAO(CKXDadosCM_REItemServico, Rateio, CKXDadosCM_RERateioServico)
  KX_COLECAO(CKXDadosCM_REItemServico, Imposto, CKXDadosCM_ItemImposto)
  KX_COLECAO(CKXDadosCM_REItemServico, ProcessoRetencaoAjuizada,
             CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD)
  KX_COLECAO(CKXDadosCM_REItemServico, ProcessoRetencaoAdicionalAjuizada,
             CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD)

  // A getter of money of this class.
  using Function_Get_CURRENCY = const CY& (CKXDadosCM_REItemServico::*)() const;

#define KX_CLASSE CKXDadosCM_REItemServico
#define KX_TABELA "re/tagREG_ITEM_ENTRADA_SERVICOPS.def"
#include "core/tabela/Acessores.h"

 protected:
  // The checksum of the stored record, from 0 whatever is passed in; collections do not enter it.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;

  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaRateio, &Registro::ListaRateio, &Registro::QtdRateio);
    v.ListaHerdada(&Esta::_ListaItemAssociacao, &Registro::ListaItemAssociacao,
                   &Registro::QtdItemAssociacao);
    v.Lista(&Esta::_ListaImposto, &Registro::ListaImposto, &Registro::QtdImposto);
    v.Lista(&Esta::_ListaProcessoRetencaoAjuizada, &Registro::ListaProcessoRetencaoAjuizada,
            &Registro::QtdProcessoRetencaoAjuizada);
    v.Lista(&Esta::_ListaProcessoRetencaoAdicionalAjuizada,
            &Registro::ListaProcessoRetencaoAdicionalAjuizada,
            &Registro::QtdProcessoRetencaoAdicionalAjuizada);
  }
};
