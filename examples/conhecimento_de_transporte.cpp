// A freight bill: the invoices that the carrier brought, and the value charged to two branches.
// Succeeds when nothing was lost on the road and the checksum tells a change.
#include <iostream>

#include "ct/DadosCT.h"
#include "kxldados/Dinheiro.h"

namespace {

CKXDadosCM_CTConhecimentoTransporte Preenche() {
  CKXDadosCM_CTConhecimentoTransporte conhecimento;
  conhecimento.SetPonteiroTransportadora(71).SetRegDataEmissao({4, 3, 2026});
  conhecimento.SetValorConhecimentoTransporte(CY{1800000});  // R$ 180,00
  for (const char* numero : {"4417", "4418"}) {
    conhecimento.AdicionaNotaFiscal(
        CKXDadosCM_CTNotaFiscal().SetNumeroNF(numero).SetPesoBrutoTotal(CY{125000}));  // 12.5000
  }
  conhecimento.AdicionaRateio(CKXDadosCM_CTRateio().SetPonteiroFilial(1).SetValor(CY{1200000}));
  conhecimento.AdicionaRateio(CKXDadosCM_CTRateio().SetPonteiroFilial(3).SetValor(CY{600000}));
  return conhecimento;
}

CKXCurrencyEx TotalRateado(const CKXDadosCM_CTConhecimentoTransporte& conhecimento) {
  CKXCurrencyEx total;
  for (const CKXDadosCM_CTRateio& linha : conhecimento.GetListaRateio()) total += linha.GetValor();
  return total;
}

}  // namespace

int main() {
  const CKXDadosCM_CTConhecimentoTransporte conhecimento = Preenche();

  const kx::RegistroDe registro(conhecimento);  // arrays of the task allocator
  CKXDadosCM_CTConhecimentoTransporte recebido;
  recebido.CopiarDe(registro.GetPtr());
  bool certo = recebido == conhecimento;
  certo &= TotalRateado(recebido) == recebido.GetValorConhecimentoTransporte();

  recebido.Set_CRC(recebido.CalculaCRC(nullptr));
  recebido.SetValorDesconto(CY{20000});  // getters return values here: changes go through setters
  certo &= recebido.CalculaCRC(nullptr) != recebido.Get_CRC();

  std::cout << "conhecimento com " << recebido.GetQuantidadeNotaFiscal() << " notas, R$ "
            << kx::TextoDeDinheiro(recebido.GetValorConhecimentoTransporte()) << '\n';
  return certo ? 0 : 1;
}
