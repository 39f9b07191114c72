#include "oc/DadosOC.h"

#include "core/Checksum.h"
#include "core/Motor.h"

namespace {

constexpr const char* kFonte = "DadosOC";

CKXDadosCM_RateioOrdemCompra ConteudoComercial(const CKXDadosCM_RateioOrdemCompra& rateio) {
  CKXDadosCM_RateioOrdemCompra conteudo;
  conteudo.SetQuantidade(rateio.GetQuantidade())
      .SetValor(rateio.GetValor())
      .SetPonteiroClassificacao(rateio.GetPonteiroClassificacao())
      .SetListaGerencial(rateio.GetListaGerencial());
  return conteudo;
}

CKXDadosCM_ItemOrdemCompra ConteudoComercial(const CKXDadosCM_ItemOrdemCompra& item) {
  CKXDadosCM_ItemOrdemCompra conteudo;
  conteudo.SetPonteiroTabelaPreco(item.GetPonteiroTabelaPreco())
      .SetPonteiroProdutoServico(item.GetPonteiroProdutoServico())
      .SetPonteiroItemGrade1(item.GetPonteiroItemGrade1())
      .SetPonteiroItemGrade2(item.GetPonteiroItemGrade2())
      .SetPonteiroItemGrade3(item.GetPonteiroItemGrade3())
      .SetQuantidade(item.GetQuantidade())
      .SetValorUnitarioV8(item.GetValorUnitarioV8())
      .SetDescontoUnitarioV8(item.GetDescontoUnitarioV8())
      .SetValorDescontoTotalItem(item.GetValorDescontoTotalItem())
      .SetValorIPI(item.GetValorIPI());
  if (item.GetPonteiroProdutoServico() == 0) conteudo.SetComplemento(item.GetComplemento());
  for (const CKXDadosCM_RateioOrdemCompra& rateio : item.GetListaRateio()) {
    conteudo.AdicionaRateio(ConteudoComercial(rateio));
  }
  return conteudo;
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
  if (_ListaItem.size() != outra._ListaItem.size()) return false;
  const bool comFornecedor = semFornecedor == 0;
  return ConteudoComercial(comFornecedor) == outra.ConteudoComercial(comFornecedor);
}

CKXDadosCM_OrdemCompra CKXDadosCM_OrdemCompra::ConteudoComercial(bool comFornecedor) const {
  CKXDadosCM_OrdemCompra conteudo;
  conteudo.SetRegDataCompetencia(_Reg.RegDataCompetencia)
      .SetRegDataNecessidade(_Reg.RegDataNecessidade)
      .SetMoeda(GetMoeda())
      .SetRegDataEntrega(_Reg.RegDataEntrega)
      .SetValorDescontoTotalProdutos(_Reg.ValorDescontoTotalProdutos)
      .SetValorDescontoTotalServicos(_Reg.ValorDescontoTotalServicos)
      .SetValorTotalIPI(_Reg.ValorTotalIPI)
      .SetValorTotalICMS(_Reg.ValorTotalICMS)
      .SetValorTotalICMSST(_Reg.ValorTotalICMSST)
      .SetValorDescontoNaNota(_Reg.ValorDescontoNaNota)
      .SetValorTotalOrdemCompra(_Reg.ValorTotalOrdemCompra)
      .SetValorFrete(_Reg.ValorFrete)
      .SetValorSeguro(_Reg.ValorSeguro)
      .SetValorDespesasAcessorias(_Reg.ValorDespesasAcessorias);
  if (comFornecedor) {
    conteudo.SetPonteiroFornecedor(_Reg.PonteiroFornecedor)
        .SetPonteiroDepartamento(_Reg.PonteiroDepartamento)
        .SetPonteiroComprador(_Reg.PonteiroComprador);
  }
  for (const CKXDadosCM_ItemOrdemCompra& item : _ListaItem) {
    conteudo.AdicionaItem(::ConteudoComercial(item));
  }
  return conteudo;
}
