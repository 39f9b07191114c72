#include "cc/DadosCC.h"

#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosCC";

CKXCurrencyEx PercentualDeValor(const CY& valor, CY& percentual, const CKXCurrencyEx& total) {
  if (valor == CY{}) return {};
  percentual = CKXCurrencyEx(valor) * CKXCurrencyEx::DeInteiro(100) / total;
  return percentual;
}

CKXCurrencyEx ValorDePercentual(const CY& percentual, CY& valor, const CKXCurrencyEx& total) {
  if (percentual == CY{}) return {};
  valor = CKXCurrencyEx(percentual) * total / CKXCurrencyEx::DeInteiro(100);
  return valor;
}

}  // namespace

KX_IMPLEMENTA(CKXDadosCM_CCAditivo, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CCReajuste, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CCNotaFiscal, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CCClassificacao, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CCExecucao, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CCParcela, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CCUsuario, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CCContrato, TKXCMBaseParaDados, Delete)

CKXCurrencyEx CKXDadosCM_CCClassificacao::CalculaPercentual(CKXCurrencyEx total) noexcept {
  return PercentualDeValor(_ValorRateio, _Reg.PercRateio, total);
}

CKXCurrencyEx CKXDadosCM_CCClassificacao::CalculaValor(CKXCurrencyEx total) noexcept {
  return ValorDePercentual(_Reg.PercRateio, _ValorRateio, total);
}

CKXCurrencyEx CKXDadosCM_CCParcela::CalculaPercentualDescontos(CKXCurrencyEx total) noexcept {
  return PercentualDeValor(_Reg.ValorDescontos, _Reg.PercentualDescontos, total);
}

CKXCurrencyEx CKXDadosCM_CCParcela::CalculaPercentualJuros(CKXCurrencyEx total) noexcept {
  return PercentualDeValor(_ValorJuros, _Reg.PercentualJuros, total);
}

CKXCurrencyEx CKXDadosCM_CCParcela::CalculaPercentualMultas(CKXCurrencyEx total) noexcept {
  return PercentualDeValor(_Reg.ValorMultas, _Reg.PercentualMultas, total);
}

CKXCurrencyEx CKXDadosCM_CCParcela::CalculaValorDescontos(CKXCurrencyEx total) noexcept {
  return ValorDePercentual(_Reg.PercentualDescontos, _Reg.ValorDescontos, total);
}

CKXCurrencyEx CKXDadosCM_CCParcela::CalculaValorJuros(CKXCurrencyEx total) noexcept {
  return ValorDePercentual(_Reg.PercentualJuros, _ValorJuros, total);
}

CKXCurrencyEx CKXDadosCM_CCParcela::CalculaValorMultas(CKXCurrencyEx total) noexcept {
  return ValorDePercentual(_Reg.PercentualMultas, _Reg.ValorMultas, total);
}
