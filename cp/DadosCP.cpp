#include "cp/DadosCP.h"

#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosCP";

}  // namespace

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_RateioCotacaoPreco, CKXDadosCM_RateioBase)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_RateioCotacaoPreco, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_RateioCotacaoPreco)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_FornecedorCotacaoPreco, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_FornecedorCotacaoPreco, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_FornecedorCotacaoPreco)

bool CKXDadosCM_FornecedorCotacaoPreco::CompareElements(
    const CKXDadosCM_FornecedorCotacaoPreco& a, const CKXDadosCM_FornecedorCotacaoPreco& b) {
  return a.GetPonteiroFornecedor() == b.GetPonteiroFornecedor();
}

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_ItemCotacaoPreco, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_ItemCotacaoPreco, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_ItemCotacaoPreco)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_AcompanhamentoCotacaoPreco, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_AcompanhamentoCotacaoPreco, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_AcompanhamentoCotacaoPreco)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CotacaoPreco, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CotacaoPreco, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CotacaoPreco)
