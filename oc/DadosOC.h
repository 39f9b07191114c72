// Purchase order: what the buyer orders from one supplier.
//
//   CKXDadosCM_OrdemCompra ordem;
//   ordem.CopiarDe(&recebido);                       // record from the server
//   const CKXDadosCM_OrdemCompra original = ordem;
//   ordem.SetValorFrete("15,00"_rs);                 // using namespace kx::literais
//   if (ordem != original) {
//     const kx::RegistroDe registro(ordem);  // record for the server
//   }
//
// Money is in 1/10,000. Codes (Situacao, Frete, FretePorConta, StatusAutorizacao, Impresso,
// VersaoGravacao) belong to the server and pass through unchanged.
#pragma once

#include "core/Financeiro.h"
#include "kxldados/CIEVinculo.h"
#include "oc/ItensOC.h"
#include "oc/RegistrosOC.h"

// A cancellation of an order or of one of its items, over tagREG_CANCELAMENTO_ORDEM_COMPRAPS (48
// bytes). Equality compares every field; the reserved bytes are carried and not compared.
class KX_API CKXDadosCM_CancelamentoOrdemCompra : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CancelamentoOrdemCompra, TKXCMBaseParaDados,
                        tagREG_CANCELAMENTO_ORDEM_COMPRAPS)

#define KX_CLASSE CKXDadosCM_CancelamentoOrdemCompra
#define KX_TABELA "oc/tagREG_CANCELAMENTO_ORDEM_COMPRAPS.def"
#include "core/tabela/Acessores.h"
};

// One purchase order, over tagREG_ORDEMPS (3,592 bytes).
//
// Beside the record's fields it holds the payment condition (its three keys and its installments
// travel in the record, its tax titles do not), the items, the cancellations, the logs and the link
// to the fiscal module. Cancellations are received and never sent: CopiarPara writes count 0 and a
// null pointer. Logs and link never travel.
//
// Record arrays come from array new; ZerarDelete releases them all, nested ones included,
// ZerarGlobalAlloc those of a record received from the server.
//
// Equality compares the items, the payment condition and the header. It leaves out the order's own
// key, the stamps of inclusion and change, the authorization and e-mail state, PonteiroGerencial,
// OrcamentoExcedente, VersaoGravacao, Excluido, the cancellations, the logs and the link. Of the
// history complement it sees the first three lines.
class KX_API CKXDadosCM_OrdemCompra : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_OrdemCompra, TKXCMBaseParaDados, tagREG_ORDEMPS)
  KX_MEMBRO(CKXDadosCM_OrdemCompra, CKXDadosCM_CondicaoPagamento, CondicaoPagamento)
  KX_MEMBRO(CKXDadosCM_OrdemCompra, CIEVinculo, Vinculo)
  KX_COLECAO(CKXDadosCM_OrdemCompra, Item, CKXDadosCM_ItemOrdemCompra)
  KX_COLECAO(CKXDadosCM_OrdemCompra, Logs, CString)
  KX_COLECAO(CKXDadosCM_OrdemCompra, Cancelamento, CKXDadosCM_CancelamentoOrdemCompra)

#define KX_CLASSE CKXDadosCM_OrdemCompra
#define KX_TABELA "oc/tagREG_ORDEMPS.def"
#include "core/tabela/Acessores.h"

  // The competence date, or the issue date when there is none; of this order, of an order in a
  // list, of the two dates themselves.
  REG_KXDMA GetDataEmissaoOuCompetencia() const;
  static REG_KXDMA GetDataEmissaoOuCompetencia(const tagREG_ORDEM_LIGHTPS& ordem);
  static REG_KXDMA GetDataEmissaoOuCompetencia(const REG_KXDMA& emissao,
                                               const REG_KXDMA& competencia);

  using TKXCMBaseParaDados::Igual;
  // True when two orders agree in their commercial content:
  //   - header: currency, competence, need and delivery dates, the totals of IPI, ICMS and ICMS-ST,
  //     the discounts, the charges and the order total (not the totals of products and services);
  //     unless semFornecedor is set, supplier, department and buyer as well;
  //   - items: price list; product with its grid items or, without one, the text in Complemento;
  //     quantity, unit price, discounts, IPI;
  //   - their apportionment lines: quantity, value, classification and management accounts.
  // The payment condition counts too, unless semFornecedor is set and comCondicao is not.
  bool Igual(const CKXDadosCM_OrdemCompra& outra, int semFornecedor, int comCondicao) const;

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaItem, &Registro::ListaItem, &Registro::QtdItem);
    v.Condicao(&Esta::_CondicaoPagamento);
    v.ListaSoLida(&Esta::_ListaCancelamento, &Registro::ListaCancelamento,
                  &Registro::QtdCancelamento);
    v.NaoComparado(KX_DO_OBJETO(ListaLogs));
    v.NaoComparado(KX_DO_OBJETO(Vinculo));
  }
};
