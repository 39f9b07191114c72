// The road of a purchase order: a record arrives, becomes an object, is edited, and leaves again
// when something changed. Succeeds when every step did what it says.
#include <iostream>

#include "kxldados/Dinheiro.h"
#include "oc/DadosOC.h"

namespace {

using namespace kx::literais;

// Stands for the server: an order of one product in two deliveries, paid in two installments.
kx::RegistroDe<CKXDadosCM_OrdemCompra> RecebeDoServidor() {
  CKXDadosCM_ItemOrdemCompra item;
  item.SetPonteiroProdutoServico(1001).SetQuantidade(CY{120000});  // 12.0000 pieces
  item.SetValorUnitarioV8("25,50"_rs).SetValorTotal("306,00"_rs);
  for (const REG_KXDMA& entrega : {REG_KXDMA{10, 3, 2026}, REG_KXDMA{20, 3, 2026}}) {
    item.AdicionaProgramacao(
        CKXDadosCM_ProgramacaoOrdemCompra().SetRegDataEntrega(entrega).SetQuantidadeSolicitada(
            CY{60000}));
  }
  CKXDadosCM_OrdemCompra ordem;
  ordem.SetCodigo("2026/0417").SetPonteiroFornecedor(58).SetRegDataEmissao({2, 3, 2026});
  ordem.SetValorTotalProdutos("306,00"_rs).SetValorTotalOrdemCompra("306,00"_rs);
  ordem.AdicionaItem(item);
  for (const std::uint32_t dias : {30U, 60U}) {
    ordem.GetCondicaoPagamento().AdicionaParcela(
        CKXDadosCM_Parcela().SetNumeroDias(dias).SetValor("153,00"_rs));
  }
  return kx::RegistroDe(ordem);
}

bool Confere(bool certo, const char* passo) {
  std::cout << (certo ? "certo  " : "ERRADO ") << passo << '\n';
  return certo;
}

}  // namespace

int main() {
  CKXDadosCM_OrdemCompra ordem;
  ordem.CopiarDe(RecebeDoServidor().GetPtr());  // the object keeps nothing of the record
  bool certo = Confere(
      ordem.GetQuantidadeItem() == 1 && ordem.GetCondicaoPagamento().GetNumeroParcelas() == 2,
      "o registro virou objeto");

  const CKXDadosCM_OrdemCompra original = ordem;
  certo &= Confere(ordem == original, "nada mudou ainda");

  // R$ 15,00 of freight, and the second delivery five days later.
  const CY frete = "15,00"_rs;
  ordem.SetValorFrete(frete).SetValorTotalOrdemCompra(
      CKXCurrencyEx(ordem.GetValorTotalOrdemCompra()) + frete);
  ordem.GetPtrItem(0)->GetPtrProgramacao(1)->SetRegDataEntrega({25, 3, 2026});
  certo &= Confere(ordem != original, "a edicao foi percebida");

  const kx::RegistroDe registro(ordem);
  certo &= Confere(registro->ListaItem[0].ListaProgramacao[1].RegDataEntrega.Dia == 25,
                   "a edicao esta no registro que volta");

  std::cout << "ordem " << ordem.GetCodigo().Vista() << ", total R$ "
            << kx::TextoDeDinheiro(ordem.GetValorTotalOrdemCompra()) << '\n';
  return certo ? 0 : 1;
}
