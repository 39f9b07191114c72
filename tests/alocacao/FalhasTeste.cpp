// Every allocation of every class's conversions and copies is made to fail in turn: the error
// propagates, nothing leaks, and both sides stay usable.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <type_traits>
#include <utility>

#include "ac/ArvoreAC.h"
#include "kxldados/TKXConsisteRetorno.h"
#include "platform/Plataforma.h"
#include "tests/apoio/ClassesDeRegistro.h"
#include "tests/apoio/ContaAlocacoes.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using apoio::FalhaEmCadaAlocacao;

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
  const apoio::RegistroAleatorio<REG> outro(kSementeCheia + 1, true);
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
  tenta([&](TypeParam& objeto) {  // over what was there
    objeto.CopiarDe(&outro.Reg);
    objeto = inteiro;
  });
  FalhaEmCadaAlocacao([&] { const TypeParam copia(inteiro); }, [] {});
}

TYPED_TEST(Falhas, MoverELimparNaoAlocam) {
  const apoio::RegistroAleatorio<typename TypeParam::Registro> original(kSementeCheia, true);
  TypeParam objeto;
  objeto.CopiarDe(&original.Reg);
  const long long antes = apoio::AlocacoesFeitas();
  TypeParam movido(std::move(objeto));
  TypeParam atribuido;
  atribuido = std::move(movido);
  EXPECT_FALSE(atribuido.EstaVazio());
  atribuido.Limpar();
  EXPECT_EQ(apoio::AlocacoesFeitas(), antes);
}

// An installment has a record for each kind of document, from either allocator.
template <class REG>
class FalhasParcela : public ::testing::Test {};
using RegistrosDeParcela = ::testing::Types<tagREG_FATURA_ENTRADAPS, tagREG_FATURA_CONHECIMENTOPS,
                                            tagREG_FATURA_COMPRAPS, tagREG_COTACAOITEMFATURAPS>;
TYPED_TEST_SUITE(FalhasParcela, RegistrosDeParcela);

TYPED_TEST(FalhasParcela, VaiEVolta) {
  const apoio::RegistroAleatorio<TypeParam> original(kSementeCheia);
  CKXDadosCM_Parcela parcela;
  parcela.CopiarDe(&original.Reg);
  TypeParam destino{};
  FalhaEmCadaAlocacao([&] { parcela.CopiarPara(&destino); },
                      [&] { kx::LiberaRegistro(&destino, kx::Alocador::Delete); });
  FalhaEmCadaAlocacao([&] { parcela.CopiarParaPS(&destino); },
                      [&] { kx::LiberaRegistro(&destino, kx::Alocador::Tarefa); });
  FalhaEmCadaAlocacao(
      [&] {
        CKXDadosCM_Parcela volta;
        volta.CopiarDe(&original.Reg);
        EXPECT_TRUE(volta == parcela);
      },
      [] {});
}

TEST(FalhasSemRegistro, Copia) {
  const apoio::RegistroAleatorio<CKXDadosCM_ACAutorizacaoCompra::Registro> regra(kSementeCheia);
  CKXDadosCM_ACThread thread;
  thread.GetAC().CopiarDe(&regra.Reg);
  thread.SetACAnterior(thread.GetAC());
  thread.GetConsisteGrava().AdicionaItem({TKXConsisteRetornoItem::eConsiste::Erro, "Sem limite"});
  FalhaEmCadaAlocacao(
      [&] {
        CKXDadosCM_ACThread copia;
        copia = thread;
        EXPECT_TRUE(copia == thread);
        copia.Limpar();
        EXPECT_TRUE(copia.EstaVazio());
      },
      [] {});
}

// The collection family over elements of any class.
template <class T>
class Dono {
  KX_COLECAO(Dono, Item, T)
};

TYPED_TEST(Falhas, FamiliaDaColecao) {
  const apoio::RegistroAleatorio<typename TypeParam::Registro> original(kSementeCheia, true);
  TypeParam cheio;
  cheio.CopiarDe(&original.Reg);
  const Dono<TypeParam> dois =
      Dono<TypeParam>().AdicionaItem(TypeParam()).AdicionaItem(TypeParam(cheio));
  // What fails half-way is as it was, or at least as long as it was.
  const auto tenta = [&](bool comoEra, auto acao) {
    FalhaEmCadaAlocacao(
        [&] {
          Dono<TypeParam> dono(dois);
          try {
            acao(dono);
          } catch (const std::bad_alloc&) {
            EXPECT_EQ(dono.GetQuantidadeItem(), 2);
            EXPECT_TRUE(!comoEra || dono.GetListaItem() == dois.GetListaItem());
            throw;
          }
        },
        [] {});
  };
  tenta(true, [&](Dono<TypeParam>& dono) { dono.AdicionaItem(cheio); });
  tenta(true, [&](Dono<TypeParam>& dono) { dono.AdicionaItem(dono.GetItem(1)); });
  tenta(true, [&](Dono<TypeParam>& dono) { dono.AdicionaItem(std::move(dono.GetRefItem(1))); });
  tenta(true, [&](Dono<TypeParam>& dono) { dono.SetValorUnicoItem(cheio); });
  tenta(false, [&](Dono<TypeParam>& dono) { dono.SetItem(0, cheio); });
  tenta(false, [&](Dono<TypeParam>& dono) { dono.SetListaItem({cheio, cheio}); });
}

TEST(Alocacoes, TextoLidoTomaOQueTemENaoOQueDiz) {
  alignas(4096) char pagina[4096] = "abc";
  KXStringPS texto{};
  texto.Tamanho = 0xFFFFFFFF;
  texto.Texto = pagina;
  const long long antes = apoio::BytesPedidos();
  EXPECT_EQ(kx::LeContado(texto, {"FalhasTeste", __LINE__}).Vista(), "abc");
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

TEST(FalhasArvore, AdicionaEProcura) {
  using Arvore = CKXDadosCM_ACTreeAutorizacaoCompra;
  tagREG_CM_AUTORIZACAO_CMSAUTPS regra{};
  regra.ChaveEste = 3;
  regra.ChaveNivelAnterior = 2;
  FalhaEmCadaAlocacao(
      [&] {
        Arvore raiz;
        raiz.AdicionaExNodes(Arvore(tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS{2, 0}));
        EXPECT_NE(raiz.AdicionaNode(&regra), nullptr);
        raiz.AdicionaExNodes(raiz);
        CArray<unsigned long> chaves;
        raiz.LocalizaChaveTodosNosFilhos(2, chaves);
        EXPECT_EQ(chaves.GetSize(), 3);  // 2, and 3 twice
        EXPECT_TRUE(raiz.EhReferenciaCiclica(2, 3));
        EXPECT_EQ(raiz.AchaItemArvore(3), nullptr);
        const Arvore movida(std::move(raiz));
        EXPECT_EQ(movida.GetQuantidadeNodes(), 2);
      },
      [] {});
}

TEST(FalhasBase, TextosEMensagens) {
  FalhaEmCadaAlocacao(
      [] {
        CString texto;
        texto.Format("%0100d,%s", 0, "fim");
        texto += texto;
        texto.Replace("0,", "0 a 0, ");
        texto.Insert(3, "um trecho que nao cabe no lugar do outro");
        int inicio = 0;
        EXPECT_GT(texto.Tokenize(",", inicio).GetLength(), 100);
        EXPECT_EQ(texto.Mid(2).Left(150).Trim().GetLength(), 150);
      },
      [] {});
  FalhaEmCadaAlocacao(
      [] {
        const CString texto(std::string(100, 'a'));
        TKXConsisteRetorno retorno(TKXConsisteRetornoItem::eConsiste::Erro, texto);
        retorno.AdicionaItem({TKXConsisteRetornoItem::eConsiste::Aviso, texto});
        TKXConsisteRetorno copia;
        copia = retorno;
        EXPECT_TRUE(copia == retorno);
      },
      [] {});
}

TEST(FalhasBase, MensagemDeJanelaSemMemoriaNaoTemNumero) {
  const char* nome = "um nome que nao cabe sem tomar memoria";
  apoio::FalhaNaAlocacao(1);
  EXPECT_EQ(kx::plataforma::RegistraMensagemJanela(nome), 0U);
  apoio::FalhaNaAlocacao(0);
  EXPECT_TRUE(apoio::AlocacaoFalhou());
  EXPECT_NE(kx::plataforma::RegistraMensagemJanela(nome), 0U);
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
