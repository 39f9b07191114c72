#include "ac/RegrasAC.h"

#include "core/Igualdade.h"

namespace {

// The record as it is compared: a product without a status, or a status without a product, names
// none.
tagREG_CM_AUTORIZACAO_CMSAUTPS SemProdutoIncompleto(tagREG_CM_AUTORIZACAO_CMSAUTPS regra) {
  if (regra.PonteiroProdutoServico == 0 || regra.StatusProdutoServico == 0) {
    regra.PonteiroProdutoServico = 0;
    regra.StatusProdutoServico = 0;
  }
  return regra;
}

}  // namespace

bool CKXDadosCM_ACAutorizacaoCompra::operator==(const CKXDadosCM_ACAutorizacaoCompra& outro) const {
  return kx::RegistrosIguais(SemProdutoIncompleto(_Reg), SemProdutoIncompleto(outro._Reg)) &&
         _ListaUsuarios_AND == outro._ListaUsuarios_AND;
}

_REG_POSICAO_PRODUTOPS CKXDadosCM_ACAutorizacaoCompra::GetRegPosicaoProdutoServico() const {
  return {static_cast<std::int32_t>(_Reg.PonteiroProdutoServico),
          _Reg.PonteiroItemGrade1,
          _Reg.PonteiroItemGrade2,
          _Reg.PonteiroItemGrade3,
          {}};
}

CKXDadosCM_ACAutorizacaoCompra& CKXDadosCM_ACAutorizacaoCompra::SetRegPosicaoProdutoServico(
    const _REG_POSICAO_PRODUTOPS& valor) {
  _Reg.PonteiroProdutoServico = static_cast<std::uint32_t>(valor.PonteiroProduto);
  _Reg.PonteiroItemGrade1 = valor.PonteiroItemGrade1;
  _Reg.PonteiroItemGrade2 = valor.PonteiroItemGrade2;
  _Reg.PonteiroItemGrade3 = valor.PonteiroItemGrade3;
  return *this;
}
