#include "oc/ItensOC.h"

#include "core/Motor.h"

int CKXDadosCM_ItemOrdemCompra::GetUsaImobilizado() const {
  return GetUsaImobilizado(_Reg.ItemEhServico, _Reg.PonteiroCFOP);
}

int CKXDadosCM_ItemOrdemCompra::GetUsaImobilizado(char ItemEhServico, unsigned short PonteiroCFOP) {
  return ItemEhServico != 0 || PonteiroCFOP == 0 ? 1 : 0;
}

int CKXDadosCM_ItemOrdemCompra::GetUsaProdutoDespesa() const {
  return GetUsaProdutoDespesa(_Reg.ItemEhServico, _Reg.PonteiroCFOP);
}

int CKXDadosCM_ItemOrdemCompra::GetUsaProdutoDespesa(char ItemEhServico,
                                                     unsigned short PonteiroCFOP) {
  return ItemEhServico == 0 && PonteiroCFOP == 0 ? 1 : 0;
}
