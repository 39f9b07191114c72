// Stock-entry lines of the goods receipt: where goods go, how much, which lot, the data of firearms
// and new vehicles, the composition; and the descriptor that says which of these data a kind of
// stock movement uses. Money and quantities are in 1/10,000.
#pragma once

#include "core/Rateio.h"
#include "re/RegistrosRE.h"

// One component of a composed product, over _REG_ITEM_ENTRADA_COMPOSICAOPS (120 bytes).
class KX_API CKXDadosCM_REComposicao : public TKXCMBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REComposicao, TKXCMBaseParaDados, _REG_ITEM_ENTRADA_COMPOSICAOPS)

#define KX_CLASSE CKXDadosCM_REComposicao
#define KX_TABELA "re/_REG_ITEM_ENTRADA_COMPOSICAOPS.def"
#include "core/tabela/Acessores.h"

  // The stock subsystem's form of the line (272 bytes). Every byte of that record that has no field
  // here belongs to the stock subsystem: written as zero, not read.
  CKXDadosCM_REComposicao& CopiarDe(const REG_ES_COMPOSICAO_PRODUTOPS* origem);
  const CKXDadosCM_REComposicao& CopiarPara(REG_ES_COMPOSICAO_PRODUTOPS* destino) const;
  const CKXDadosCM_REComposicao& CopiarParaPS(REG_ES_COMPOSICAO_PRODUTOPS* destino) const;
  // Its releases; nothing hangs from it.
  static void ZerarDelete(REG_ES_COMPOSICAO_PRODUTOPS* registro);
  static void ZerarGlobalAlloc(REG_ES_COMPOSICAO_PRODUTOPS* registro);
};

// One stock-entry line, over _REG_ENTRADA_ESTOQUE_ENTRADAPS (544 bytes). The inherited management
// accounts are those of the entry side. CopiarPara takes its arrays from the task allocator, the
// firearm description alone from array new.
class KX_API CKXDadosCM_REEntradaEstoque : public CKXDadosCM_RateioBase {
  KX_CLASSE_DE_REGISTRO(CKXDadosCM_REEntradaEstoque, CKXDadosCM_RateioBase,
                        _REG_ENTRADA_ESTOQUE_ENTRADAPS)
  KX_MEMBRO(CKXDadosCM_REEntradaEstoque, CString, ArmaFogo_Descricao)
  KX_COLECAO(CKXDadosCM_REEntradaEstoque, GerencialSaida, TKXGerencial)
  KX_COLECAO(CKXDadosCM_REEntradaEstoque, Composicao, CKXDadosCM_REComposicao)

#define KX_CLASSE CKXDadosCM_REEntradaEstoque
#define KX_TABELA "re/_REG_ENTRADA_ESTOQUE_ENTRADAPS.def"
#include "core/tabela/Acessores.h"

  // A getter of money of this class.
  using Function_Get_CURRENCY = const CY& (CKXDadosCM_REEntradaEstoque::*)() const;

  // The value of a money getter on this line.
  const CY& Get_CURRENCY(Function_Get_CURRENCY getter) const { return (this->*getter)(); }

  // VariavelSomaGerencial as the management-account checks read it.
  eVariavelSomaGerencial GeteVariavelSomaGerencial() const {
    return static_cast<eVariavelSomaGerencial>(_Reg.VariavelSomaGerencial);
  }

  // True when any datum of a lot or of a firearm is filled. Vehicle, quantity, location and
  // classification do not count.
  bool TemDadosNoLote() const;
  // Clears exactly what TemDadosNoLote tests.
  CKXDadosCM_REEntradaEstoque& ZerarDadosDoLote();

 protected:
  // The checksum of the stored record, from 0 whatever is passed in; collections and the firearm
  // description do not enter it.
  unsigned long OnCalculaCRC(unsigned long* anterior) const override;

  template <class V>
  static void Partes(V&& v) {
    v.Contado(&Esta::_ArmaFogo_Descricao, &Registro::ArmaFogo_Descricao, kx::kSemLimite,
              kx::Alocador::Delete);
    v.Lista(&Esta::_ListaGerencialSaida, &Registro::ListaGerencialSaida,
            &Registro::QtdGerencialSaida);
    v.ListaHerdada(&Esta::_ListaGerencial, &Registro::ListaGerencial, &Registro::QtdGerencial);
    v.Lista(&Esta::_ListaComposicao, &Registro::ListaComposicao, &Registro::QtdComposicao);
  }
};

// One named kind of stock movement in the descriptor.
class KX_API CKXDadosCM_REQualEntradaEstoqueTipo : public TKXCMBaseParaDados {
  KX_CLASSE_SEM_REGISTRO(CKXDadosCM_REQualEntradaEstoqueTipo, TKXCMBaseParaDados)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoqueTipo, std::uint8_t, Tipo)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoqueTipo, CString, Nome)

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(Tipo));
    v.Local(KX_DO_OBJETO(Nome));
  }
};

// Says which stock-entry data a kind of stock movement uses, so that screens and checks know what
// to ask for. It has no flat record. A cleared descriptor has QuemContabilizouES 1,
// CaracteristicaCFRT 12 and CaracteristicaLocal 512; everything else is zero or empty.
class KX_API CKXDadosCM_REQualEntradaEstoque : public TKXCMBaseParaDados {
  KX_CLASSE_SEM_REGISTRO(CKXDadosCM_REQualEntradaEstoque, TKXCMBaseParaDados)
  // Flags: 0 or not.
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaTipo)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaSaidaLocal)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaSaidaMovOriEstoque)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaSaidaClassificacao)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaOrigemClassificacaoRateio)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaEntradaLocal)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaEntradaClassificacao)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaEntradaCFRT)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaEntradaProduto)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaEntradaLote)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaComposicao)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, UsaGerencial)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, CFRT_Eh_Possuidor)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::int32_t, CFRT_Eh_Proprietario)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::uint8_t, QuemContabilizouES)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::uint8_t, NivelDetalheEntrada)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::uint8_t, NivelDetalheSaida)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::uint16_t, CaracteristicaCFRT)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, std::uint16_t, CaracteristicaLocal)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, CString, LabelCFRT)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, CString, LabelSaidaClassificacao)
  KX_MEMBRO(CKXDadosCM_REQualEntradaEstoque, CString, LabelTipo)
  KX_COLECAO(CKXDadosCM_REQualEntradaEstoque, Tipo, CKXDadosCM_REQualEntradaEstoqueTipo)
  // Kinds of place; a value added twice is held twice.
  KX_COLECAO(CKXDadosCM_REQualEntradaEstoque, TipoLocalEntrada, std::int32_t)
  KX_COLECAO(CKXDadosCM_REQualEntradaEstoque, TipoLocalSaida, std::int32_t)

  // True when the collection holds the value. ContemTipo looks at the Tipo of its elements alone.
  bool ContemEntrada(int tipoLocal) const;
  bool ContemSaida(int tipoLocal) const;
  bool ContemTipo(unsigned char tipo) const;

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(UsaTipo));
    v.Local(KX_DO_OBJETO(UsaSaidaLocal));
    v.Local(KX_DO_OBJETO(UsaSaidaMovOriEstoque));
    v.Local(KX_DO_OBJETO(UsaSaidaClassificacao));
    v.Local(KX_DO_OBJETO(UsaOrigemClassificacaoRateio));
    v.Local(KX_DO_OBJETO(UsaEntradaLocal));
    v.Local(KX_DO_OBJETO(UsaEntradaClassificacao));
    v.Local(KX_DO_OBJETO(UsaEntradaCFRT));
    v.Local(KX_DO_OBJETO(UsaEntradaProduto));
    v.Local(KX_DO_OBJETO(UsaEntradaLote));
    v.Local(KX_DO_OBJETO(UsaComposicao));
    v.Local(KX_DO_OBJETO(UsaGerencial));
    v.Local(KX_DO_OBJETO(CFRT_Eh_Possuidor));
    v.Local(KX_DO_OBJETO(CFRT_Eh_Proprietario));
    v.Local(KX_DO_OBJETO(QuemContabilizouES), std::uint8_t{1});
    v.Local(KX_DO_OBJETO(NivelDetalheEntrada));
    v.Local(KX_DO_OBJETO(NivelDetalheSaida));
    v.Local(KX_DO_OBJETO(CaracteristicaCFRT), std::uint16_t{12});
    v.Local(KX_DO_OBJETO(CaracteristicaLocal), std::uint16_t{512});
    v.Local(KX_DO_OBJETO(LabelCFRT));
    v.Local(KX_DO_OBJETO(LabelSaidaClassificacao));
    v.Local(KX_DO_OBJETO(LabelTipo));
    v.Local(KX_DO_OBJETO(ListaTipo));
    v.Local(KX_DO_OBJETO(ListaTipoLocalEntrada));
    v.Local(KX_DO_OBJETO(ListaTipoLocalSaida));
  }
};
