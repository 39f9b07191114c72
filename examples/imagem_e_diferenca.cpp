// A document as bytes, and what changed in it since: kept while the user edits, and then compared.
#include <cstddef>
#include <iostream>
#include <vector>

#include "core/Imagem.h"
#include "kxldados/Latin1.h"
#include "oc/DadosOC.h"

using namespace kx::literais;

int main() {
  CKXDadosCM_OrdemCompra ordem;
  ordem.SetCodigo("2026/0417");
  for (int i = 1; i <= 3; ++i) {
    CKXDadosCM_ItemOrdemCompra item;
    item.SetPonteiroProdutoServico(100 + i).SetQuantidade("12,00"_rs);
    ordem.AdicionaItem(item);
  }

  std::vector<std::byte> bytes = kx::Imagem(ordem);  // for a file, a queue, a socket

  ordem.DeletarItem(0);
  ordem.GetPtrItem(1)->SetQuantidade("13,50"_rs);

  CKXDadosCM_OrdemCompra antes;
  try {
    antes.CopiarDe(kx::AbreImagem<tagREG_ORDEMPS>(bytes));  // what is opened is never released
  } catch (const kx::ImagemInvalida& erro) {
    std::cerr << kx::UTF8DeLatin1(erro.what()) << '\n';
    return 1;
  }
  // ListaItem[0]: retirado
  // ListaItem[1].Quantidade: 12,00 -> 13,50
  const auto diferencas = kx::Diferencas(antes, ordem);
  for (const kx::Diferenca& diferenca : diferencas) std::cout << diferenca << '\n';
  return diferencas.size() == 2 ? 0 : 1;
}
