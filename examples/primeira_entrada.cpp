// The road of the data in one page: object, record, object. Succeeds when nothing was lost.
#include <iostream>
#include <utility>

#include "kxldados/Dinheiro.h"
#include "re/DadosRE.h"

int main() {
  CKXDadosCM_RERegistroEntrada entrada;
  entrada.SetNumeroNotaFiscal("1234").SetPonteiroFilial(3);
  CKXDadosCM_REItemProduto item;
  item.SetQuantidade(CY{20000}).SetValorTotal(CY{1234500});  // 2.0000 pieces, R$ 123,45
  entrada.AdicionaProduto(std::move(item));

  const kx::RegistroDe registro(entrada);  // the record that goes to the server
  CKXDadosCM_RERegistroEntrada recebida;
  recebida.CopiarDe(registro.GetPtr());  // ... and comes back

  const CKXCurrencyEx total = recebida.GetSomaProdutoDe(&CKXDadosCM_REItemProduto::GetValorTotal);
  std::cout << "nota " << recebida.GetNumeroNotaFiscal().Vista() << ", itens "
            << kx::TextoDeDinheiro(total) << '\n';
  return recebida == entrada ? 0 : 1;
}
