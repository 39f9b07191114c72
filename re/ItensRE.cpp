#include "re/ItensRE.h"

namespace {

// The one value of CFOPNFComplementar that marks an item of a complementary invoice.
constexpr unsigned char kComplementar = 1;

}  // namespace

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
