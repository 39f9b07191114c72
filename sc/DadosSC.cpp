#include "sc/DadosSC.h"

#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosSC";

}  // namespace

KX_IMPLEMENTA(CKXDadosCM_SCRateio, CKXDadosCM_RateioBase, Delete)
KX_IMPLEMENTA(CKXDadosCM_SCFornecedor, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_SCItem, TKXCMBaseParaDados, Delete)

// All but the writing, which cuts the object's own text.
KX_IMPLEMENTA_REGISTRO(CKXDadosCM_SCSolicitacaoCompra, TKXCMBaseParaDados)
KX_IMPLEMENTA_LIBERACAO(CKXDadosCM_SCSolicitacaoCompra)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_SCSolicitacaoCompra)
KX_IMPLEMENTA_ALOCADOR(CKXDadosCM_SCSolicitacaoCompra, Delete)

bool CKXDadosCM_SCFornecedor::CompareElements(const CKXDadosCM_SCFornecedor& a,
                                              const CKXDadosCM_SCFornecedor& b) {
  return a.GetPonteiroFornecedor() == b.GetPonteiroFornecedor();
}

CKXDadosCM_SCSolicitacaoCompra& CKXDadosCM_SCSolicitacaoCompra::CopiarPara(Registro* destino) {
  const int sobra = _Observacao.GetLength() - kMaximoObservacao;
  if (sobra > 0) _Observacao.Delete(kMaximoObservacao, sobra);
  kx::Escrita::Registro(*this, destino, kAlocador);
  return *this;
}
