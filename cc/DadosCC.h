// Purchase contract: binds a supplier to a total value over a period, paid in installments, and
// what is tied to it.
//
//   CKXDadosCM_CCContrato contrato;
//   contrato.CopiarDe(&recebido);                                // record from the server
//   contrato.GetPtrParcela(0)->SetPercentualJuros(CY{25000});     // 2.5 percent
//   contrato.GetPtrParcela(0)->CalculaValorJuros(contrato.GetPtrParcela(0)->GetValorParcela());
//   const kx::RegistroDe registro(contrato);  // record for the server
//
// Money and percentages are in 1/10,000: CY{250000} is R$ 25,00, or 25 percent. Codes (Situacao,
// PeriodoJuros) belong to the server and pass through unchanged. Conversions take arrays and texts
// from array new (ZerarDelete releases them). Reserved bytes are carried unchanged and not
// compared; every other field takes part in equality, but where a class says otherwise.
//
// Each calculation of a percentage or of a value takes the total that both refer to. It changes the
// field that it calculates, and returns it; but where the field that it starts from is zero it
// changes nothing and returns zero. Each multiplication and each division rounds once
// (kxldados/Dinheiro.h), in the order given here; one without a result gives zero, which is stored:
//   percentage = value * 100 / total        value = percentage * total / 100
#pragma once

#include "cc/RegistrosCC.h"
#include "core/ClasseDeRegistro.h"
#include "core/Colecao.h"
#include "core/Membro.h"
#include "core/TKXCMBaseParaDados.h"
#include "kxldados/CIEVinculo.h"
#include "kxldados/Dinheiro.h"

// Amendment that adds to the contract's value, or takes from it, over
// tagREG_CONTRATO_COMPRA_ADITIVOPS (48 bytes), with a description. Of the description travel the
// first 65,534 characters.
class KX_API CKXDadosCM_CCAditivo : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CCAditivo, TKXCMBaseParaDados, tagREG_CONTRATO_COMPRA_ADITIVOPS)
  KX_MEMBRO(CKXDadosCM_CCAditivo, CString, Descricao)

#define KX_CLASSE CKXDadosCM_CCAditivo
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_ADITIVOPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Corrido(&Esta::_Descricao, &Registro::TextoDescricao, &Registro::TamanhoDescricao);
  }
};

// Readjustment of the balance by an index, over tagREG_CONTRATO_COMPRA_REAJUSTEPS (80 bytes).
class KX_API CKXDadosCM_CCReajuste : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CCReajuste, TKXCMBaseParaDados,
                        tagREG_CONTRATO_COMPRA_REAJUSTEPS)

#define KX_CLASSE CKXDadosCM_CCReajuste
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_REAJUSTEPS.def"
#include "core/tabela/Acessores.h"
};

// Invoice received under the contract, over tagREG_CONTRATO_COMPRA_NOTA_FISCALPS (64 bytes).
class KX_API CKXDadosCM_CCNotaFiscal : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CCNotaFiscal, TKXCMBaseParaDados,
                        tagREG_CONTRATO_COMPRA_NOTA_FISCALPS)

#define KX_CLASSE CKXDadosCM_CCNotaFiscal
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_NOTA_FISCALPS.def"
#include "core/tabela/Acessores.h"
};

// Share of the contract that a financial classification and a management account bear, over
// tagREG_CONTRATO_COMPRA_CLASSIFICACAOPS (32 bytes). The percentage travels; ValorRateio, its value
// in money, lives in the object alone, is compared, and is zero after a conversion.
class KX_API CKXDadosCM_CCClassificacao : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CCClassificacao, TKXCMBaseParaDados,
                        tagREG_CONTRATO_COMPRA_CLASSIFICACAOPS)
  KX_MEMBRO(CKXDadosCM_CCClassificacao, CY, ValorRateio)

#define KX_CLASSE CKXDadosCM_CCClassificacao
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_CLASSIFICACAOPS.def"
#include "core/tabela/Acessores.h"

  // PercRateio from ValorRateio, and back; the total is the contract's. The result is stored and
  // returned. Where what it is made from is zero, zero is returned and nothing stored; a total of
  // zero gives zero.
  CKXCurrencyEx CalculaPercentual(CKXCurrencyEx total) noexcept;
  CKXCurrencyEx CalculaValor(CKXCurrencyEx total) noexcept;

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(ValorRateio));
  }
};

// Stage of the contract's execution, over tagREG_CONTRATO_COMPRA_EXECUCAOPS (96 bytes), with a
// description. Of the description travel the first 65,534 characters.
class KX_API CKXDadosCM_CCExecucao : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CCExecucao, TKXCMBaseParaDados,
                        tagREG_CONTRATO_COMPRA_EXECUCAOPS)
  KX_MEMBRO(CKXDadosCM_CCExecucao, CString, Descricao)

#define KX_CLASSE CKXDadosCM_CCExecucao
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_EXECUCAOPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Corrido(&Esta::_Descricao, &Registro::TextoDescricao, &Registro::TamanhoDescricao);
  }
};

// Installment, over tagREG_CONTRATO_COMPRA_PARCELAPS (88 bytes). Fines and discounts travel as
// percentage and as value; of the interest travels the percentage. ValorJuros lives in the object
// alone, is compared, and is zero after a conversion.
class KX_API CKXDadosCM_CCParcela : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CCParcela, TKXCMBaseParaDados, tagREG_CONTRATO_COMPRA_PARCELAPS)
  KX_MEMBRO(CKXDadosCM_CCParcela, CY, ValorJuros)

#define KX_CLASSE CKXDadosCM_CCParcela
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_PARCELAPS.def"
#include "core/tabela/Acessores.h"

  // The percentage of discounts, interest or fines from its value, and the value from its
  // percentage; the total is the installment's value. The result is stored and returned. Where what
  // it is made from is zero, zero is returned and nothing stored; a total of zero gives zero.
  CKXCurrencyEx CalculaPercentualDescontos(CKXCurrencyEx total) noexcept;
  CKXCurrencyEx CalculaPercentualJuros(CKXCurrencyEx total) noexcept;
  CKXCurrencyEx CalculaPercentualMultas(CKXCurrencyEx total) noexcept;
  CKXCurrencyEx CalculaValorDescontos(CKXCurrencyEx total) noexcept;
  CKXCurrencyEx CalculaValorJuros(CKXCurrencyEx total) noexcept;
  CKXCurrencyEx CalculaValorMultas(CKXCurrencyEx total) noexcept;

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(ValorJuros));
  }
};

// User who may see the contract, or may not, over tagREG_CONTRATO_COMPRA_USUARIOPS (8 bytes).
class KX_API CKXDadosCM_CCUsuario : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CCUsuario, TKXCMBaseParaDados, tagREG_CONTRATO_COMPRA_USUARIOPS)

#define KX_CLASSE CKXDadosCM_CCUsuario
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_USUARIOPS.def"
#include "core/tabela/Acessores.h"
};

// One purchase contract, over tagREG_CONTRATO_COMPRAPS (264 bytes), with two texts of any length,
// the link to the fiscal module, which never travels, and the seven collections. The texts travel
// whole, as pointers to zero-terminated characters; an empty one as a null pointer.
//
// Equality compares texts, link, children in their order and every field but the stamps of creation
// and last change (RegDataHoraAlteracao, PonteiroUsuarioAlteracao, PonteiroUsuarioInclusao),
// Excluido and EmailVencimentoEnviado.
class KX_API CKXDadosCM_CCContrato : public TKXCMBaseParaDados {
  // Before the record, as the published order of members has it.
  KX_MEMBRO(CKXDadosCM_CCContrato, CString, Observacao)
  KX_MEMBRO(CKXDadosCM_CCContrato, CString, DescricaoContrato)
  KX_MEMBRO(CKXDadosCM_CCContrato, CIEVinculo, Vinculo)
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_CCContrato, TKXCMBaseParaDados, tagREG_CONTRATO_COMPRAPS)
  KX_COLECAO(CKXDadosCM_CCContrato, Aditivo, CKXDadosCM_CCAditivo)
  KX_COLECAO(CKXDadosCM_CCContrato, Reajuste, CKXDadosCM_CCReajuste)
  KX_COLECAO(CKXDadosCM_CCContrato, NotaFiscal, CKXDadosCM_CCNotaFiscal)
  KX_COLECAO(CKXDadosCM_CCContrato, Classificacao, CKXDadosCM_CCClassificacao)
  KX_COLECAO(CKXDadosCM_CCContrato, Execucao, CKXDadosCM_CCExecucao)
  KX_COLECAO(CKXDadosCM_CCContrato, Parcela, CKXDadosCM_CCParcela)
  KX_COLECAO(CKXDadosCM_CCContrato, Usuarios, CKXDadosCM_CCUsuario)

#define KX_CLASSE CKXDadosCM_CCContrato
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRAPS.def"
#include "core/tabela/Acessores.h"

 protected:
  // In the order of the record, which is not that of the collections.
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(Vinculo));
    v.Terminado(&Esta::_Observacao, &Registro::TextoObservacao);
    v.Terminado(&Esta::_DescricaoContrato, &Registro::TextoDescricaoContrato);
    v.Lista(&Esta::_ListaReajuste, &Registro::ListaReajuste, &Registro::QtdReajuste);
    v.Lista(&Esta::_ListaAditivo, &Registro::ListaAditivo, &Registro::QtdAditivo);
    v.Lista(&Esta::_ListaNotaFiscal, &Registro::ListaNotaFiscal, &Registro::QtdNotaFiscal);
    v.Lista(&Esta::_ListaUsuarios, &Registro::ListaUsuarios, &Registro::QtdUsuarios);
    v.Lista(&Esta::_ListaClassificacao, &Registro::ListaClassificacao, &Registro::QtdClassificacao);
    v.Lista(&Esta::_ListaExecucao, &Registro::ListaExecucao, &Registro::QtdExecucao);
    v.Lista(&Esta::_ListaParcela, &Registro::ListaParcela, &Registro::QtdParcela);
  }
};
