// The flat records of price quotations, elements before their owners. The apportionment line, which
// requests use too, stands in core/Registros.h.
#pragma once

#include "core/Registros.h"

#define KX_TABELA "cp/tagREG_COTACAOITEMFORNECEDORPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cp/tagREG_COTACAOITEMPRODUTOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cp/tagREG_COTACAOACOMPANHAMENTOPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "cp/tagREG_COTACAOPS.def"
#include "core/tabela/Registro.h"
