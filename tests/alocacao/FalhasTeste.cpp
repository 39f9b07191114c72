// Every allocation of every class's conversions and copies is made to fail in turn: the error
// propagates, nothing leaks, and both sides stay usable.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <utility>

#include "ac/ArvoreAC.h"
#include "ac/DadosAC.h"
#include "core/Imagem.h"
#include "kxldados/TKXConsisteRetorno.h"
#include "oc/DadosOC.h"
#include "platform/Plataforma.h"
#include "re/DadosRE.h"
#include "tests/apoio/ContaAlocacoes.h"
#include "tests/apoio/PorClasse.h"

namespace {

using apoio::FalhaEmCadaAlocacao;
using apoio::Objeto;
using apoio::Registro;

constexpr unsigned kSemente = 28;

KX_POR_CLASSE(Falhas, apoio::ClassesDeRegistro());

TEST_P(Falhas, CopiarPara) {
  const Registro original(Info(), kSemente);
  const Objeto objeto(Atual(), original.Bytes());
  std::vector<unsigned char> destino(Info().Tamanho);
  FalhaEmCadaAlocacao([&] { objeto.CopiarPara(destino.data()); },
                      [&] { apoio::Libera(Info(), destino.data(), kx::Alocador::Tarefa); });
}

TEST_P(Falhas, RegistroQueSeLibera) {
  const Registro original(Info(), kSemente);
  const Objeto objeto(Atual(), original.Bytes());
  FalhaEmCadaAlocacao([&] { EXPECT_TRUE(Atual().PorDono(*objeto)); }, [] {});
}

TEST_P(Falhas, ImagemNadaReserva) {
  const Registro registro(Info(), kSemente);
  const kx::LeiauteDeImagem leiaute(Info());
  std::vector<std::byte> imagem(kx::TamanhoDaImagem(leiaute, registro.Bytes()));
  const long long antes = apoio::AlocacoesFeitas();
  kx::EscreveImagem(leiaute, registro.Bytes(), imagem);
  kx::AbreImagem(leiaute, imagem);
  EXPECT_EQ(apoio::AlocacoesFeitas(), antes);
}

TEST_P(Falhas, Diferencas) {
  const Registro original(Info(), kSemente);
  const Registro outro(Info(), kSemente + 1);
  const Objeto antes(Atual(), original.Bytes());
  const Objeto depois(Atual(), outro.Bytes());
  FalhaEmCadaAlocacao([&] { Atual().Diferencas(*antes, *depois); }, [] {}, 101);
}

TEST_P(Falhas, CadaLiberacaoLevaTudo) {
  // An installment releases its own array alone; its taxes have releases of their own.
  if (Atual().DeExecucao == CKXDadosCM_Parcela::GetThisClass()) return;
  for (const auto alocador : {kx::Alocador::Delete, kx::Alocador::Tarefa}) {
    const long long vivas = apoio::AlocacoesVivas();
    Registro registro(Info(), kSemente, true, alocador);
    const bool deTarefa = alocador == kx::Alocador::Tarefa;
    (deTarefa ? Atual().ZerarGlobalAlloc : Atual().ZerarDelete)(registro.Bytes());
    EXPECT_EQ(apoio::OQueFicou(Info(), registro.Bytes()), "");
    EXPECT_EQ(apoio::AlocacoesVivas(), vivas + 1);  // the record itself
  }
}

TEST_P(Falhas, CopiarDeECopia) {
  const Registro original(Info(), kSemente, true);
  const Registro outro(Info(), kSemente + 1, true);
  const Objeto inteiro(Atual(), original.Bytes());
  const auto tenta = [&](auto acao) {
    FalhaEmCadaAlocacao(
        [&] {
          Objeto objeto(Atual());
          // An object left half-way must still convert, clear and take the whole again.
          struct Confere {
            Objeto& Meio;
            const KXRegistroInfo& Info;
            ~Confere() {
              apoio::FalhaNaAlocacao(0);
              Registro escrito(Info);
              Meio.CopiarPara(escrito.Bytes());
              Meio->Limpar();
              EXPECT_TRUE(Meio->EstaVazio());
            }
          } confere{objeto, Info()};
          acao(objeto);
        },
        [] {});
  };
  tenta([&](Objeto& objeto) { objeto.CopiarDe(original.Bytes()); });
  tenta([&](Objeto& objeto) { objeto = inteiro; });
  tenta([&](Objeto& objeto) {  // over what was there
    objeto.CopiarDe(outro.Bytes());
    objeto = inteiro;
  });
  FalhaEmCadaAlocacao([&] { const Objeto copia(inteiro); }, [] {});
}

TEST_P(Falhas, MoverELimparNaoAlocam) {
  const Registro original(Info(), kSemente, true);
  Objeto objeto(Atual(), original.Bytes());
  Objeto atribuido(Atual());
  const long long antes = apoio::AlocacoesFeitas();
  Objeto movido(std::move(objeto));
  EXPECT_EQ(apoio::AlocacoesFeitas(), antes + 1);  // the object itself
  atribuido = std::move(movido);
  EXPECT_FALSE(atribuido->EstaVazio());
  atribuido->Limpar();
  EXPECT_EQ(apoio::AlocacoesFeitas(), antes + 1);
}

// An installment has a record for each kind of document, from either allocator.
template <class REG>
class FalhasParcela : public ::testing::Test {};
using RegistrosDeParcela = ::testing::Types<tagREG_FATURA_ENTRADAPS, tagREG_FATURA_CONHECIMENTOPS,
                                            tagREG_FATURA_COMPRAPS, tagREG_COTACAOITEMFATURAPS>;
TYPED_TEST_SUITE(FalhasParcela, RegistrosDeParcela);

TYPED_TEST(FalhasParcela, VaiEVolta) {
  const apoio::RegistroAleatorio<TypeParam> original(kSemente);
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
  const apoio::RegistroAleatorio<CKXDadosCM_ACAutorizacaoCompra::Registro> regra(kSemente);
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

// That every class moves without an exception is checked where the classes are listed.
TEST(FalhasColecao, FicaComoEraOuDoMesmoTamanho) {
  using Item = CKXDadosCM_ItemOrdemCompra;
  const apoio::RegistroAleatorio<tagREG_ITENS_ORDEMPS> original(kSemente);
  Item cheio;
  cheio.CopiarDe(&original.Reg);
  const Dono<Item> dois = Dono<Item>().AdicionaItem(Item()).AdicionaItem(Item(cheio));
  const auto tenta = [&](bool comoEra, auto acao) {
    FalhaEmCadaAlocacao(
        [&] {
          Dono<Item> dono(dois);
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
  tenta(true, [&](Dono<Item>& dono) { dono.AdicionaItem(cheio); });
  tenta(true, [&](Dono<Item>& dono) { dono.AdicionaItem(dono.GetItem(1)); });
  tenta(true, [&](Dono<Item>& dono) { dono.AdicionaItem(std::move(dono.GetRefItem(1))); });
  tenta(true, [&](Dono<Item>& dono) { dono.SetValorUnicoItem(cheio); });
  tenta(false, [&](Dono<Item>& dono) { dono.SetItem(0, cheio); });
  tenta(false, [&](Dono<Item>& dono) { dono.SetListaItem({cheio, cheio}); });
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
        EXPECT_EQ(kx::Descreve(raiz), "2\n  3: (sem nome)\n0\n  2\n    3: (sem nome)\n");
        EXPECT_TRUE(raiz.DeletarNode(2) && raiz.DeletarNode(2) && !raiz.DeletarNode(2));
        const Arvore movida(std::move(raiz));
        EXPECT_EQ(movida.GetQuantidadeNodes(), 1);
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
