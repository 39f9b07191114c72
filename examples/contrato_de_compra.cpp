// A purchase contract: percentages and values of its parts follow from each other. Succeeds when
// the numbers are those expected and the parts that live in the object alone do not travel.
#include <iostream>

#include "cc/DadosCC.h"

int main() {
  const CY total{120000000};  // R$ 12.000,00
  CKXDadosCM_CCContrato contrato;
  contrato.SetNumeroContrato("CC-12").SetValorTotalContrato(total).SetPonteiroFornecedor(58);

  // A share of a third of the contract: 33.3333 percent, which is R$ 3.999,996 again.
  CKXDadosCM_CCClassificacao classificacao;
  classificacao.SetPonteiroClassificacao(410).SetValorRateio(CY{40000000});
  const CKXCurrencyEx percentual = classificacao.CalculaPercentual(total);
  const CKXCurrencyEx valor = classificacao.CalculaValor(total);
  contrato.AdicionaClassificacao(classificacao);

  // An installment of R$ 1.000,00 with 2.5 percent of interest.
  CKXDadosCM_CCParcela parcela;
  parcela.SetNumeroDaParcela(1).SetValorParcela(CY{10000000}).SetPercentualJuros(CY{25000});
  const CKXCurrencyEx juros = parcela.CalculaValorJuros(parcela.GetValorParcela());
  contrato.AdicionaParcela(parcela);

  const kx::RegistroDe registro(contrato);
  CKXDadosCM_CCContrato recebido;
  recebido.CopiarDe(registro.GetPtr());

  // The interest as a value is computed again on this side, and so is the share.
  bool certo = recebido != contrato && recebido.GetParcela(0).GetValorJuros() == CY{};
  for (CKXDadosCM_CCParcela& recebida : recebido.GetListaParcela()) {
    recebida.CalculaValorJuros(recebida.GetValorParcela());
  }
  recebido.GetPtrClassificacao(0)->CalculaValor(recebido.GetValorTotalContrato());
  certo &= recebido == contrato;

  std::cout << "contrato " << recebido.GetNumeroContrato().Vista() << ": "
            << kx::TextoDeDinheiro(percentual, 4) << " % sao R$ " << kx::TextoDeDinheiro(valor)
            << ", juros de R$ " << kx::TextoDeDinheiro(juros) << '\n';
  return certo && percentual == CY{333333} && valor == CY{39999960} && juros == CY{250000} ? 0 : 1;
}
