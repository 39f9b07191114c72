#include "kxldados/CIEVinculo.h"

KX_IMPLEMENTA_CLASSE(CIEVinculo, TKXBaseParaDados)

CIEVinculo& CIEVinculo::operator=(const CIEVinculo& outro) {
  Copiar(&outro);
  return *this;
}

CIEVinculo& CIEVinculo::SetChave(const REG_KXDMC& valor) {
  _Chave = valor;
  return *this;
}

CIEVinculo& CIEVinculo::SetTipo(const std::int32_t& valor) {
  _Tipo = valor;
  return *this;
}

bool CIEVinculo::operator==(const CIEVinculo& outro) const {
  return _Chave == outro._Chave && _Tipo == outro._Tipo;
}

void CIEVinculo::OnLimpar() {
  _Chave = {};
  _Tipo = 0;
  TKXBaseParaDados::OnLimpar();
}

void CIEVinculo::OnCopiar(const TKXBaseParaDados* origem) {
  TKXBaseParaDados::OnCopiar(origem);
  if (origem == nullptr) return;
  const auto& outro = static_cast<const CIEVinculo&>(*origem);
  _Chave = outro._Chave;
  _Tipo = outro._Tipo;
}

bool CIEVinculo::OnEstaVazio() const {
  return TKXBaseParaDados::OnEstaVazio() && *this == CIEVinculo();
}
