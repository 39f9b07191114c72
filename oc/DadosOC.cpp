#include "oc/DadosOC.h"

#include <algorithm>
#include <cstring>

#include "core/Checksum.h"
#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosOC";

// The fields, each the same in both.
template <class REG, class... Campos>
bool Concordam(const REG& a, const REG& b, Campos... campos) {
  return ((a.*campos == b.*campos) && ...);
}

bool MesmoConteudo(const CKXDadosCM_RateioOrdemCompra& a, const CKXDadosCM_RateioOrdemCompra& b) {
  using REG = tagREG_RATEIO_COMPRAPS;
  return Concordam(a.GetReg(), b.GetReg(), &REG::Quantidade, &REG::Valor,
                   &REG::PonteiroClassificacao) &&
         a.GetListaGerencial() == b.GetListaGerencial();
}

// Without a product, the text says what is bought.
bool MesmoConteudo(const CKXDadosCM_ItemOrdemCompra& a, const CKXDadosCM_ItemOrdemCompra& b) {
  using REG = tagREG_ITENS_ORDEMPS;
  using Posicao = _REG_POSICAO_PRODUTOPS;
  const REG& regA = a.GetReg();
  const REG& regB = b.GetReg();
  return Concordam(regA, regB, &REG::PonteiroTabelaPreco, &REG::Quantidade, &REG::ValorUnitarioV8,
                   &REG::DescontoUnitarioV8, &REG::ValorDescontoTotalItem, &REG::ValorIPI) &&
         Concordam(regA.PosicaoProduto, regB.PosicaoProduto, &Posicao::PonteiroProduto,
                   &Posicao::PonteiroItemGrade1, &Posicao::PonteiroItemGrade2,
                   &Posicao::PonteiroItemGrade3) &&
         (a.GetPonteiroProdutoServico() != 0 ||
          std::strncmp(regA.Complemento, regB.Complemento, sizeof(regA.Complemento)) == 0) &&
         std::equal(a.GetListaRateio().begin(), a.GetListaRateio().end(),
                    b.GetListaRateio().begin(), b.GetListaRateio().end(),
                    [](const auto& x, const auto& y) { return MesmoConteudo(x, y); });
}

}  // namespace

KX_IMPLEMENTA(CKXDadosCM_RateioOrdemCompra, CKXDadosCM_RateioBase, Delete)
KX_IMPLEMENTA(CKXDadosCM_RecebimentoOrdemCompra, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_ProgramacaoOrdemCompra, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_ItemTotaisOrdemCompra, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_CancelamentoOrdemCompra, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_OrdemCompra, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA(CKXDadosCM_ItemOrdemCompra, TKXCMBaseParaDados, Delete)
KX_IMPLEMENTA_CHECKSUM(CKXDadosCM_ItemOrdemCompra)

REG_KXDMA CKXDadosCM_OrdemCompra::GetDataEmissaoOuCompetencia() const {
  return GetDataEmissaoOuCompetencia(_Reg.RegDataEmissao, _Reg.RegDataCompetencia);
}

REG_KXDMA CKXDadosCM_OrdemCompra::GetDataEmissaoOuCompetencia(const tagREG_ORDEM_LIGHTPS& ordem) {
  return GetDataEmissaoOuCompetencia(ordem.RegDataEmissao, ordem.RegDataCompetencia);
}

REG_KXDMA CKXDadosCM_OrdemCompra::GetDataEmissaoOuCompetencia(const REG_KXDMA& emissao,
                                                              const REG_KXDMA& competencia) {
  return competencia != REG_KXDMA{} ? competencia : emissao;
}

bool CKXDadosCM_OrdemCompra::Igual(const CKXDadosCM_OrdemCompra& outra, int semFornecedor,
                                   int comCondicao) const {
  const bool comparaCondicao = semFornecedor == 0 || comCondicao != 0;
  if (comparaCondicao && _CondicaoPagamento != outra._CondicaoPagamento) return false;
  using REG = tagREG_ORDEMPS;
  return Concordam(_Reg, outra._Reg, &REG::RegDataCompetencia, &REG::RegDataNecessidade,
                   &REG::RegDataEntrega, &REG::ValorDescontoTotalProdutos,
                   &REG::ValorDescontoTotalServicos, &REG::ValorTotalIPI, &REG::ValorTotalICMS,
                   &REG::ValorTotalICMSST, &REG::ValorDescontoNaNota, &REG::ValorTotalOrdemCompra,
                   &REG::ValorFrete, &REG::ValorSeguro, &REG::ValorDespesasAcessorias) &&
         GetMoeda() == outra.GetMoeda() &&
         (semFornecedor != 0 || Concordam(_Reg, outra._Reg, &REG::PonteiroFornecedor,
                                          &REG::PonteiroDepartamento, &REG::PonteiroComprador)) &&
         std::equal(_ListaItem.begin(), _ListaItem.end(), outra._ListaItem.begin(),
                    outra._ListaItem.end(),
                    [](const auto& a, const auto& b) { return MesmoConteudo(a, b); });
}
