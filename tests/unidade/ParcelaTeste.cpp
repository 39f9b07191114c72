// The installment and its four records.
#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "core/Checksum.h"
#include "core/Financeiro.h"
#include "tests/apoio/Paginas.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using Parcela = CKXDadosCM_Parcela;

Parcela ParcelaCheia() {
  Parcela parcela;
  parcela.SetRegDataVencimento({15, 3, 2026}).SetNumeroDias(30).SetValor(CY{123456});
  parcela.SetValorLiquido(CY{120000}).SetNumeroDocumento("NF 1/1").SetValorDigitado(1);
  parcela.SetPonteiroTipoVencimento(2).SetPonteiroFormaPagamento(3);
  CKXDadosCM_ItemImposto imposto;
  imposto.SetValor(CY{10});
  imposto.AdicionaDeducao(CKXDadosCM_ImpostoDeducao().SetDescricao("dependente"));
  parcela.AdicionaItemImposto(imposto);
  return parcela;
}

template <class REG>
class ParcelaEmCadaRegistro : public ::testing::Test {};
using Registros = ::testing::Types<tagREG_FATURA_ENTRADAPS, tagREG_FATURA_CONHECIMENTOPS,
                                   tagREG_FATURA_COMPRAPS, tagREG_COTACAOITEMFATURAPS>;
TYPED_TEST_SUITE(ParcelaEmCadaRegistro, Registros);

TYPED_TEST(ParcelaEmCadaRegistro, NadaSePerdeDeRegistroARegistro) {
  for (unsigned semente = 0; semente < 20; ++semente) {
    const apoio::RegistroAleatorio<TypeParam> original(semente);
    Parcela parcela;
    parcela.CopiarDe(&original.Reg);
    apoio::RegistroEscrito<TypeParam> normal;
    apoio::RegistroEscrito<TypeParam> tarefa;
    parcela.CopiarPara(&normal.Reg);
    parcela.CopiarParaPS(&tarefa.Reg);
    const auto& info = KXMetadados<TypeParam>::kInfo;
    EXPECT_EQ(apoio::Diferenca(info, &original.Reg, &normal.Reg), "");
    EXPECT_EQ(apoio::Diferenca(info, &original.Reg, &tarefa.Reg), "");

    // What no field shows goes along with the rest, and is cleared with it.
    Parcela atribuida;
    atribuida = parcela;
    Parcela movida;
    movida = std::move(atribuida);
    apoio::RegistroEscrito<TypeParam> daMovida;
    movida.CopiarPara(&daMovida.Reg);
    EXPECT_EQ(apoio::Diferenca(info, &original.Reg, &daMovida.Reg), "");
    movida.Limpar();
    apoio::RegistroEscrito<TypeParam> limpa;
    movida.CopiarPara(&limpa.Reg);
    const TypeParam zero{};
    EXPECT_EQ(apoio::Diferenca(info, &zero, &limpa.Reg), "");
  }
}

TYPED_TEST(ParcelaEmCadaRegistro, MemoriaProibidaNaoSeEscreveNemSeLe) {
  const apoio::Paginas paginas;
  auto* const proibido = reinterpret_cast<TypeParam*>(paginas.Proibida());
  Parcela parcela = ParcelaCheia();
  parcela.CopiarPara(proibido);
  parcela.CopiarParaPS(static_cast<TypeParam*>(nullptr));
  EXPECT_TRUE(parcela == ParcelaCheia());
  EXPECT_TRUE(parcela.CopiarDe(proibido).EstaVazio());
  EXPECT_TRUE(ParcelaCheia().CopiarDe(static_cast<const TypeParam*>(nullptr)).EstaVazio());
}

// What one kind of record alone holds stays out of the others.
TYPED_TEST(ParcelaEmCadaRegistro, VencimentoEValorPassamDeUmRegistroAoOutro) {
  TypeParam registro;
  std::memset(&registro, 0, sizeof(registro));
  ParcelaCheia().CopiarPara(&registro);
  Parcela lida;
  lida.CopiarDe(&registro);
  kx::LiberaRegistro(&registro, kx::Alocador::Delete);
  EXPECT_EQ(lida.GetRegDataVencimento(), ParcelaCheia().GetRegDataVencimento());
  EXPECT_EQ(lida.GetValor(), ParcelaCheia().GetValor());
  EXPECT_EQ(lida.GetNumeroDias(), 30U);
  EXPECT_EQ(lida.GetPonteiroTipoVencimento(), 2);
  EXPECT_EQ(lida.GetPonteiroFormaPagamento(), 3);
  EXPECT_EQ(lida.GetValorDigitado(), 1);

  tagREG_FATURA_COMPRAPS compra;
  std::memset(&compra, 0xFF, sizeof(compra));
  lida.CopiarDe(&compra);
  TypeParam outro;
  lida.CopiarPara(&outro);
  if constexpr (!std::is_same_v<TypeParam, tagREG_FATURA_COMPRAPS>) {
    for (const KXCampo& campo : KXMetadados<TypeParam>::kCampos) {
      if (campo.Papel != KXPapel::Reserva) continue;
      EXPECT_EQ(reinterpret_cast<unsigned char*>(&outro)[campo.Posicao], 0) << campo.Nome;
    }
  }
}

TEST(Parcela, RegistroDoConhecimento) {
  tagREG_FATURA_CONHECIMENTOPS registro;
  std::memset(&registro, 0xEE, sizeof(registro));
  ParcelaCheia().CopiarPara(&registro);
  const auto* bytes = reinterpret_cast<const unsigned char*>(&registro);
  EXPECT_EQ(bytes[0], 15);
  EXPECT_EQ(bytes[32], 30);
  EXPECT_EQ(bytes[36], 1);
  EXPECT_STREQ(reinterpret_cast<const char*>(bytes) + 56, "NF 1/1");
  EXPECT_EQ(bytes[118], 2);
  EXPECT_EQ(bytes[119], 3);
  EXPECT_EQ(bytes[120], 1);
  for (const int posicao : {4, 31, 38, 40 + 4, 70, 117, 121, 127, 136, 143}) {
    EXPECT_EQ(bytes[posicao], 0) << posicao;
  }
  EXPECT_EQ(registro.ListaItemImposto[0].QtdDeducao, 1);
  // The outer release leaves the nested arrays to the caller.
  CKXDadosCM_ItemImposto::ZerarDelete(&registro.ListaItemImposto[0]);
  Parcela::ZerarDelete(&registro);
  EXPECT_EQ(registro.ListaItemImposto, nullptr);
  EXPECT_EQ(registro.QtdItemImposto, 0);
  Parcela::ZerarDelete(&registro);
  Parcela::ZerarGlobalAlloc(&registro);
}

TEST(Parcela, NoConhecimentoADataVaiSoEODocumentoTerminado) {
  tagREG_FATURA_CONHECIMENTOPS registro{};
  registro.DataHoraVencimento = {{15, 3, 2026}, {7}};
  std::memset(registro.NumeroDocumento, 'x', sizeof(registro.NumeroDocumento));
  Parcela parcela;
  parcela.CopiarDe(&registro);
  EXPECT_EQ(parcela.GetNumeroDocumento().GetLength(), 61);
  parcela.CopiarPara(&registro);
  EXPECT_EQ(registro.DataHoraVencimento, (KXDataHora32{{15, 3, 2026}, {}}));
  EXPECT_EQ(registro.NumeroDocumento[61], '\0');

  tagREG_FATURA_ENTRADAPS daEntrada{};
  std::memcpy(daEntrada.NumeroDocumento, "1\0sobra", 8);
  parcela.CopiarDe(&daEntrada);
  parcela.CopiarPara(&registro);
  EXPECT_EQ(registro.NumeroDocumento[2], '\0');
}

TEST(Parcela, CadaRegistroTemSuasLiberacoes) {
  tagREG_FATURA_COMPRAPS compra;
  tagREG_COTACAOITEMFATURAPS cotacao;
  tagREG_IMPOSTO_DEDUCAOPS deducao;
  tagREG_TITULO_IMPOSTOPS titulo;
  ParcelaCheia().CopiarParaPS(&compra);
  ParcelaCheia().CopiarParaPS(&cotacao);
  CKXDadosCM_ImpostoDeducao().SetDescricao("dependente").CopiarParaPS(&deducao);
  CKXDadosCM_TituloImposto().SetValor(CY{9}).CopiarParaPS(&titulo);
  Parcela::ZerarGlobalAlloc(&compra);
  Parcela::ZerarGlobalAlloc(&cotacao);
  Parcela::ZerarDelete(&compra);
  Parcela::ZerarDelete(&cotacao);
  EXPECT_EQ(compra.Valor, CY{123456});
  EXPECT_EQ(cotacao.Valor, CY{123456});
  EXPECT_STREQ(deducao.Descricao, "dependente");
  EXPECT_EQ(titulo.Valor, CY{9});
}

TEST(Parcela, LiberacaoNaoDesceAosImpostos) {
  tagREG_FATURA_ENTRADAPS registro;
  const auto confere = [&registro](auto libera, auto liberaImposto) {
    tagREG_ITEM_IMPOSTOPS imposto = registro.ListaItemImposto[0];
    libera(&registro);
    EXPECT_EQ(registro.ListaItemImposto, nullptr);
    EXPECT_STREQ(imposto.ListaDeducao[0].Descricao, "dependente");
    liberaImposto(&imposto);
    EXPECT_EQ(imposto.QtdDeducao, 0);
  };
  using Libera = void (*)(tagREG_FATURA_ENTRADAPS*);
  ParcelaCheia().CopiarParaPS(&registro);
  confere(Libera{&Parcela::ZerarGlobalAlloc}, &CKXDadosCM_ItemImposto::ZerarGlobalAlloc);
  ParcelaCheia().CopiarPara(&registro);
  confere(Libera{&Parcela::ZerarDelete}, &CKXDadosCM_ItemImposto::ZerarDelete);
}

TEST(Parcela, ChecksumIgnoraOAnteriorEOsImpostos) {
  Parcela parcela = ParcelaCheia();
  unsigned long anterior = 77;
  const unsigned long crc = parcela.CalculaCRC(nullptr);
  EXPECT_EQ(parcela.CalculaCRC(&anterior), crc);
  parcela.RemoveTodosItemImposto();
  EXPECT_EQ(parcela.CalculaCRC(nullptr), crc);

  const auto* bytes = reinterpret_cast<const unsigned char*>(&parcela.GetReg());
  std::uint32_t esperado = kx::CalculaChecksum(bytes, 24);
  esperado = kx::CalculaChecksum("NF 1/1", 6, esperado);
  const unsigned char ultimos[] = {2, 3, 1};
  EXPECT_EQ(crc, kx::CalculaChecksum(ultimos, 3, esperado));
}

}  // namespace
