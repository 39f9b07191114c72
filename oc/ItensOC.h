// Items of a purchase order and what hangs from them: apportionment lines, scheduled deliveries
// with their receipts, and the totals computed by the server. Money, quantities and rates are in
// 1/10,000; times of day are 16-bit values of the server.
//
// Conversions take their arrays from array new (ZerarDelete releases them). Reserved bytes are
// carried unchanged and not compared.
#pragma once

#include "core/Rateio.h"
#include "oc/RegistrosOC.h"

// Apportionment line of an item, over tagREG_RATEIO_COMPRAPS (576 bytes), with its management
// accounts. Equality compares every field and the accounts in their order; of the history
// complement, the first three lines.
class KX_API CKXDadosCM_RateioOrdemCompra : public CKXDadosCM_RateioBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_RateioOrdemCompra, CKXDadosCM_RateioBase, tagREG_RATEIO_COMPRAPS)

#define KX_CLASSE CKXDadosCM_RateioOrdemCompra
#define KX_TABELA "oc/tagREG_RATEIO_COMPRAPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.ListaHerdada(&Esta::_ListaGerencial, &Registro::ListaGerencial, &Registro::QtdGerencial);
  }
};

// Receipt against a scheduled delivery, over tagREG_RECEBIMENTO_COMPRAPS (112 bytes) and remarks of
// any length. Equality compares every field and the remarks.
class KX_API CKXDadosCM_RecebimentoOrdemCompra : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_RecebimentoOrdemCompra, TKXCMBaseParaDados,
                        tagREG_RECEBIMENTO_COMPRAPS)
  KX_MEMBRO(CKXDadosCM_RecebimentoOrdemCompra, CString, Observacao)

#define KX_CLASSE CKXDadosCM_RecebimentoOrdemCompra
#define KX_TABELA "oc/tagREG_RECEBIMENTO_COMPRAPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Contado(&Esta::_Observacao, &Registro::Observacao);
  }
};

// Scheduled delivery of an item, over tagREG_PROGRAMACAO_COMPRAPS (48 bytes), with its receipts.
// Equality compares every field but EmailAtrasado, and the receipts in their order.
class KX_API CKXDadosCM_ProgramacaoOrdemCompra : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ProgramacaoOrdemCompra, TKXCMBaseParaDados,
                        tagREG_PROGRAMACAO_COMPRAPS)
  KX_COLECAO(CKXDadosCM_ProgramacaoOrdemCompra, Recebimento, CKXDadosCM_RecebimentoOrdemCompra)

#define KX_CLASSE CKXDadosCM_ProgramacaoOrdemCompra
#define KX_TABELA "oc/tagREG_PROGRAMACAO_COMPRAPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaRecebimento, &Registro::ListaRecebimento, &Registro::QtdRecebimento);
  }
};

// An item's share of the order's charges and its tax bases, over tagREG_ITEM_TOTAIS_ORDEMPS (240
// bytes). The server computes them; nothing here does. Equality compares all 29 values.
class KX_API CKXDadosCM_ItemTotaisOrdemCompra : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ItemTotaisOrdemCompra, TKXCMBaseParaDados,
                        tagREG_ITEM_TOTAIS_ORDEMPS)

#define KX_CLASSE CKXDadosCM_ItemTotaisOrdemCompra
#define KX_TABELA "oc/tagREG_ITEM_TOTAIS_ORDEMPS.def"
#include "core/tabela/Acessores.h"
};

// Item of a purchase order: a product, a service or, with no product key, a free text in
// Complemento. Over tagREG_ITENS_ORDEMPS (896 bytes).
//
// Equality leaves out the data of the last purchase, AliquotaReducaoIPI, IDItem,
// GerarAcompanhamento, the two FCP entry flags and ExpandirGrid. Apportionment lines and scheduled
// deliveries are compared in their order; so are the totals, unless just one of the items has any:
// an item whose totals are still to be computed equals itself with them.
class KX_API CKXDadosCM_ItemOrdemCompra : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ItemOrdemCompra, TKXCMBaseParaDados, tagREG_ITENS_ORDEMPS)
  // Whether the screen shows the item's children.
  KX_MEMBRO(CKXDadosCM_ItemOrdemCompra, bool, ExpandirGrid)
  KX_COLECAO(CKXDadosCM_ItemOrdemCompra, Rateio, CKXDadosCM_RateioOrdemCompra)
  KX_COLECAO(CKXDadosCM_ItemOrdemCompra, Programacao, CKXDadosCM_ProgramacaoOrdemCompra)
  KX_COLECAO(CKXDadosCM_ItemOrdemCompra, Totais, CKXDadosCM_ItemTotaisOrdemCompra)

#define KX_CLASSE CKXDadosCM_ItemOrdemCompra
#define KX_TABELA "oc/tagREG_ITENS_ORDEMPS.def"
#include "core/tabela/Acessores.h"

  // The product key, the three grid items and the reserved bytes beside them, as one value.
  _REG_POSICAO_PRODUTOPS GetPosicaoProduto() const { return _Reg.PosicaoProduto; }
  CKXDadosCM_ItemOrdemCompra& SetPosicaoProduto(const _REG_POSICAO_PRODUTOPS& valor) {
    _Reg.PosicaoProduto = valor;
    return *this;
  }

  // 1 when the fixed-asset mark applies: to every service, and to a product without a fiscal
  // operation code; otherwise 0.
  int GetUsaImobilizado() const;
  static int GetUsaImobilizado(char ItemEhServico, unsigned short PonteiroCFOP);
  // 1 when the expense mark applies: to a product without a fiscal operation code; otherwise 0.
  int GetUsaProdutoDespesa() const;
  static int GetUsaProdutoDespesa(char ItemEhServico, unsigned short PonteiroCFOP);

 protected:
  // The checksum of the stored record, from 0 whatever is passed in; collections and ExpandirGrid
  // do not enter it.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;

  template <class V>
  static void Partes(V&& v) {
    v.Auxiliar(KX_DO_OBJETO(ExpandirGrid));
    v.Lista(&Esta::_ListaRateio, &Registro::ListaRateio, &Registro::QtdRateio);
    v.Lista(&Esta::_ListaProgramacao, &Registro::ListaProgramacao, &Registro::QtdProgramacao);
    v.ListaSeAmbas(&Esta::_ListaTotais, &Registro::ListaTotais, &Registro::QtdTotais);
  }
};
