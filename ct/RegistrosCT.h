// The flat records of freight bills, elements before their owners.
#pragma once

#include "core/Registros.h"

#define KX_TABELA "ct/tagREG_RATEIO_CONHECIMENTOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "ct/tagREG_NOTAFISCAL_CONHECIMENTOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "ct/tagREG_CONHECIMENTOPS.def"
#include "core/tabela/Registro.h"
