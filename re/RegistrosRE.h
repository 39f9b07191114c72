// The flat records of the goods receipt: their structs, each with the proof of its layout, and
// their metadata (KXMetadados<record>). The fields, with offsets and meanings, are the rows of the
// tables; money is in 1/10,000. Elements of a child array stand before the record that owns it.
#pragma once

#include "core/Registros.h"

// Apportionment lines.
#define KX_TABELA "re/tagREG_RATEIOPRODUTO_ENTRADAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/tagREG_RATEIOSERVICO_ENTRADAPS.def"
#include "core/tabela/Registro.h"

// Stock entry. REG_ES_COMPOSICAO_PRODUTOPS is the form that the stock subsystem uses.
#define KX_TABELA "re/_REG_ITEM_ENTRADA_COMPOSICAOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/REG_ES_COMPOSICAO_PRODUTOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/_REG_ENTRADA_ESTOQUE_ENTRADAPS.def"
#include "core/tabela/Registro.h"

// Items.
#define KX_TABELA "re/tagREG_ASSOCIACAO_ITEM_RE_OCPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/tagREG_MARGEMLUCROPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/tagREG_ITEM_TOTAIS_ENTRADAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/tagREG_ITEM_ENTRADA_PRODUTOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/tagREG_ITEM_ENTRADA_SERVICOPS.def"
#include "core/tabela/Registro.h"

// The entry.
#define KX_TABELA "re/tagREG_ASSOCIACAO_RE_OCPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/tagREG_NF_REFERIDASPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/tagREG_OBSERVACAO_CFOPPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "re/tagREG_ENTRADAPS.def"
#include "core/tabela/Registro.h"
