#include "re/DadosRE.h"

int main() {
  CKXDadosCM_RERegistroEntrada entrada;
  entrada.SetNumeroNotaFiscal("1234").SetPonteiroFilial(3);
  entrada.AdicionaProduto(CKXDadosCM_REItemProduto().SetValorTotal(CY{1234500}));  // R$ 123,45

  tagREG_ENTRADAPS registro;
  entrada.CopiarPara(&registro);  // the record now owns the arrays that it needed
  CKXDadosCM_RERegistroEntrada recebida;
  recebida.CopiarDe(&registro);
  CKXDadosCM_RERegistroEntrada::ZerarGlobalAlloc(&registro);
  return recebida == entrada ? 0 : 1;
}
