// Fills an order, converts it to its record and back, compares and releases: a little of everything
// that an installed library must be able to do. The exit status is the step that failed.
#include <cstdio>
#include <exception>
#include <stdexcept>

#include "compras/KXDadosCompras.h"
#include "kxldados/Dinheiro.h"
#include "oc/DadosOC.h"

int main() {
  CKXDadosCM_OrdemCompra ordem;
  ordem.SetCodigo("2026/0417").SetValorTotalOrdemCompra(CY{3060000});
  ordem.AdicionaItem(CKXDadosCM_ItemOrdemCompra().SetQuantidade(CY{120000}));

  tagREG_ORDEMPS registro;
  ordem.CopiarPara(&registro);
  if (registro.QtdItem != 1 || registro.ListaItem[0].Quantidade.int64 != 120000) return 1;
  CKXDadosCM_OrdemCompra copia;
  copia.CopiarDe(&registro);
  CKXDadosCM_OrdemCompra::ZerarDelete(&registro);
  if (registro.ListaItem != nullptr) return 2;
  if (copia != ordem) return 3;
  copia.GetRefItem(0).SetQuantidade(CY{10000});
  if (copia == ordem) return 4;

  // What crosses the border of the library beside calls: exceptions, types, constant tables.
  try {
    copia.DeletarItem(7);
    return 5;
  } catch (const std::out_of_range&) {
  }
  if (std::uncaught_exceptions() != 0) return 8;  // both sides count them in one place
  const TKXBaseParaDados& base = copia;
  if (dynamic_cast<const CKXDadosCM_OrdemCompra*>(&base) == nullptr) return 6;
  if (KXProcuraRegistro("tagREG_ORDEMPS") == nullptr) return 7;
  std::printf("kxldadoscm %s: R$ %s\n", KXDadosComprasVersao(),
              kx::TextoDeDinheiro(copia.GetValorTotalOrdemCompra()).c_str());
  return 0;
}
