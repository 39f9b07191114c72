// Goods receipt: the incoming invoice of a supplier as it is booked into purchasing.
//
//   CKXDadosCM_RERegistroEntrada entrada;
//   entrada.CopiarDe(&recebido);                    // record from the server
//   entrada.SetPonteiroFilial(3);
//   entrada.GetPtrProduto(0)->SetQuantidade(CY{20000});  // 2.0000
//   const kx::RegistroDe registro(entrada);  // record for the server
//
// Money, quantities and weights are in 1/10,000. Codes (Situacao, FretePorConta, IndicadorTipoNF,
// TipoNota, the Status bytes, VersaoGravacao) belong to the server and pass through unchanged.
#pragma once

#include "core/Financeiro.h"
#include "kxldados/CIEVinculo.h"
#include "kxldados/Dinheiro.h"
#include "re/ItensRE.h"
#include "re/RegistrosRE.h"

// An invoice that the entry refers to, over tagREG_NF_REFERIDASPS (96 bytes).
class KX_API CKXDadosCM_RENFReferidas : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_RENFReferidas, TKXCMBaseParaDados, tagREG_NF_REFERIDASPS)

#define KX_CLASSE CKXDadosCM_RENFReferidas
#define KX_TABELA "re/tagREG_NF_REFERIDASPS.def"
#include "core/tabela/Acessores.h"
};

// An observation on one fiscal operation code, over tagREG_OBSERVACAO_CFOPPS (32 bytes) and an
// unbounded text.
class KX_API CKXDadosCM_REObservacaoCFOP : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REObservacaoCFOP, TKXCMBaseParaDados, tagREG_OBSERVACAO_CFOPPS)
  KX_MEMBRO(CKXDadosCM_REObservacaoCFOP, CString, Observacao)

#define KX_CLASSE CKXDadosCM_REObservacaoCFOP
#define KX_TABELA "re/tagREG_OBSERVACAO_CFOPPS.def"
#include "core/tabela/Acessores.h"

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Contado(&Esta::_Observacao, &Registro::Observacao);
  }
};

// One goods-receipt entry, over tagREG_ENTRADAPS (1,368 bytes).
//
// Beside the record's fields it holds the payment condition (four values, the installments and the
// tax titles travel in the record), two remarks (at most their first 7,000 characters travel; the
// object keeps them whole) and seven collections. Logs, PosicaoProdutoRecebimento, Vinculo, the
// work values and the work flags never travel.
//
// Record arrays and texts come from the task allocator; the firearm descriptions of the stock-entry
// lines alone come from array new.
//
// Equality compares everything that travels, reserved bytes included, and the collections Logs and
// PosicaoProdutoRecebimento.
class KX_API CKXDadosCM_RERegistroEntrada : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_RERegistroEntrada, TKXCMBaseParaDados, tagREG_ENTRADAPS)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, CKXDadosCM_CondicaoPagamento, CondicaoPagamento)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, CString, ObservacaoGeral)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, CString, ObservacaoFisco)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, CIEVinculo, Vinculo)
  // Work values of the data-entry programs, which the library carries and never reads. While one of
  // the three Ignorar... flags is set, the program leaves out a check before it saves: that
  // products are linked to purchase orders, that the products have one destination, that the
  // services have.
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, std::uint32_t, FornecedorRecebimento)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, std::int32_t, IgnorarVerificacaoAssocicaoOCProduto)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, std::int32_t, IgnorarDestinosDiferentesProduto)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, std::int32_t, IgnorarDestinosDiferentesServico)
  KX_COLECAO(CKXDadosCM_RERegistroEntrada, Produto, CKXDadosCM_REItemProduto)
  KX_COLECAO(CKXDadosCM_RERegistroEntrada, Servico, CKXDadosCM_REItemServico)
  KX_COLECAO(CKXDadosCM_RERegistroEntrada, AssociacaoREOC, REG_KXDMC)  // keys of purchase orders
  KX_COLECAO(CKXDadosCM_RERegistroEntrada, Referidas, CKXDadosCM_RENFReferidas)
  KX_COLECAO(CKXDadosCM_RERegistroEntrada, Logs, CString)
  KX_COLECAO(CKXDadosCM_RERegistroEntrada, ObservacoesCFOP, CKXDadosCM_REObservacaoCFOP)
  KX_COLECAO(CKXDadosCM_RERegistroEntrada, PosicaoProdutoRecebimento, _REG_POSICAO_PRODUTOPS)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, bool, LiberouAlteracaoVlrUnitOC)
  KX_MEMBRO(CKXDadosCM_RERegistroEntrada, bool, Integrar)

#define KX_CLASSE CKXDadosCM_RERegistroEntrada
#define KX_TABELA "re/tagREG_ENTRADAPS.def"
#include "core/tabela/Acessores.h"

  // The getters that the sums below add up.
  using GetterProduto = CKXDadosCM_REItemProduto::Function_Get_CURRENCY;
  using GetterProdutoUCHAR = CKXDadosCM_REItemProduto::Function_Get_UCHAR;
  using GetterServico = CKXDadosCM_REItemServico::Function_Get_CURRENCY;
  using GetterTotais = CKXDadosCM_REItemProdutoTotais::Function_Get_CURRENCY;
  using GetterRateioProduto = CKXDadosCM_RERateioProduto::Function_Get_CURRENCY;
  using GetterRateioServico = CKXDadosCM_RERateioServico::Function_Get_CURRENCY;
  using GetterEntradaEstoque = CKXDadosCM_REEntradaEstoque::Function_Get_CURRENCY;

  // Sums of a getter's value over the items, by currency addition, for example
  //   entrada.GetSomaProdutoDe(&CKXDadosCM_REItemProduto::GetValorTotal)
  // The sum of the 8-bit getter wraps at 256.
  CKXCurrencyEx GetSomaProdutoDe(GetterProduto getter) const;
  std::uint8_t GetSomaProdutoDe(GetterProdutoUCHAR getter) const;
  CKXCurrencyEx GetSomaServicoDe(GetterServico getter) const;
  // Over all totals records of all product items.
  CKXCurrencyEx GetSomaProdutoTotaisDe(GetterTotais getter) const;

  // Sums over the lines of the item at the index, or of all items when it is kTodosOsItens. An
  // index beyond the items raises std::out_of_range "invalid vector<T> subscript".
  static constexpr long long kTodosOsItens = -1;
  CKXCurrencyEx GetSomaRateioProdutoDe(GetterRateioProduto getter,
                                       long long indice = kTodosOsItens) const;
  CKXCurrencyEx GetSomaRateioServicoDe(GetterRateioServico getter,
                                       long long indice = kTodosOsItens) const;
  CKXCurrencyEx GetSomaEntradaEstoqueProdutoDe(GetterEntradaEstoque getter,
                                               long long indice = kTodosOsItens) const;

  // The sum of up to three parts of an item: its own value, that of its first totals record, those
  // of all its apportionment lines. A null getter leaves its part out. The form over an entry adds
  // the sums of all its items.
  static CKXCurrencyEx GetSomaSuper(const CKXDadosCM_REItemProduto& item, GetterProduto doItem,
                                    GetterTotais dosTotais, GetterRateioProduto doRateio);
  static CKXCurrencyEx GetSomaSuper(const CKXDadosCM_REItemServico& item, GetterServico doItem,
                                    GetterRateioServico doRateio);
  static CKXCurrencyEx GetSomaSuper(const CKXDadosCM_RERegistroEntrada& entrada,
                                    GetterProduto doProduto, GetterTotais dosTotais,
                                    GetterRateioProduto doRateioProduto, GetterServico doServico,
                                    GetterRateioServico doRateioServico);
  // Kept for existing callers; new code uses GetSomaSuper.
  static CKXCurrencyEx GetSomaRateioProdutoDe_e_ProdutoTotaisDe_deprecated(
      const CKXDadosCM_RERegistroEntrada& entrada, GetterRateioProduto doRateio,
      GetterTotais dosTotais);

 protected:
  // What operator== answers; false for an object of another class and for null.
  bool OnIgual(const TKXBaseParaDados* outro) const override;
  // The checksum of the 1,368 bytes of the stored record, from 0 whatever is passed in: the payment
  // condition's four values are in it as they were last read. Texts and collections are not.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;

  template <class V>
  static void Partes(V&& v) {
    v.Condicao(&Esta::_CondicaoPagamento);
    v.Contado(&Esta::_ObservacaoGeral, &Registro::ObservacaoGeral, kMaximoObservacao);
    v.Contado(&Esta::_ObservacaoFisco, &Registro::ObservacaoFisco, kMaximoObservacao);
    v.NaoComparado(KX_DO_OBJETO(Vinculo));
    v.NaoComparado(KX_DO_OBJETO(FornecedorRecebimento));
    v.Auxiliar(KX_DO_OBJETO(IgnorarVerificacaoAssocicaoOCProduto));
    v.Auxiliar(KX_DO_OBJETO(IgnorarDestinosDiferentesProduto));
    v.Auxiliar(KX_DO_OBJETO(IgnorarDestinosDiferentesServico));
    v.Lista(&Esta::_ListaProduto, &Registro::ListaProduto, &Registro::QtdProduto);
    v.Lista(&Esta::_ListaServico, &Registro::ListaServico, &Registro::QtdServico);
    v.Lista(&Esta::_ListaAssociacaoREOC, &Registro::ListaAssociacaoREOC,
            &Registro::QtdAssociacaoREOC);
    v.Lista(&Esta::_ListaReferidas, &Registro::ListaReferidas, &Registro::QtdReferidas);
    v.Local(KX_DO_OBJETO(ListaLogs));
    v.Lista(&Esta::_ListaObservacoesCFOP, &Registro::ListaObservacoesCFOP,
            &Registro::QtdObservacoesCFOP);
    v.Local(KX_DO_OBJETO(ListaPosicaoProdutoRecebimento));
    v.Auxiliar(KX_DO_OBJETO(LiberouAlteracaoVlrUnitOC));
    v.Auxiliar(KX_DO_OBJETO(Integrar));
  }

 private:
  static constexpr std::size_t kMaximoObservacao = 7000;
};
