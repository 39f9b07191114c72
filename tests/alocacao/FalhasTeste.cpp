// Every allocation of every class's conversions and copies is made to fail in turn: the error
// propagates, nothing leaks, and both sides stay usable.
#include <gtest/gtest.h>

#include <new>
#include <type_traits>

#include "tests/apoio/ClassesDeRegistro.h"
#include "tests/apoio/ContaAlocacoes.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

// Runs the action with its first, second, ... allocation failing until it succeeds; `depois` runs
// after each failure.
template <class Acao, class Depois>
void FalhaEmCadaAlocacao(Acao acao, Depois depois) {
  for (long long n = 1;; ++n) {
    const long long vivas = apoio::AlocacoesVivas();
    apoio::FalhaNaAlocacao(n);
    bool falhou = false;
    try {
      acao();
    } catch (const std::bad_alloc&) {
      falhou = true;
    }
    apoio::FalhaNaAlocacao(0);
    depois();
    ASSERT_EQ(apoio::AlocacoesVivas(), vivas) << "allocation " << n;
    ASSERT_EQ(apoio::AlocacaoFalhou(), falhou) << "allocation " << n;
    if (!falhou) return;
  }
}

// An installment releases its own array alone; its taxes have releases of their own.
template <class Classe>
inline constexpr bool kLiberaTudo = !std::is_same_v<Classe, CKXDadosCM_Parcela>;

// With this one an order has items, installments and cancellations.
constexpr unsigned kSementeCheia = 28;

template <class Classe>
class Falhas : public ::testing::Test {};
TYPED_TEST_SUITE(Falhas, apoio::ClassesDeRegistro);

TYPED_TEST(Falhas, CopiarPara) {
  using REG = typename TypeParam::Registro;
  const apoio::RegistroAleatorio<REG> original(kSementeCheia);
  TypeParam objeto;
  objeto.CopiarDe(&original.Reg);
  REG destino{};
  FalhaEmCadaAlocacao([&] { objeto.CopiarPara(&destino); },
                      [&] { kx::LiberaRegistro(&destino, kx::Alocador::Tarefa); });
}

TYPED_TEST(Falhas, CadaLiberacaoLevaTudo) {
  if constexpr (kLiberaTudo<TypeParam>) {
    using REG = typename TypeParam::Registro;
    const auto confere = [](unsigned semente, kx::Alocador alocador, void (*libera)(REG*)) {
      const long long vivas = apoio::AlocacoesVivas();
      apoio::RegistroAleatorio<REG> registro(semente, true, alocador);
      libera(&registro.Reg);
      EXPECT_EQ(apoio::OQueFicou(KXMetadados<REG>::kInfo, &registro.Reg), "");
      EXPECT_EQ(apoio::AlocacoesVivas(), vivas);
    };
    for (unsigned semente = 0; semente < 5; ++semente) {
      confere(semente, kx::Alocador::Delete, TypeParam::ZerarDelete);
      confere(semente, kx::Alocador::Tarefa, TypeParam::ZerarGlobalAlloc);
    }
  }
}

TYPED_TEST(Falhas, CopiarDeECopia) {
  using REG = typename TypeParam::Registro;
  const apoio::RegistroAleatorio<REG> original(kSementeCheia, true);
  TypeParam inteiro;
  inteiro.CopiarDe(&original.Reg);
  const auto tenta = [&](auto acao) {
    FalhaEmCadaAlocacao(
        [&] {
          TypeParam objeto;
          // An object left half-way must still convert, clear and take the whole again.
          struct Confere {
            TypeParam& Objeto;
            ~Confere() {
              apoio::FalhaNaAlocacao(0);
              apoio::RegistroEscrito<REG> escrito;
              Objeto.CopiarPara(&escrito.Reg);
              Objeto.Limpar();
              EXPECT_TRUE(Objeto.EstaVazio());
            }
          } confere{objeto};
          acao(objeto);
        },
        [] {});
  };
  tenta([&](TypeParam& objeto) { objeto.CopiarDe(&original.Reg); });
  tenta([&](TypeParam& objeto) { objeto = inteiro; });
  FalhaEmCadaAlocacao([&] { const TypeParam copia(inteiro); }, [] {});
}

TEST(Alocacoes, TextoLidoTomaOQueTemENaoOQueDiz) {
  alignas(4096) char pagina[4096] = "abc";
  KXStringPS texto{};
  texto.Tamanho = 0xFFFFFFFF;
  texto.Texto = pagina;
  const long long antes = apoio::BytesPedidos();
  EXPECT_EQ(kx::LeTexto(texto, "FalhasTeste", __LINE__).Vista(), "abc");
  EXPECT_LT(apoio::BytesPedidos() - antes, 1000);
}

TEST(FalhasArvore, MontaECopia) {
  using Arvore = CKXDadosCM_ACTreeAutorizacaoCompra;
  tagREG_CM_AUTORIZACAO_CMSAUTPS regras[4] = {};
  const std::uint32_t anterior[] = {2, 0, 2, 1};  // two rules have key 1
  for (std::uint32_t i = 0; i < 4; ++i) {
    regras[i].ChaveEste = 1 + i % 3 % 2;
    regras[i].ChaveNivelAnterior = anterior[i];
  }
  const tagREG_CM_LE_LISTA_AC_CMSAUTPS lista{4, {}, regras};
  Arvore inteira;
  inteira.CopiarDe(&lista);
  FalhaEmCadaAlocacao(
      [&] {
        Arvore outra;
        outra.CopiarDe(&lista);
        EXPECT_TRUE(outra == inteira);
      },
      [] {});
  FalhaEmCadaAlocacao(
      [&] {
        Arvore copia(tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS{9, 0});
        try {
          copia = inteira;
        } catch (const std::bad_alloc&) {  // it is as it was
          EXPECT_EQ(copia.GetrACSmall().ChaveEste, 9U);
          EXPECT_EQ(copia.GetQuantidadeNodes(), 0);
          throw;
        }
      },
      [] {});
}

TEST(Alocacoes, EntradaVaziaNaoAloca) {
  const long long antes = apoio::AlocacoesFeitas();
  const CKXDadosCM_RERegistroEntrada entrada;
  const CKXDadosCM_REItemProduto item;
  EXPECT_EQ(apoio::AlocacoesFeitas(), antes);
}

TEST(Alocacoes, UmaPorArray) {
  CKXDadosCM_RERegistroEntrada entrada;
  CKXDadosCM_REItemProduto item;
  item.AdicionaTotais(CKXDadosCM_REItemProdutoTotais());
  for (int i = 0; i < 10; ++i) entrada.AdicionaProduto(item);
  tagREG_ENTRADAPS registro;
  long long antes = apoio::AlocacoesFeitas();
  entrada.CopiarPara(&registro);
  EXPECT_EQ(apoio::AlocacoesFeitas() - antes, 1 + 10);
  CKXDadosCM_RERegistroEntrada volta;
  antes = apoio::AlocacoesFeitas();
  volta.CopiarDe(&registro);
  EXPECT_EQ(apoio::AlocacoesFeitas() - antes, 1 + 10);
  CKXDadosCM_RERegistroEntrada::ZerarGlobalAlloc(&registro);
}

TEST(Alocacoes, AdicionarMoveOsItensQueJaEstao) {
  CKXDadosCM_RERegistroEntrada entrada;
  CKXDadosCM_REItemProduto item;
  item.AdicionaRateio(CKXDadosCM_RERateioProduto());
  entrada.GetListaProduto().reserve(1);
  entrada.AdicionaProduto(item);
  const CKXDadosCM_RERateioProduto* rateio = entrada.GetProduto(0).GetPtrRateio(0);
  entrada.AdicionaProduto(item);
  EXPECT_EQ(entrada.GetProduto(0).GetPtrRateio(0), rateio);
}

}  // namespace
