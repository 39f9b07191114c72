#include "cp/DadosCP.h"

#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosCP";

}  // namespace

KX_IMPLEMENTA(CKXDadosCM_RateioCotacaoPreco, CKXDadosCM_RateioBase, Delete)
KX_IMPLEMENTA(CKXDadosCM_FornecedorCotacaoPreco, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_ItemCotacaoPreco, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_AcompanhamentoCotacaoPreco, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CotacaoPreco, TKXCMBaseParaDados, Delete)

bool CKXDadosCM_FornecedorCotacaoPreco::CompareElements(
    const CKXDadosCM_FornecedorCotacaoPreco& a, const CKXDadosCM_FornecedorCotacaoPreco& b) {
  return a.GetPonteiroFornecedor() == b.GetPonteiroFornecedor();
}
