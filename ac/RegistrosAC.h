// The flat records of purchase approval, elements before their owners.
#pragma once

#include "core/Registros.h"

#define KX_TABELA "ac/tagREG_CM_AUTORIZACAO_USUARIO_CMSAUTPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "ac/tagREG_CM_AUTORIZACAO_USUARIOS_CMSAUTPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "ac/tagREG_CM_AUTORIZACAO_CMSAUTPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "ac/tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS.def"
#include "core/tabela/Registro.h"
#define KX_TABELA "ac/tagREG_CM_LE_LISTA_AC_CMSAUTPS.def"
#include "core/tabela/Registro.h"
