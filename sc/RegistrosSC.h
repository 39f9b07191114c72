// The flat records of purchase requests, elements before their owners. The apportionment line,
// which quotations use too, stands in core/Registros.h.
#pragma once

#include "core/Registros.h"

#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRA_FORNECEDORPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRA_ITEMPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "sc/tagREG_SOLICITACAO_COMPRAPS.def"
#include "core/tabela/Registro.h"
