// The freight bill: what travels and where, what equality and the checksum see.
#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "ct/DadosCT.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Conhecimento = CKXDadosCM_CTConhecimentoTransporte;
using Nota = CKXDadosCM_CTNotaFiscal;
using Escrito = apoio::RegistroEscrito<tagREG_CONHECIMENTOPS>;

static_assert(std::is_same_v<decltype(std::declval<Conhecimento&>().GetValorICMS()), CY>);
static_assert(std::is_same_v<decltype(std::declval<Conhecimento&>().GetRegCTe()), _KX_NFE_ps>);
static_assert(std::is_same_v<decltype(std::declval<Nota&>().GetValorMercadorias()), CY&>);

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
  Conhecimento volta;
  volta.CopiarDe(&escrito.Reg);
  EXPECT_TRUE(volta == viajavel);
  EXPECT_FALSE(volta == conhecimento);
  // What the stored record keeps of them neither counts nor comes back.
  volta.GetCondicaoPagamento().Limpar();
  EXPECT_TRUE(volta == Conhecimento());
  Conhecimento::ZerarGlobalAlloc(&escrito.Reg);
  volta.CopiarPara(&escrito.Reg);
  EXPECT_EQ(bytes[478], 0);
}

}  // namespace
