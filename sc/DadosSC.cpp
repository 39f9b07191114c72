#include "sc/DadosSC.h"

#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosSC";

}  // namespace

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_SCRateio, CKXDadosCM_RateioBase)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_SCRateio, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_SCRateio)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_SCFornecedor, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_SCFornecedor, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_SCFornecedor)

bool CKXDadosCM_SCFornecedor::CompareElements(const CKXDadosCM_SCFornecedor& a,
                                              const CKXDadosCM_SCFornecedor& b) {
  return a.GetPonteiroFornecedor() == b.GetPonteiroFornecedor();
}

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_SCItem, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_SCItem, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_SCItem)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_SCSolicitacaoCompra, TKXCMBaseParaDados)
KX_IMPLEMENTA_LEITURA(CKXDadosCM_SCSolicitacaoCompra, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_SCSolicitacaoCompra)

CKXDadosCM_SCSolicitacaoCompra& CKXDadosCM_SCSolicitacaoCompra::CopiarPara(Registro* destino) {
  const int sobra = _Observacao.GetLength() - kMaximoObservacao;
  if (sobra > 0) _Observacao.Delete(kMaximoObservacao, sobra);
  kx::Motor::Escreve(*this, destino, kx::Alocador::Delete, kFonte, __LINE__);
  return *this;
}
