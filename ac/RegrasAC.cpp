#include "ac/RegrasAC.h"

tagREG_CM_AUTORIZACAO_CMSAUTPS CKXDadosCM_ACAutorizacaoCompra::ComoSeCompara(Registro regra) {
  if (regra.PonteiroProdutoServico == 0 || regra.StatusProdutoServico == 0) {
    regra.PonteiroProdutoServico = 0;
    regra.StatusProdutoServico = 0;
  }
  return regra;
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
