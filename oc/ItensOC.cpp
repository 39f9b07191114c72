#include "oc/ItensOC.h"

#include "core/Checksum.h"
#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosOC";

}  // namespace

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_RateioOrdemCompra, CKXDadosCM_RateioBase)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_RateioOrdemCompra, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_RateioOrdemCompra)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_RecebimentoOrdemCompra, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_RecebimentoOrdemCompra, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_RecebimentoOrdemCompra)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_ProgramacaoOrdemCompra, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_ProgramacaoOrdemCompra, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_ProgramacaoOrdemCompra)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_ItemTotaisOrdemCompra, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_ItemTotaisOrdemCompra, kx::Alocador::Delete, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_ItemTotaisOrdemCompra)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_ItemOrdemCompra, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_ItemOrdemCompra, kx::Alocador::Delete, kFonte)

bool CKXDadosCM_ItemOrdemCompra::operator==(const CKXDadosCM_ItemOrdemCompra& outro) const {
  const bool totaisDeUmSo = _ListaTotais.empty() != outro._ListaTotais.empty();
  return (totaisDeUmSo || _ListaTotais == outro._ListaTotais) && kx::Motor::Iguais(*this, outro);
}

unsigned long CKXDadosCM_ItemOrdemCompra::OnCalculaCRC(unsigned long* /*anterior*/) const {
  return kx::CalculaChecksum(&_Reg, sizeof(_Reg));
}

int CKXDadosCM_ItemOrdemCompra::GetUsaImobilizado() const {
  return GetUsaImobilizado(_Reg.ItemEhServico, _Reg.PonteiroCFOP);
}

int CKXDadosCM_ItemOrdemCompra::GetUsaImobilizado(char ItemEhServico, unsigned short PonteiroCFOP) {
  return ItemEhServico != 0 || PonteiroCFOP == 0 ? 1 : 0;
}

int CKXDadosCM_ItemOrdemCompra::GetUsaProdutoDespesa() const {
  return GetUsaProdutoDespesa(_Reg.ItemEhServico, _Reg.PonteiroCFOP);
}

int CKXDadosCM_ItemOrdemCompra::GetUsaProdutoDespesa(char ItemEhServico,
                                                     unsigned short PonteiroCFOP) {
  return ItemEhServico == 0 && PonteiroCFOP == 0 ? 1 : 0;
}
