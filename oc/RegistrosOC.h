// The flat records of purchase orders, elements before their owners.
#pragma once

#include "core/Registros.h"

#define KX_TABELA "oc/tagREG_RECEBIMENTO_COMPRAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "oc/tagREG_PROGRAMACAO_COMPRAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "oc/tagREG_RATEIO_COMPRAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "oc/tagREG_ITEM_TOTAIS_ORDEMPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "oc/tagREG_ITENS_ORDEMPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "oc/tagREG_CANCELAMENTO_ORDEM_COMPRAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "oc/tagREG_ORDEMPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "oc/tagREG_ORDEM_LIGHTPS.def"
#include "core/tabela/Registro.h"
