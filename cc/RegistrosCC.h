// The flat records of purchase contracts, elements before their owner.
#pragma once

#include "core/Registros.h"

#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_ADITIVOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_REAJUSTEPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_NOTA_FISCALPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_CLASSIFICACAOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_EXECUCAOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_PARCELAPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRA_USUARIOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cc/tagREG_CONTRATO_COMPRAPS.def"
#include "core/tabela/Registro.h"
