// A purchase request is filled and sent; its remarks are cut to what travels. Succeeds when what
// arrives is what was sent.
#include <iostream>
#include <string>
#include <utility>

#include "sc/DadosSC.h"

namespace {

CKXDadosCM_SCSolicitacaoCompra Preenche() {
  CKXDadosCM_SCItem item;
  item.SetPosicaoProduto({1001, 0, 0, 0, {}}).SetQuantidade(CY{120000});  // 12.0000 pieces
  item.SetComplemento("rolamento blindado");
  item.AdicionaRateio(CKXDadosCM_SCRateio().SetComplementoHistorico("parada de maio"));

  CKXDadosCM_SCSolicitacaoCompra solicitacao;
  solicitacao.SetCodigoSolicitacao("SC-0417").SetPonteiroDepartamento(8);
  solicitacao.SetDataSolicitacao({2, 3, 2026}).SetRegDataNecessidade({20, 3, 2026});
  solicitacao.AdicionaItem(std::move(item));
  solicitacao.AdicionaFornecedor(
      CKXDadosCM_SCFornecedor().SetPonteiroFornecedor(58).SetNomeFornecedor("Rolamentos do Sul"));
  return solicitacao;
}

}  // namespace

int main() {
  CKXDadosCM_SCSolicitacaoCompra solicitacao = Preenche();
  solicitacao.SetObservacao(CString(std::string(3000, '.')));

  const kx::RegistroDe registro(solicitacao);  // not const: cuts the object's own remarks
  CKXDadosCM_SCSolicitacaoCompra recebida;
  recebida.CopiarDe(registro.GetPtr());

  std::cout << "solicitacao " << recebida.GetCodigoSolicitacao().Vista() << ", "
            << recebida.GetQuantidadeItem() << " item, observacao com "
            << recebida.GetObservacao().GetLength() << " caracteres\n";
  const bool cortada =
      recebida.GetObservacao().GetLength() == CKXDadosCM_SCSolicitacaoCompra::kMaximoObservacao;
  return cortada && recebida == solicitacao ? 0 : 1;
}
