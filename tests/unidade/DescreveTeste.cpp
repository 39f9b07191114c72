// What objects show of themselves.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "ac/DadosAC.h"
#include "oc/DadosOC.h"
#include "re/DadosRE.h"
#include "tests/apoio/PorClasse.h"

namespace {

using apoio::Objeto;

KX_POR_CLASSE(Descricoes, apoio::Classes());
KX_POR_CLASSE(DescricoesDeRegistro, apoio::ClassesDeRegistro());

// Of two objects that differ in a part a failing test must say so.
TEST_P(Descricoes, MostraCadaParte) {
  const std::string vazio = Atual().Descreve(*Objeto(Atual()));
  if (vazio == "(none)") GTEST_SKIP() << "handles alone";
  for (const apoio::Parte& parte : Atual().Partes) {
    const Objeto objeto(Atual());
    parte.Enche(*objeto);
    EXPECT_NE(Atual().Descreve(*objeto), vazio) << parte.Nome;
  }
}

TEST_P(DescricoesDeRegistro, MostraCadaCampoPeloNome) {
  EXPECT_EQ(Atual().Descreve(*Objeto(Atual())), "");
  for (const KXCampo& campo : Info().Campos) {
    if (campo.Papel != KXPapel::Campo && campo.Papel != KXPapel::Reserva) continue;
    std::vector<unsigned char> registro(Info().Tamanho);
    registro[campo.Posicao] = 1;
    const std::string linha = Atual().Descreve(*Objeto(Atual(), registro.data()));
    EXPECT_TRUE(linha.starts_with(campo.Nome + std::string(": "))) << campo.Nome << ": " << linha;
  }
}

}  // namespace

TEST(Descreve, ComoSeLe) {
  CKXDadosCM_ItemOrdemCompra item;
  item.SetQuantidade(CY{12'3456}).SetComplemento("a\xE7o\nfino").SetExpandirGrid(true);
  CKXDadosCM_RateioOrdemCompra rateio;
  rateio.AdicionaGerencial(TKXGerencial());
  item.AdicionaRateio(rateio);
  CKXDadosCM_CancelamentoOrdemCompra cancelamento;
  tagREG_CANCELAMENTO_ORDEM_COMPRAPS bytes{};
  bytes.Reserva_32[0] = 0x0F;
  bytes.Reserva_32[1] = 0xA9;
  cancelamento.CopiarDe(&bytes);
  CKXDadosCM_OrdemCompra ordem;
  ordem.SetCodigo("2026/\xE7").SetRegDataEmissao({2, 3, 2026}).AdicionaItem(item);
  ordem.AdicionaItem({}).AdicionaCancelamento(cancelamento).AdicionaLogs("um").Set_CRC(7);
  ordem.GetCondicaoPagamento().AdicionaParcela(CKXDadosCM_Parcela().SetValor(CY{-1'5000}));
  ordem.SetVinculo(CIEVinculo().SetChave({{1, 2, 2026}, 9}));
  std::ostringstream saida;
  saida << ordem << CKXDadosCM_OrdemCompra() << CKXDadosCM_ConsisteRetorno();
  EXPECT_EQ(saida.str(), R"(RegDataEmissao: 02/03/2026
Codigo: 2026/ç
Item 1 de 2
  Quantidade: 12,3456
  Complemento: aço fino
  Rateio 1 de 1
    Gerencial 1 de 1
  ExpandirGrid: 1
Item 2 de 2
Cancelamento 1 de 1
  Reserva_32: 0fa90000000000000000000000000000
CondicaoPagamento
  Parcela 1 de 1
    Valor: -1,50
Logs 1 de 1: um
Vinculo
  Chave: 01/02/2026 nº 9
CRC: 7
(vazio)Modulo: 7
)");
}
