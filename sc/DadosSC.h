// Purchase request: a department's or requester's demand for products and services, before
// quotation and order.
//
//   CKXDadosCM_SCSolicitacaoCompra solicitacao;
//   solicitacao.CopiarDe(&recebido);                       // record from the server
//   solicitacao.GetPtrItem(0)->SetQuantidade(CY{20000});    // 2.0000
//   const kx::RegistroDe registro(solicitacao);  // cuts the remarks; see there
//
// Quantities are in 1/10,000. Codes (Origem, Situacao, StatusProdutoServico, Prioridade, Opcao,
// TipoControleReposicao) belong to the server and pass through unchanged.
//
// Texts that are not fixed-width fields travel as a 16-bit size, which counts the terminator, and a
// pointer: at most their first 65,534 characters; an empty one as size 0 and a null pointer.
// Conversions take arrays and texts from array new (ZerarDelete releases them). Reserved bytes are
// carried unchanged and not compared.
#pragma once

#include "core/Rateio.h"
#include "kxldados/CIEVinculo.h"
#include "sc/RegistrosSC.h"

// Apportionment line of a request item, over tagREG_SOLICITACAO_RATEIO_COMPRAPS (568 bytes), with
// its management accounts. Equality compares every field and the accounts in their order; of the
// history complement, the first three lines.
class KX_API CKXDadosCM_SCRateio : public CKXDadosCM_RateioBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_SCRateio, CKXDadosCM_RateioBase,
                        tagREG_SOLICITACAO_RATEIO_COMPRAPS)

#define KX_CLASSE CKXDadosCM_SCRateio
#define KX_TABELA "core/tagREG_SOLICITACAO_RATEIO_COMPRAPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.ListaHerdada(&Esta::_ListaGerencial, &Registro::ListaGerencial, &Registro::QtdGerencial);
  }
};

// A supplier suggested for the request, over tagREG_SOLICITACAO_COMPRA_FORNECEDORPS (40 bytes), and
// two texts. Equality compares the supplier's key and both texts.
class KX_API CKXDadosCM_SCFornecedor : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_SCFornecedor, TKXCMBaseParaDados,
                        tagREG_SOLICITACAO_COMPRA_FORNECEDORPS)
  KX_MEMBRO(CKXDadosCM_SCFornecedor, CString, NomeFornecedor)
  KX_MEMBRO(CKXDadosCM_SCFornecedor, CString, Observacao)

#define KX_CLASSE CKXDadosCM_SCFornecedor
#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRA_FORNECEDORPS.def"
#include "core/tabela/Acessores.h"

  // Identity in a list: true when both stand for the same supplier, whatever their texts.
  static bool CompareElements(const CKXDadosCM_SCFornecedor& a, const CKXDadosCM_SCFornecedor& b);

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Corrido(&Esta::_NomeFornecedor, &Registro::TextoNomeFornecedor,
              &Registro::TamanhoNomeFornecedor);
    v.Corrido(&Esta::_Observacao, &Registro::TextoObservacao, &Registro::TamanhoObservacao);
  }
};

// Item of a purchase request: a product or service and how much of it, over
// tagREG_SOLICITACAO_COMPRA_ITEMPS (136 bytes), with two texts and the apportionment lines.
// Equality compares every field but Integrado, the texts and the lines in their order.
class KX_API CKXDadosCM_SCItem : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_SCItem, TKXCMBaseParaDados, tagREG_SOLICITACAO_COMPRA_ITEMPS)
  KX_MEMBRO(CKXDadosCM_SCItem, CString, Complemento)
  KX_MEMBRO(CKXDadosCM_SCItem, CString, Observacao)
  KX_COLECAO(CKXDadosCM_SCItem, Rateio, CKXDadosCM_SCRateio)

#define KX_CLASSE CKXDadosCM_SCItem
#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRA_ITEMPS.def"
#include "core/tabela/Acessores.h"

  // The product key, the three grid items and the reserved bytes beside them, as one value.
  const _REG_POSICAO_PRODUTOPS& GetPosicaoProduto() const { return _Reg.PosicaoProduto; }
  _REG_POSICAO_PRODUTOPS& GetPosicaoProduto() { return _Reg.PosicaoProduto; }
  CKXDadosCM_SCItem& SetPosicaoProduto(const _REG_POSICAO_PRODUTOPS& valor) {
    _Reg.PosicaoProduto = valor;
    return *this;
  }

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Corrido(&Esta::_Complemento, &Registro::TextoComplemento, &Registro::TamanhoComplemento);
    v.Corrido(&Esta::_Observacao, &Registro::TextoObservacao, &Registro::TamanhoObservacao);
    v.Lista(&Esta::_ListaRateio, &Registro::ListaRateio, &Registro::QtdRateio);
  }
};

// One purchase request, over tagREG_SOLICITACAO_COMPRAPS (184 bytes), with two texts, the items,
// the suggested suppliers and the link to the fiscal module, which never travels.
//
// Equality compares texts, items, suppliers, the link and the fields of the demand itself. Left out
// are the keys RegQuemGerou and RegPonteiroEsteSC, the stamps of creation and last change (dates,
// time, users), Incompleta, Excluido, Impresso, RegistroGravadoSemIntegracao and
// EmailStatusInclusaoPendente.
class KX_API CKXDadosCM_SCSolicitacaoCompra : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO_SEM_ESCRITA(CKXDadosCM_SCSolicitacaoCompra, TKXCMBaseParaDados,
                                    tagREG_SOLICITACAO_COMPRAPS)
  KX_MEMBRO(CKXDadosCM_SCSolicitacaoCompra, CString, LocalEntrega)
  KX_MEMBRO(CKXDadosCM_SCSolicitacaoCompra, CString, Observacao)
  KX_MEMBRO(CKXDadosCM_SCSolicitacaoCompra, CIEVinculo, Vinculo)
  KX_COLECAO(CKXDadosCM_SCSolicitacaoCompra, Item, CKXDadosCM_SCItem)
  KX_COLECAO(CKXDadosCM_SCSolicitacaoCompra, Fornecedor, CKXDadosCM_SCFornecedor)

#define KX_CLASSE CKXDadosCM_SCSolicitacaoCompra
#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRAPS.def"
#include "core/tabela/Acessores.h"

  // The link, to be changed.
  CIEVinculo& GetRefVinculo() { return _Vinculo; }

  // Remarks longer than this lose what follows when the request is converted.
  static constexpr int kMaximoObservacao = 2500;

  // The conversion of core/ClasseDeRegistro.h, but not const: it cuts this object's own remarks to
  // their first kMaximoObservacao characters, so that object and record say the same.
  CKXDadosCM_SCSolicitacaoCompra& CopiarPara(tagREG_SOLICITACAO_COMPRAPS* destino);

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Corrido(&Esta::_Observacao, &Registro::TextoObservacao, &Registro::TamanhoObservacao,
              kMaximoObservacao);
    v.Local(KX_DO_OBJETO(Vinculo));
    v.Lista(&Esta::_ListaItem, &Registro::ListaItem, &Registro::QtdItem);
    v.Lista(&Esta::_ListaFornecedor, &Registro::ListaFornecedor, &Registro::QtdFornecedor);
    v.Corrido(&Esta::_LocalEntrega, &Registro::TextoLocalEntrega, &Registro::TamanhoLocalEntrega);
  }
};
