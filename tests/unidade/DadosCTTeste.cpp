// The freight bill: what travels and where, what equality and the checksum see.
#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "core/Checksum.h"
#include "ct/DadosCT.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Conhecimento = CKXDadosCM_CTConhecimentoTransporte;
using Nota = CKXDadosCM_CTNotaFiscal;
using Rateio = CKXDadosCM_CTRateio;
using Processo = CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD;
using Escrito = apoio::RegistroEscrito<tagREG_CONHECIMENTOPS>;

static_assert(std::is_same_v<decltype(std::declval<Conhecimento&>().GetValorICMS()), CY>);
static_assert(std::is_same_v<decltype(std::declval<Conhecimento&>().GetRegCTe()), _KX_NFE_ps>);
static_assert(std::is_same_v<decltype(std::declval<Nota&>().GetValorMercadorias()), CY&>);

Conhecimento IdaEVolta(const Conhecimento& conhecimento) {
  Escrito escrito;
  conhecimento.CopiarPara(&escrito.Reg);
  Conhecimento volta;
  volta.CopiarDe(&escrito.Reg);
  return volta;
}

TEST(Conhecimento, CadaListaNoSeuLugar) {
  Conhecimento conhecimento;
  conhecimento.AdicionaRateio(
      Rateio().SetValor(CY{11}).AdicionaGerencialFilial(TKXGerencial().SetPonteiroFilial(2)));
  conhecimento.GetRefRateio(0).AdicionaGerencial(TKXGerencial().SetPonteiroGerencial(1));
  conhecimento.GetRefRateio(0).AdicionaGerencial(TKXGerencial().SetPonteiroGerencial(3));
  conhecimento.AdicionaNotaFiscal(Nota().SetNumeroNF("123"));
  conhecimento.AdicionaOCAssociada({{1, 2, 2026}, 42}).AdicionaOCAssociada({{1, 2, 2026}, 43});
  conhecimento.AdicionaProcessoRetencaoAjuizada(Processo().SetPonteiroProcesso(7));
  conhecimento.AdicionaProcessoRetencaoAdicionalAjuizada(Processo().SetPonteiroProcesso(8));
  conhecimento.GetCondicaoPagamento().AdicionaParcela(
      CKXDadosCM_Parcela().SetRegDataVencimento({9, 8, 2026}).SetNumeroDocumento("001"));
  conhecimento.GetCondicaoPagamento().AdicionaTituloImposto(
      CKXDadosCM_TituloImposto().SetValor(CY{5}));

  Escrito escrito;
  conhecimento.CopiarPara(&escrito.Reg);
  const tagREG_CONHECIMENTOPS& reg = escrito.Reg;
  const auto* contas = reinterpret_cast<const unsigned char*>(&reg) + 468;
  for (const int esperado : {1, 1, 1, 2, 1}) {
    EXPECT_EQ(*contas, esperado) << contas - reinterpret_cast<const unsigned char*>(&reg);
    contas += 2;
  }
  ASSERT_EQ(reg.ListaRateio[0].QtdGerencial, 2);
  EXPECT_EQ(reg.ListaRateio[0].ListaGerencial[1].PonteiroGerencial, 3);
  ASSERT_EQ(reg.ListaRateio[0].QtdGerencialFilial, 1);
  EXPECT_EQ(reg.ListaRateio[0].ListaGerencialFilial[0].PonteiroFilial, 2);
  EXPECT_STREQ(reg.ListaNotaFiscal[0].NumeroNF, "123");
  EXPECT_EQ(reg.ListaOCAssociada[1].Contador, 43U);
  EXPECT_EQ(reg.ListaProcessoRetencaoAjuizada[0].PonteiroProcesso, 7);
  EXPECT_EQ(reg.ListaProcessoRetencaoAdicionalAjuizada[0].PonteiroProcesso, 8);
  const auto* parcela = reinterpret_cast<const unsigned char*>(reg.ListaParcela);
  EXPECT_EQ(parcela[0], 9);
  EXPECT_EQ(std::memcmp(parcela + 56, "001", 4), 0);

  EXPECT_TRUE(IdaEVolta(conhecimento) == conhecimento);
  Conhecimento::ZerarGlobalAlloc(&escrito.Reg);
  const tagREG_CONHECIMENTOPS zero{};
  EXPECT_EQ(std::memcmp(&escrito.Reg, &zero, sizeof(zero)), 0);
}

TEST(Conhecimento, DaCondicaoViajamDoisValores) {
  Conhecimento conhecimento;
  auto& condicao = conhecimento.GetCondicaoPagamento();
  condicao.SetPonteiroCondicaoPagamento(0x1234).SetPonteiroTipoCobranca(5);
  const Conhecimento viajavel = conhecimento;
  condicao.SetPonteiroTipoPeriodo(6).SetDataPrimeiroVencimento({9, 8, 2026});
  Escrito escrito;
  conhecimento.CopiarPara(&escrito.Reg);
  const auto* bytes = reinterpret_cast<const unsigned char*>(&escrito.Reg);
  EXPECT_EQ(bytes[448], 0x34);
  EXPECT_EQ(bytes[449], 0x12);
  EXPECT_EQ(bytes[478], 5);
  Conhecimento volta = IdaEVolta(conhecimento);
  EXPECT_TRUE(volta == viajavel);
  EXPECT_FALSE(volta == conhecimento);
  // What the stored record keeps of them neither counts nor comes back.
  volta.GetCondicaoPagamento().Limpar();
  EXPECT_TRUE(volta == Conhecimento());
  Conhecimento::ZerarGlobalAlloc(&escrito.Reg);
  volta.CopiarPara(&escrito.Reg);
  EXPECT_EQ(bytes[478], 0);
}

TEST(Conhecimento, LogsContamVinculoNaoENenhumViaja) {
  Conhecimento a;
  a.SetNumeroConhecimentoTransporte("77");
  Conhecimento b = a;
  b.SetVinculo(CIEVinculo().SetTipo(3));
  EXPECT_TRUE(a == b);
  EXPECT_EQ(IdaEVolta(b).GetVinculo().GetTipo(), 0);
  b.AdicionaLogs("linha");
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(IdaEVolta(b) == a);
}

TEST(Conhecimento, IgualdadeVeFilhos) {
  const Conhecimento original;
  EXPECT_FALSE(Conhecimento().AdicionaRateio(Rateio()) == original);
  EXPECT_FALSE(Conhecimento().AdicionaOCAssociada({}) == original);
  Rateio linha;
  linha.AdicionaGerencial(TKXGerencial());
  EXPECT_FALSE(linha == Rateio().AdicionaGerencialFilial(TKXGerencial()));
}

TEST(Conhecimento, ChecksumEhDoRegistroSozinho) {
  Conhecimento conhecimento;
  conhecimento.SetObservacao("frete").GetCondicaoPagamento().SetPonteiroTipoCobranca(5);
  const unsigned long crc = kx::CalculaChecksum(&conhecimento.GetReg(), 1288);
  unsigned long anterior = 99;
  EXPECT_EQ(conhecimento.CalculaCRC(&anterior), crc);
  EXPECT_EQ(conhecimento.GetReg().PonteiroTipoCobranca, 0);
  EXPECT_EQ(IdaEVolta(conhecimento).GetReg().PonteiroTipoCobranca, 5);
  EXPECT_NE(IdaEVolta(conhecimento).CalculaCRC(nullptr), crc);
  conhecimento.AdicionaNotaFiscal(Nota()).AdicionaRateio(Rateio());
  EXPECT_EQ(conhecimento.CalculaCRC(nullptr), crc);

  const Nota nota = Nota().SetSerieNF("1");
  EXPECT_EQ(nota.CalculaCRC(&anterior), kx::CalculaChecksum(&nota.GetReg(), 200));
  const Rateio linha = Rateio().SetValor(CY{1});
  EXPECT_EQ(linha.CalculaCRC(&anterior), kx::CalculaChecksum(&linha.GetReg(), 568));
}

TEST(Conhecimento, IndiceForaDaLista) {
  Conhecimento conhecimento;
  conhecimento.AdicionaOCAssociada({{1, 2, 2026}, 42});
  EXPECT_THROW(conhecimento.GetOCAssociada(1), std::out_of_range);
  EXPECT_THROW(conhecimento.DeletarNotaFiscal(0), std::out_of_range);
  EXPECT_THROW(conhecimento.TrocaOCAssociada(0, -1), std::out_of_range);
  EXPECT_EQ(conhecimento.GetOCAssociada(0).Contador, 42U);
}

}  // namespace
