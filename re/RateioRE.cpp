#include "re/RateioRE.h"

#include "core/Motor.h"

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_RERateioProduto, CKXDadosCM_RateioBase)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_RERateioProduto, kx::Alocador::Tarefa, "DadosRE")
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_RERateioProduto)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_RERateioServico, CKXDadosCM_RateioBase)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_RERateioServico, kx::Alocador::Tarefa, "DadosRE")
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_RERateioServico)
