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

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CCAditivo, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CCAditivo, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CCAditivo)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CCReajuste, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CCReajuste, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CCReajuste)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CCNotaFiscal, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CCNotaFiscal, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CCNotaFiscal)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CCClassificacao, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CCClassificacao, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CCClassificacao)

CKXCurrencyEx CKXDadosCM_CCClassificacao::CalculaPercentual(CKXCurrencyEx total) noexcept {
  return PercentualDeValor(_ValorRateio, _Reg.PercRateio, total);
}

CKXCurrencyEx CKXDadosCM_CCClassificacao::CalculaValor(CKXCurrencyEx total) noexcept {
  return ValorDePercentual(_Reg.PercRateio, _ValorRateio, total);
}

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CCExecucao, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CCExecucao, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CCExecucao)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CCParcela, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CCParcela, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CCParcela)

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

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CCUsuario, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CCUsuario, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CCUsuario)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CCContrato, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CCContrato, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CCContrato)
