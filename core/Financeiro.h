// The financial objects that documents share: deductions, taxes of an installment, installments,
// tax titles and the payment condition that holds them. Money is in 1/10,000.
//
// Each of the four record classes converts twice: CopiarPara takes nested arrays from array new,
// CopiarParaPS from the task allocator, even where nothing hangs from the record.
#pragma once

#include <array>
#include <cstdint>

#include "core/ClasseDeRegistro.h"
#include "core/Colecao.h"
#include "core/Membro.h"
#include "core/Registros.h"
#include "core/TKXCMBaseParaDados.h"

// A deduction from the base of a tax, over tagREG_IMPOSTO_DEDUCAOPS (280 bytes).
class KX_API CKXDadosCM_ImpostoDeducao : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ImpostoDeducao, TKXCMBaseParaDados, tagREG_IMPOSTO_DEDUCAOPS)

#define KX_CLASSE CKXDadosCM_ImpostoDeducao
#define KX_TABELA "core/tagREG_IMPOSTO_DEDUCAOPS.def"
#include "core/tabela/Acessores.h"

  // The same as CopiarPara: nothing hangs from the record.
  const CKXDadosCM_ImpostoDeducao& CopiarParaPS(tagREG_IMPOSTO_DEDUCAOPS* destino) const;
};

// A tax of an installment or of a receipt item, over tagREG_ITEM_IMPOSTOPS (64 bytes), with its
// deductions.
class KX_API CKXDadosCM_ItemImposto : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_ItemImposto, TKXCMBaseParaDados, tagREG_ITEM_IMPOSTOPS)
  KX_COLECAO(CKXDadosCM_ItemImposto, Deducao, CKXDadosCM_ImpostoDeducao)

#define KX_CLASSE CKXDadosCM_ItemImposto
#define KX_TABELA "core/tagREG_ITEM_IMPOSTOPS.def"
#include "core/tabela/Acessores.h"

  // CopiarPara, the deductions from the task allocator.
  const CKXDadosCM_ItemImposto& CopiarParaPS(tagREG_ITEM_IMPOSTOPS* destino) const;

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaDeducao, &Registro::ListaDeducao, &Registro::QtdDeducao);
  }
};

// An installment. Its fields are stored as tagREG_FATURA_ENTRADAPS (248 bytes), the record of the
// goods receipt, which carries them all; the other three carry what fits:
//   tagREG_FATURA_CONHECIMENTOPS (144 bytes, freight bill)   all of them
//   tagREG_FATURA_COMPRAPS        (24 bytes, purchase order) no document number, no net value, no
//   tagREG_COTACAOITEMFATURAPS    (24 bytes, quotation)      taxes
// Bytes of these three that have no field here are kept as they came, and written back when the
// object is converted into the same kind of record. The freight bill's due date is the date and
// zeros after it; its document number has at most 61 characters, and zeros after them, whichever
// way it goes.
//
// The releases free the array of taxes of the record they are given, and not the deduction arrays
// inside its elements: a caller that owns those releases them first, element by element, with
// CKXDadosCM_ItemImposto's releases. (A document's own release walks everything.)
class KX_API CKXDadosCM_Parcela : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_Parcela, TKXCMBaseParaDados, tagREG_FATURA_ENTRADAPS)
  KX_COLECAO(CKXDadosCM_Parcela, ItemImposto, CKXDadosCM_ItemImposto)

#define KX_CLASSE CKXDadosCM_Parcela
#define KX_TABELA "core/tagREG_FATURA_ENTRADAPS.def"
#include "core/tabela/Acessores.h"

  // CopiarDe for the other kinds of record: what the record does not carry is cleared.
  CKXDadosCM_Parcela& CopiarDe(const tagREG_FATURA_CONHECIMENTOPS* origem);
  CKXDadosCM_Parcela& CopiarDe(const tagREG_FATURA_COMPRAPS* origem);
  CKXDadosCM_Parcela& CopiarDe(const tagREG_COTACAOITEMFATURAPS* origem);

  // CopiarPara into the other kinds of record; taxes come from array new.
  const CKXDadosCM_Parcela& CopiarPara(tagREG_FATURA_CONHECIMENTOPS* destino) const;
  const CKXDadosCM_Parcela& CopiarPara(tagREG_FATURA_COMPRAPS* destino) const;
  const CKXDadosCM_Parcela& CopiarPara(tagREG_COTACAOITEMFATURAPS* destino) const;

  // The same, taxes from the task allocator.
  const CKXDadosCM_Parcela& CopiarParaPS(tagREG_FATURA_ENTRADAPS* destino) const;
  const CKXDadosCM_Parcela& CopiarParaPS(tagREG_FATURA_CONHECIMENTOPS* destino) const;
  const CKXDadosCM_Parcela& CopiarParaPS(tagREG_FATURA_COMPRAPS* destino) const;
  const CKXDadosCM_Parcela& CopiarParaPS(tagREG_COTACAOITEMFATURAPS* destino) const;

  // The releases of the other kinds of record; nothing hangs from the last two.
  static void ZerarDelete(tagREG_FATURA_CONHECIMENTOPS* registro);
  static void ZerarDelete(tagREG_FATURA_COMPRAPS* registro);
  static void ZerarDelete(tagREG_COTACAOITEMFATURAPS* registro);
  static void ZerarGlobalAlloc(tagREG_FATURA_CONHECIMENTOPS* registro);
  static void ZerarGlobalAlloc(tagREG_FATURA_COMPRAPS* registro);
  static void ZerarGlobalAlloc(tagREG_COTACAOITEMFATURAPS* registro);

  // What those releases leave: the arrays inside the taxes. kx::RegistroDe calls it before them.
  template <class REG>
  static void LiberaFilhos(REG* registro, kx::Alocador de) {
    if constexpr (requires { registro->ListaItemImposto; }) {
      for (std::size_t i = 0; i < registro->QtdItemImposto; ++i) {
        tagREG_ITEM_IMPOSTOPS* imposto = &registro->ListaItemImposto[i];
        de == kx::Alocador::Delete ? CKXDadosCM_ItemImposto::ZerarDelete(imposto)
                                   : CKXDadosCM_ItemImposto::ZerarGlobalAlloc(imposto);
      }
    }
  }

 protected:
  // The checksum of the due date, NumeroDias, Valor, ValorLiquido, the characters of
  // NumeroDocumento, PonteiroTipoVencimento, PonteiroFormaPagamento and ValorDigitado, in this
  // order. It always starts from 0, whatever is passed in.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;

  template <class V>
  static void Partes(V&& v) {
    v.Lista(&Esta::_ListaItemImposto, &Registro::ListaItemImposto, &Registro::QtdItemImposto);
    v.Auxiliar(KX_DO_OBJETO(Bruto));
  }

 private:
  enum class Origem : std::uint8_t { Nenhuma, Conhecimento, Compra, Cotacao };

  // The last record read of another kind than the stored one, without its pointers.
  struct Bruto {
    std::array<unsigned char, 144> Bytes;
    Origem De;
    bool operator==(const Bruto&) const = default;
  };

  template <class REG>
  KX_LOCAL CKXDadosCM_Parcela& Le(const REG* origem, Origem tipo);
  template <class REG>
  KX_LOCAL const CKXDadosCM_Parcela& Escreve(REG* destino, Origem tipo,
                                             kx::Alocador alocador) const;

  Bruto _Bruto{};
};

// A tax to be paid to its collector, over tagREG_TITULO_IMPOSTOPS (648 bytes).
class KX_API CKXDadosCM_TituloImposto : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_TituloImposto, TKXCMBaseParaDados, tagREG_TITULO_IMPOSTOPS)

#define KX_CLASSE CKXDadosCM_TituloImposto
#define KX_TABELA "core/tagREG_TITULO_IMPOSTOPS.def"
#include "core/tabela/Acessores.h"

  // The same as CopiarPara: nothing hangs from the record.
  const CKXDadosCM_TituloImposto& CopiarParaPS(tagREG_TITULO_IMPOSTOPS* destino) const;
};

// How a document is paid: the condition chosen, the first due date, the installments and the tax
// titles. It has no record of its own: each document carries those of its parts that its record
// has a place for, and the stored record keeps them as they were last read. Equality compares all
// of it.
class KX_API CKXDadosCM_CondicaoPagamento : public TKXCMBaseParaDados {
  KX_CLASSE_SEM_REGISTRO(CKXDadosCM_CondicaoPagamento, TKXCMBaseParaDados)
  KX_MEMBRO(CKXDadosCM_CondicaoPagamento, std::uint32_t, PonteiroTipoPeriodo)
  KX_MEMBRO(CKXDadosCM_CondicaoPagamento, REG_KXDMA, DataPrimeiroVencimento)
  KX_MEMBRO(CKXDadosCM_CondicaoPagamento, std::uint16_t, PonteiroTipoCobranca)
  KX_MEMBRO(CKXDadosCM_CondicaoPagamento, std::uint16_t, PonteiroCondicaoPagamento)
  KX_COLECAO(CKXDadosCM_CondicaoPagamento, Parcela, CKXDadosCM_Parcela)
  KX_COLECAO(CKXDadosCM_CondicaoPagamento, TituloImposto, CKXDadosCM_TituloImposto)

  // The installment count, which is always that of the collection.
  long long GetNumeroParcelas() const { return GetQuantidadeParcela(); }

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(PonteiroTipoPeriodo));
    v.Local(KX_DO_OBJETO(DataPrimeiroVencimento));
    v.Local(KX_DO_OBJETO(PonteiroTipoCobranca));
    v.Local(KX_DO_OBJETO(PonteiroCondicaoPagamento));
    v.Local(KX_DO_OBJETO(ListaParcela));
    v.Local(KX_DO_OBJETO(ListaTituloImposto));
  }

 private:
  // visita(value, field) and visita(collection, array, count) for each part of the condition that
  // the record of a document has a place for. The tables say which: they name those places alike.
  template <class Condicao, class REG, class Visita>
  static void VisitaRegistro(Condicao& condicao, REG& reg, Visita visita) {
    if constexpr (requires { reg.PonteiroTipoPeriodo; }) {
      visita(condicao._PonteiroTipoPeriodo, reg.PonteiroTipoPeriodo);
    }
    if constexpr (requires { reg.DataPrimeiroVencimento; }) {
      visita(condicao._DataPrimeiroVencimento, reg.DataPrimeiroVencimento);
    }
    if constexpr (requires { reg.PonteiroTipoCobranca; }) {
      visita(condicao._PonteiroTipoCobranca, reg.PonteiroTipoCobranca);
    }
    if constexpr (requires { reg.PonteiroCondicaoPagamento; }) {
      visita(condicao._PonteiroCondicaoPagamento, reg.PonteiroCondicaoPagamento);
    }
    if constexpr (requires { reg.ListaParcela; }) {
      visita(condicao._ListaParcela, reg.ListaParcela, reg.QtdParcela);
    }
    if constexpr (requires { reg.ListaTituloImposto; }) {
      visita(condicao._ListaTituloImposto, reg.ListaTituloImposto, reg.QtdTituloImposto);
    }
  }
};
