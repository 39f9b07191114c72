#include "re/DadosRE.h"

using namespace kx::literais;  // money: "123,45"_rs

int main() {
  CKXDadosCM_RERegistroEntrada entrada;
  entrada.SetNumeroNotaFiscal("1234").SetPonteiroFilial(3);
  entrada.AdicionaProduto(CKXDadosCM_REItemProduto().SetValorTotal("123,45"_rs));

  const kx::RegistroDe registro(entrada);  // the record now owns the arrays that it needed
  CKXDadosCM_RERegistroEntrada recebida;
  recebida.CopiarDe(registro.GetPtr());
  return recebida == entrada ? 0 : 1;
}
