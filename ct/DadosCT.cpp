#include "ct/DadosCT.h"

#include "core/Checksum.h"
#include "core/Motor.h"

// The array of purchase orders holds the keys themselves.
static void EscreveElemento(const REG_KXDMC& chave, REG_KXDMC* vaga, kx::Alocador) {
  *vaga = chave;
}

static void LeElemento(CKXVector<REG_KXDMC>& lista, const REG_KXDMC* vaga) {
  kx::CopiaBloco(&lista.emplace_back(), vaga, sizeof(*vaga), "DadosCT", __LINE__);
}

namespace {

constexpr const char* kFonte = "DadosCT";

}  // namespace

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CTNotaFiscal, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CTNotaFiscal, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CTNotaFiscal)

unsigned long CKXDadosCM_CTNotaFiscal::OnCalculaCRC(unsigned long* /*anterior*/) const {
  return kx::CalculaChecksum(&_Reg, sizeof(_Reg));
}

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CTRateio, CKXDadosCM_RateioBase)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_CTRateio, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CTRateio)

unsigned long CKXDadosCM_CTRateio::OnCalculaCRC(unsigned long* /*anterior*/) const {
  return kx::CalculaChecksum(&_Reg, sizeof(_Reg));
}

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_CTConhecimentoTransporte, TKXCMBaseParaDados)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_CTConhecimentoTransporte)

CKXDadosCM_CTConhecimentoTransporte& CKXDadosCM_CTConhecimentoTransporte::CopiarDe(
    const Registro* origem) {
  Base::OnLimpar();
  if (!kx::Motor::Le(*this, origem, kFonte, __LINE__)) return *this;
  _CondicaoPagamento.SetPonteiroCondicaoPagamento(_Reg.PonteiroCondicaoPagamento);
  _CondicaoPagamento.SetPonteiroTipoCobranca(_Reg.PonteiroTipoCobranca);
  // From here on the payment condition alone holds them.
  _Reg.PonteiroCondicaoPagamento = 0;
  _Reg.PonteiroTipoCobranca = 0;
  kx::LeLista(_CondicaoPagamento.GetListaParcela(), origem->ListaParcela, origem->QtdParcela);
  kx::LeLista(_CondicaoPagamento.GetListaTituloImposto(), origem->ListaTituloImposto,
              origem->QtdTituloImposto);
  return *this;
}

const CKXDadosCM_CTConhecimentoTransporte& CKXDadosCM_CTConhecimentoTransporte::CopiarPara(
    Registro* destino) const {
  if (!kx::Motor::Escreve(*this, destino, kx::Alocador::Tarefa, kFonte, __LINE__)) return *this;
  EscreveCondicao(*destino);
  kx::EscreveLista(_CondicaoPagamento.GetListaParcela(), destino->ListaParcela, destino->QtdParcela,
                   kx::Alocador::Tarefa);
  kx::EscreveLista(_CondicaoPagamento.GetListaTituloImposto(), destino->ListaTituloImposto,
                   destino->QtdTituloImposto, kx::Alocador::Tarefa);
  return *this;
}

void CKXDadosCM_CTConhecimentoTransporte::EscreveCondicao(Registro& destino) const {
  destino.PonteiroCondicaoPagamento = _CondicaoPagamento.GetPonteiroCondicaoPagamento();
  destino.PonteiroTipoCobranca = _CondicaoPagamento.GetPonteiroTipoCobranca();
}

unsigned long CKXDadosCM_CTConhecimentoTransporte::OnCalculaCRC(unsigned long* /*anterior*/) const {
  Registro atual = _Reg;
  EscreveCondicao(atual);
  return kx::CalculaChecksum(&atual, sizeof(atual));
}
