#include "re/ItensRE.h"

#include "core/Checksum.h"
#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosRE";

// The one value of CFOPNFComplementar that marks an item of a complementary invoice.
constexpr unsigned char kComplementar = 1;

}  // namespace

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_REItemAssociacaoREOC, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_REItemAssociacaoREOC, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REItemAssociacaoREOC)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_REMargemLucro, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_REMargemLucro, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REMargemLucro)

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_REFormacaoPrecoVenda, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_REFormacaoPrecoVenda, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REFormacaoPrecoVenda)

CKXDadosCM_REFormacaoPrecoVenda& CKXDadosCM_REFormacaoPrecoVenda::CopiarDe(
    CKXDadosCM_REMargemLucro origem) {  // NOLINT(performance-*): the published signature
  _Reg = origem._Reg;
  return *this;
}

const CKXDadosCM_REFormacaoPrecoVenda& CKXDadosCM_REFormacaoPrecoVenda::CopiarPara(
    CKXDadosCM_REMargemLucro* destino) const {
  if (destino != nullptr) destino->_Reg = _Reg;
  return *this;
}

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_REItemProdutoTotais, TKXCMBaseParaDados)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_REItemProdutoTotais, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REItemProdutoTotais)

KX_IMPLEMENTA_VIDA(CKXDadosCM_REItemBase, TKXCMBaseParaDados)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REItemBase)

CKXDadosCM_REItemBase::CKXDadosCM_REItemBase() = default;

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_REItemProduto, CKXDadosCM_REItemBase)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_REItemProduto, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REItemProduto)

const CY& CKXDadosCM_REItemProduto::GetQuantidadeReal() const {
  return _Reg.CFOPNFComplementar == kComplementar ? _Reg.NFComplementarQuantidade : _Reg.Quantidade;
}

const CY& CKXDadosCM_REItemProduto::GetValorTotalReal() const {
  return _Reg.CFOPNFComplementar == kComplementar ? _Reg.NFComplementarValorTotal : _Reg.ValorTotal;
}

CY CKXDadosCM_REItemProduto::GetQuantidadeReal(unsigned char complementar, CY normal,
                                               CY complemento) {
  return complementar == kComplementar ? complemento : normal;
}

CY CKXDadosCM_REItemProduto::GetValorTotalReal(unsigned char complementar, CY normal,
                                               CY complemento) {
  return GetQuantidadeReal(complementar, normal, complemento);
}

unsigned long CKXDadosCM_REItemProduto::OnCalculaCRC(unsigned long* /*anterior*/) const {
  return kx::CalculaChecksum(&_Reg, sizeof(_Reg));
}

KX_IMPLEMENTA_REGISTRO(CKXDadosCM_REItemServico, CKXDadosCM_REItemBase)
KX_IMPLEMENTA_CONVERSAO(CKXDadosCM_REItemServico, kx::Alocador::Tarefa, kFonte)
KX_IMPLEMENTA_IGUALDADE(CKXDadosCM_REItemServico)

unsigned long CKXDadosCM_REItemServico::OnCalculaCRC(unsigned long* /*anterior*/) const {
  return kx::CalculaChecksum(&_Reg, sizeof(_Reg));
}
