#include "re/DadosRE.h"

int main() {
  CKXDadosCM_RERegistroEntrada entrada;
  entrada.SetNumeroNotaFiscal("1234").SetPonteiroFilial(3);
  entrada.AdicionaProduto(CKXDadosCM_REItemProduto().SetValorTotal(CY{1234500}));  // R$ 123,45

  const kx::RegistroDe registro(entrada);  // the record now owns the arrays that it needed
  CKXDadosCM_RERegistroEntrada recebida;
  recebida.CopiarDe(registro.GetPtr());
  return recebida == entrada ? 0 : 1;
}
