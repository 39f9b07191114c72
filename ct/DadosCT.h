// Freight bill: the carrier's transport document (CT-e in its electronic form) as it is booked into
// purchasing.
//
//   CKXDadosCM_CTConhecimentoTransporte conhecimento;
//   conhecimento.CopiarDe(&recebido);               // record from the server
//   conhecimento.SetValorDesconto(CY{20000});       // 2.0000
//   const kx::RegistroDe registro(conhecimento);  // record for the server
//
// Money, weights and numbers of volumes are in 1/10,000, AliquotaICMS in 1/100 of a percent. Codes
// (FretePorConta, LivreCobranca, TipoNota, StatusViaTransp, VersaoGravacao and those that the
// tables call so) belong to the server and pass through unchanged.
//
// Conversions take their arrays from the task allocator (ZerarGlobalAlloc releases them). Equality
// compares every named field and every collection but the audit stamps (dates and users of the
// inclusion and of the last change), Excluido and the reserved bytes.
#pragma once

#include "core/Financeiro.h"
#include "core/Rateio.h"
#include "ct/RegistrosCT.h"
#include "kxldados/CIEVinculo.h"

// An invoice whose goods were carried, over tagREG_NOTAFISCAL_CONHECIMENTOPS (200 bytes).
class KX_API CKXDadosCM_CTNotaFiscal : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CTNotaFiscal, TKXCMBaseParaDados,
                        tagREG_NOTAFISCAL_CONHECIMENTOPS)

#define KX_CLASSE CKXDadosCM_CTNotaFiscal
#define KX_TABELA "ct/tagREG_NOTAFISCAL_CONHECIMENTOPS.def"
#include "core/tabela/Acessores.h"

 protected:
  // The checksum of the 200 bytes of the record, from 0 whatever is passed in.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;
};

// Apportionment line, over tagREG_RATEIO_CONHECIMENTOPS (568 bytes), with management accounts of
// the line and of its branch.
class KX_API CKXDadosCM_CTRateio : public CKXDadosCM_RateioBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CTRateio, CKXDadosCM_RateioBase, tagREG_RATEIO_CONHECIMENTOPS)
  KX_COLECAO(CKXDadosCM_CTRateio, GerencialFilial, TKXGerencial)

#define KX_CLASSE CKXDadosCM_CTRateio
#define KX_TABELA "ct/tagREG_RATEIO_CONHECIMENTOPS.def"
#include "core/tabela/Acessores.h"

 protected:
  // The checksum of the 568 bytes of the stored record, from 0 whatever is passed in.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;

  template <class V>
  static void Partes(V&& v) {
    v.ListaHerdada(&Esta::_ListaGerencial, &Registro::ListaGerencial, &Registro::QtdGerencial);
    v.Lista(&Esta::_ListaGerencialFilial, &Registro::ListaGerencialFilial,
            &Registro::QtdGerencialFilial);
  }
};

// One freight bill, over tagREG_CONHECIMENTOPS (1,288 bytes).
//
// Beside the record's fields it holds the payment condition, of which PonteiroCondicaoPagamento,
// PonteiroTipoCobranca, the installments and the tax titles travel in the record, the link to the
// fiscal module and six collections. Logs, Vinculo and the condition's other two values never
// travel. Vinculo alone is not compared.
//
// The getters of the record's fields return values: a change goes through the setters.
class KX_API CKXDadosCM_CTConhecimentoTransporte : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CTConhecimentoTransporte, TKXCMBaseParaDados,
                        tagREG_CONHECIMENTOPS)
  KX_MEMBRO(CKXDadosCM_CTConhecimentoTransporte, CKXDadosCM_CondicaoPagamento, CondicaoPagamento)
  KX_MEMBRO(CKXDadosCM_CTConhecimentoTransporte, CIEVinculo, Vinculo)
  KX_COLECAO(CKXDadosCM_CTConhecimentoTransporte, Rateio, CKXDadosCM_CTRateio)
  KX_COLECAO(CKXDadosCM_CTConhecimentoTransporte, NotaFiscal, CKXDadosCM_CTNotaFiscal)
  KX_COLECAO(CKXDadosCM_CTConhecimentoTransporte, Logs, CString)
  KX_COLECAO(CKXDadosCM_CTConhecimentoTransporte, OCAssociada, REG_KXDMC)  // keys of orders
  KX_COLECAO(CKXDadosCM_CTConhecimentoTransporte, ProcessoRetencaoAjuizada,
             CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD)
  KX_COLECAO(CKXDadosCM_CTConhecimentoTransporte, ProcessoRetencaoAdicionalAjuizada,
             CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD)

#define KX_CLASSE CKXDadosCM_CTConhecimentoTransporte
#define KX_TABELA "ct/tagREG_CONHECIMENTOPS.def"
#define KX_LE_POR_VALOR
#include "core/tabela/Acessores.h"

 protected:
  // The checksum of the 1,288 bytes of the stored record, from 0 whatever is passed in: the
  // payment condition's two values are in it as they were last read. Collections are not.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;

  template <class V>
  static void Partes(V&& v) {
    v.Condicao(&Esta::_CondicaoPagamento);
    v.NaoComparado(KX_DO_OBJETO(Vinculo));
    v.Lista(&Esta::_ListaRateio, &Registro::ListaRateio, &Registro::QtdRateio);
    v.Lista(&Esta::_ListaNotaFiscal, &Registro::ListaNotaFiscal, &Registro::QtdNotaFiscal);
    v.Local(KX_DO_OBJETO(ListaLogs));
    v.Lista(&Esta::_ListaOCAssociada, &Registro::ListaOCAssociada, &Registro::QtdOCAssociada);
    v.Lista(&Esta::_ListaProcessoRetencaoAjuizada, &Registro::ListaProcessoRetencaoAjuizada,
            &Registro::QtdProcessoRetencaoAjuizada);
    v.Lista(&Esta::_ListaProcessoRetencaoAdicionalAjuizada,
            &Registro::ListaProcessoRetencaoAdicionalAjuizada,
            &Registro::QtdProcessoRetencaoAdicionalAjuizada);
  }
};
