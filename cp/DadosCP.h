// Price quotation: the buyer's request for prices sent to several suppliers for a set of items, and
// the answers collected.
//
//   CKXDadosCM_CotacaoPreco cotacao;
//   cotacao.CopiarDe(&recebido);                                     // record from the server
//   cotacao.GetPtrAcompanhamento(0)->SetPrecoUnitario(CY{125000});    // 12.5000
//   const kx::RegistroDe registro(cotacao);  // record for the server
//
// Money, quantities and rates are in 1/10,000. Codes (Situacao, SituacaoCotacao, OrigemDados,
// StatusProdutoServico, TipoReducaoAcrescimoICMS) belong to the server and pass through unchanged.
//
// Texts that are not fixed-width fields travel whole, in blocks of 24 bytes: a KXStringPS and 8
// bytes that are always zero. Conversions take arrays and texts from array new (ZerarDelete
// releases them). Reserved bytes are carried unchanged and not compared.
#pragma once

#include "core/Financeiro.h"
#include "core/Rateio.h"
#include "cp/RegistrosCP.h"
#include "kxldados/CIEVinculo.h"

// Apportionment line of a quoted item, over tagREG_SOLICITACAO_RATEIO_COMPRAPS (568 bytes), with
// its management accounts. Equality compares every field and the accounts in their order; of the
// history complement, the first three lines.
class KX_API CKXDadosCM_RateioCotacaoPreco : public CKXDadosCM_RateioBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_RateioCotacaoPreco, CKXDadosCM_RateioBase,
                        tagREG_SOLICITACAO_RATEIO_COMPRAPS)

#define KX_CLASSE CKXDadosCM_RateioCotacaoPreco
#define KX_TABELA "core/tagREG_SOLICITACAO_RATEIO_COMPRAPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.ListaHerdada(&Esta::_ListaGerencial, &Registro::ListaGerencial, &Registro::QtdGerencial);
  }
};

// A supplier invited to the quotation, over tagREG_COTACAOITEMFORNECEDORPS (152 bytes), with two
// texts and the payment condition that the supplier proposes. The condition and
// DesconsiderarSituacao never travel.
//
// Equality compares every field but EmailCotacaoWebEnviado, the texts, DesconsiderarSituacao and
// the payment condition.
class KX_API CKXDadosCM_FornecedorCotacaoPreco : public TKXCMBaseParaDados {
  // Before the record, as the published order of members has it.
  KX_MEMBRO(CKXDadosCM_FornecedorCotacaoPreco, CKXDadosCM_CondicaoPagamento, CondicaoPagamento)
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_FornecedorCotacaoPreco, TKXCMBaseParaDados,
                        tagREG_COTACAOITEMFORNECEDORPS)
  KX_MEMBRO(CKXDadosCM_FornecedorCotacaoPreco, CString, NomeFornecedor)
  KX_MEMBRO(CKXDadosCM_FornecedorCotacaoPreco, CString, Observacao)
  // Whether the screens ignore SituacaoCotacao.
  KX_MEMBRO(CKXDadosCM_FornecedorCotacaoPreco, bool, DesconsiderarSituacao)

#define KX_CLASSE CKXDadosCM_FornecedorCotacaoPreco
#define KX_TABELA "cp/tagREG_COTACAOITEMFORNECEDORPS.def"
#include "core/tabela/Acessores.h"

  // Identity in a list: true when both stand for the same supplier, whatever else they hold.
  static bool CompareElements(const CKXDadosCM_FornecedorCotacaoPreco& a,
                              const CKXDadosCM_FornecedorCotacaoPreco& b);

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(DesconsiderarSituacao));
    v.Contado(&Esta::_NomeFornecedor, &Registro::NomeFornecedor);
    v.Contado(&Esta::_Observacao, &Registro::Observacao);
    v.Condicao(&Esta::_CondicaoPagamento);
  }
};

// A quoted item, over tagREG_COTACAOITEMPRODUTOPS (168 bytes), with two texts and the apportionment
// lines. Equality compares every field, the texts and the lines in their order, not
// DesconsiderarRateio, which never travels.
class KX_API CKXDadosCM_ItemCotacaoPreco : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ItemCotacaoPreco, TKXCMBaseParaDados,
                        tagREG_COTACAOITEMPRODUTOPS)
  KX_MEMBRO(CKXDadosCM_ItemCotacaoPreco, CString, Observacao)
  KX_MEMBRO(CKXDadosCM_ItemCotacaoPreco, CString, Complemento)
  KX_COLECAO(CKXDadosCM_ItemCotacaoPreco, Rateio, CKXDadosCM_RateioCotacaoPreco)
  // Whether the screens ignore the apportionment lines.
  KX_MEMBRO(CKXDadosCM_ItemCotacaoPreco, bool, DesconsiderarRateio)

#define KX_CLASSE CKXDadosCM_ItemCotacaoPreco
#define KX_TABELA "cp/tagREG_COTACAOITEMPRODUTOPS.def"
#include "core/tabela/Acessores.h"

  // The product key, the three grid items and the reserved bytes beside them, as one value.
  const _REG_POSICAO_PRODUTOPS& GetPosicaoProduto() const { return _Reg.PosicaoProduto; }
  _REG_POSICAO_PRODUTOPS& GetPosicaoProduto() { return _Reg.PosicaoProduto; }
  CKXDadosCM_ItemCotacaoPreco& SetPosicaoProduto(const _REG_POSICAO_PRODUTOPS& valor) {
    _Reg.PosicaoProduto = valor;
    return *this;
  }

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaRateio, &Registro::ListaRateio, &Registro::QtdRateio);
    v.Contado(&Esta::_Complemento, &Registro::Complemento);
    v.Contado(&Esta::_Observacao, &Registro::Observacao);
    v.Auxiliar(KX_DO_OBJETO(DesconsiderarRateio));
  }
};

// The answer of one supplier about one item, over tagREG_COTACAOACOMPANHAMENTOPS (248 bytes), and
// its remarks. IndiceFornecedor and IndiceItem are positions in the quotation's collections; they
// are carried as they are, inside the collections or not. A field named ...Digitado holds the value
// that the user typed, beside the computed one. Equality compares every field and the remarks.
class KX_API CKXDadosCM_AcompanhamentoCotacaoPreco : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_AcompanhamentoCotacaoPreco, TKXCMBaseParaDados,
                        tagREG_COTACAOACOMPANHAMENTOPS)
  KX_MEMBRO(CKXDadosCM_AcompanhamentoCotacaoPreco, CString, Observacao)

#define KX_CLASSE CKXDadosCM_AcompanhamentoCotacaoPreco
#define KX_TABELA "cp/tagREG_COTACAOACOMPANHAMENTOPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Contado(&Esta::_Observacao, &Registro::Observacao);
  }
};

// One price quotation, over tagREG_COTACAOPS (240 bytes), with two texts, the items, the suppliers,
// their answers, the logs and the link to the fiscal module; logs and link never travel.
//
// Equality compares texts, answers, suppliers, items, the link and the fields of the quotation
// itself. Left out are the keys RegQuemGerou, RegChaveHistoricoAnterior and PonteiroEsteCP, the
// stamps of the last change (date, time), both users, WEB, Excluido and the logs.
class KX_API CKXDadosCM_CotacaoPreco : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CotacaoPreco, TKXCMBaseParaDados, tagREG_COTACAOPS)
  KX_MEMBRO(CKXDadosCM_CotacaoPreco, CString, Observacao)
  KX_MEMBRO(CKXDadosCM_CotacaoPreco, CString, LocalEntrega)
  KX_MEMBRO(CKXDadosCM_CotacaoPreco, CIEVinculo, Vinculo)
  KX_COLECAO(CKXDadosCM_CotacaoPreco, Item, CKXDadosCM_ItemCotacaoPreco)
  KX_COLECAO(CKXDadosCM_CotacaoPreco, Fornecedor, CKXDadosCM_FornecedorCotacaoPreco)
  KX_COLECAO(CKXDadosCM_CotacaoPreco, Acompanhamento, CKXDadosCM_AcompanhamentoCotacaoPreco)
  KX_COLECAO(CKXDadosCM_CotacaoPreco, Logs, CString)

#define KX_CLASSE CKXDadosCM_CotacaoPreco
#define KX_TABELA "cp/tagREG_COTACAOPS.def"
#include "core/tabela/Acessores.h"

  // The link, to be changed.
  CIEVinculo& GetRefVinculo() { return _Vinculo; }

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Contado(&Esta::_Observacao, &Registro::Observacao);
    v.Contado(&Esta::_LocalEntrega, &Registro::LocalEntrega);
    v.Lista(&Esta::_ListaItem, &Registro::ListaItem, &Registro::QtdItem);
    v.Lista(&Esta::_ListaFornecedor, &Registro::ListaFornecedor, &Registro::QtdFornecedor);
    v.Lista(&Esta::_ListaAcompanhamento, &Registro::ListaAcompanhamento,
            &Registro::QtdAcompanhamento);
    v.Local(KX_DO_OBJETO(Vinculo));
    v.NaoComparado(KX_DO_OBJETO(ListaLogs));
  }
};
