// The flat records that all documents share: their structs, each with the proof of its layout, and
// their metadata (KXMetadados<record>). The fields, with offsets and meanings, are the rows of the
// tables; money is in 1/10,000. Elements of a child array stand before the record that owns it.
#pragma once

#include "core/Metadados.h"
#include "kxldados/Tipos.h"

// Keys of documents, as elements of a child array.
template <>
struct KXMetadados<REG_KXDMC> {
  using Registro = REG_KXDMC;
  static constexpr KXCampo kCampos[] = {
      {"Data", 0, 4, KXTipoCampo::Data, KXPapel::Campo, true, __LINE__,
       "date that opens the series", nullptr},
      {"Contador", 4, 4, KXTipoCampo::SemSinal32, KXPapel::Campo, true, __LINE__,
       "number within that date", nullptr},
  };
  static constexpr KXRegistroInfo kInfo{"REG_KXDMC", "key of a document", sizeof(REG_KXDMC),
                                        kCampos};
  static void VisitaPendentes(Registro& /*registro*/, auto&& /*visitante*/) noexcept {}
};

// Answer of the server about a document.
#define KX_TABELA "core/tagREG_CM_SITUACAO_PS.def"
#include "core/tabela/Registro.h"

// Apportionment and withholding.
#define KX_TABELA "core/tagREG_GERENCIALPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "core/tagREG_PROCESSO_JURIDICOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "core/tagREG_SOLICITACAO_RATEIO_COMPRAPS.def"
#include "core/tabela/Registro.h"

// Taxes, and the installments that hold them.
#define KX_TABELA "core/tagREG_IMPOSTO_DEDUCAOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "core/tagREG_ITEM_IMPOSTOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "core/tagREG_COTACAOITEMFATURAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "core/tagREG_FATURA_COMPRAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "core/tagREG_FATURA_CONHECIMENTOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "core/tagREG_FATURA_ENTRADAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "core/tagREG_TITULO_IMPOSTOPS.def"
#include "core/tabela/Registro.h"
