// A price quotation: two suppliers answer about one item, and the lower price is looked up.
// Succeeds when the answer found is the lower one and nothing was lost on the road.
#include <iostream>

#include "cp/DadosCP.h"
#include "kxldados/Dinheiro.h"

namespace {

// One item, two suppliers, an answer of each: R$ 25,50 and R$ 24,90.
CKXDadosCM_CotacaoPreco ComDuasRespostas() {
  CKXDadosCM_CotacaoPreco cotacao;
  cotacao.SetCodigoCotacao("CP-0088").SetDataLimiteCotacao({15, 3, 2026});
  cotacao.AdicionaItem(CKXDadosCM_ItemCotacaoPreco()
                           .SetPosicaoProduto({1001, 0, 0, 0, {}})
                           .SetQuantidadeCotada(CY{120000}));  // 12.0000 pieces
  const CY precos[] = {CY{255000}, CY{249000}};
  for (std::uint16_t i = 0; i < 2; ++i) {
    cotacao.AdicionaFornecedor(CKXDadosCM_FornecedorCotacaoPreco().SetPonteiroFornecedor(58 + i));
    cotacao.AdicionaAcompanhamento(CKXDadosCM_AcompanhamentoCotacaoPreco()
                                       .SetIndiceItem(0)
                                       .SetIndiceFornecedor(i)
                                       .SetPrecoUnitario(precos[i]));
  }
  return cotacao;
}

// The supplier of the lowest price for the item; the indexes of an answer are positions in the
// quotation's collections, which nobody has tested.
std::int32_t FornecedorMaisBarato(const CKXDadosCM_CotacaoPreco& cotacao, std::uint16_t item) {
  const CKXDadosCM_AcompanhamentoCotacaoPreco* melhor = nullptr;
  for (const CKXDadosCM_AcompanhamentoCotacaoPreco& resposta : cotacao.GetListaAcompanhamento()) {
    if (resposta.GetIndiceItem() != item) continue;
    if (melhor == nullptr ||
        CKXCurrencyEx(resposta.GetPrecoUnitario()) < melhor->GetPrecoUnitario()) {
      melhor = &resposta;
    }
  }
  return melhor == nullptr
             ? 0
             : cotacao.GetFornecedor(melhor->GetIndiceFornecedor()).GetPonteiroFornecedor();
}

}  // namespace

int main() {
  const CKXDadosCM_CotacaoPreco cotacao = ComDuasRespostas();

  const kx::RegistroDe registro(cotacao);
  CKXDadosCM_CotacaoPreco recebida;
  recebida.CopiarDe(registro.GetPtr());

  const std::int32_t fornecedor = FornecedorMaisBarato(recebida, 0);
  std::cout << "cotacao " << recebida.GetCodigoCotacao().Vista() << ", menor preco do fornecedor "
            << fornecedor << '\n';
  return fornecedor == 59 && recebida == cotacao ? 0 : 1;
}
