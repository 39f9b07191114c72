// The rule hierarchy: the build against a plain transcription of its rules, the searches, the
// copies, and depths that recursion would not survive.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <random>
#include <ranges>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "ac/DadosAC.h"
#include "tests/apoio/Paginas.h"
#include "tests/apoio/ProvaFloresta.h"

namespace {

using Arvore = CKXDadosCM_ACTreeAutorizacaoCompra;
using Regra = CKXDadosCM_ACAutorizacaoCompra;
using Chaves = apoio::ChavesAC;
using Registros = std::vector<Chaves>;
using apoio::TextoDaFloresta;

Arvore Monta(const Registros& registros) {
  Arvore::ListaDeChaves lista;
  for (const Chaves& chaves : registros) lista.AddTail(chaves);
  Arvore raiz;
  EXPECT_EQ(&raiz.CopiarDe(lista), &raiz);
  return raiz;
}

TEST(ArvoreMontagem, IgualATranscricaoDasRegras) {
  for (unsigned semente = 1; semente < 5000; ++semente) {
    std::vector<std::uint8_t> bytes(semente % 120);
    apoio::Bytes(semente).Enche(bytes.data(), bytes.size());
    ASSERT_NO_THROW(apoio::ProvaFloresta(apoio::Bytes(bytes.data(), bytes.size()))) << semente;
  }
}

// Every parent is a recent record, and every third record has the key of some earlier one: long
// branches in which the nodes of one key must be told apart.
TEST(ArvoreMontagem, IgualATranscricaoEmFlorestasFundasComRepetidas) {
  std::mt19937 acaso(7);
  for (int i = 0; i < 1000; ++i) {
    Registros registros;
    for (std::uint32_t j = 0; j < 100; ++j) {
      const std::uint32_t chave = j % 3 == 2 ? registros[acaso() % j].ChaveEste : j + 1;
      registros.push_back({chave, j < 3 ? 0 : registros[j - 1 - acaso() % 3].ChaveEste});
    }
    if (i % 3 > 0) std::shuffle(registros.begin() + (i % 3 - 1) * 50, registros.end(), acaso);
    ASSERT_NO_THROW(
        apoio::ProvaFloresta(registros, registros[0].ChaveEste, registros[50].ChaveEste, 3))
        << i;
  }
}

TEST(ArvoreMontagem, OsDoTopoNaOrdemEOsFilhosQuandoPodem) {
  EXPECT_EQ(TextoDaFloresta(Monta({{3, 2}, {2, 1}, {1, 0}, {4, 1}})), "1<0(2<1(3<2) 4<1)");
  EXPECT_EQ(TextoDaFloresta(Monta({{5, 5}, {6, 7}, {7, 6}, {8, 9}})), "");
  // The last record of the top takes the children that come by the index.
  EXPECT_EQ(TextoDaFloresta(Monta({{1, 0}, {1, 0}, {2, 1}})), "1<0 1<0(2<1)");
  EXPECT_EQ(Monta({{1, 0}, {2, 1}, {3, 2}}).GetQuantidadeNodes(), 1);
}

TEST(ArvoreMontagem, LimpaORaizAntes) {
  Arvore raiz(Chaves{9, 8});
  raiz.AdicionaAC(Regra()).AdicionaExNodes(Arvore(Chaves{1, 0}));
  raiz.CopiarDe(Arvore::ListaDeChaves());
  EXPECT_TRUE(raiz.EstaVazio());
}

TEST(ArvoreMontagem, DaListaDeRegrasCadaNodeTemASua) {
  tagREG_CM_AUTORIZACAO_CMSAUTPS regras[3] = {};
  for (std::uint32_t i = 0; i < 3; ++i) {
    Regra().SetChaveEste(3 - i).SetChaveNivelAnterior(2 - i).SetGrupo('A').CopiarPara(&regras[i]);
  }
  regras[1].QtdUsuarios_AND = 1;
  tagREG_CM_AUTORIZACAO_USUARIOS_CMSAUTPS grupo{};
  regras[1].ListaUsuarios_AND = &grupo;
  const tagREG_CM_LE_LISTA_AC_CMSAUTPS lista{3, {}, regras};
  Arvore raiz;
  raiz.CopiarDe(&lista);
  EXPECT_EQ(TextoDaFloresta(raiz), "1<0(2<1(3<2))");
  const Arvore& um = raiz.GetExNodes().GetAt(raiz.GetExNodes().GetHeadPosition());
  const Arvore& dois = um.GetExNodes().GetAt(um.GetExNodes().GetHeadPosition());
  EXPECT_EQ(dois.GetQuantidadeAC(), 1);
  EXPECT_EQ(dois.GetAC(0).GetQuantidadeUsuarios_AND(), 1);
  EXPECT_EQ(dois.GetAC(0).GetGrupo(), 'A');

  for (const tagREG_CM_LE_LISTA_AC_CMSAUTPS& vazia :
       {tagREG_CM_LE_LISTA_AC_CMSAUTPS{-1, {}, regras}, {2, {}, nullptr}, {0, {}, regras}}) {
    EXPECT_TRUE(raiz.CopiarDe(&lista).CopiarDe(&vazia).EstaVazio());
  }
  EXPECT_TRUE(
      raiz.CopiarDe(static_cast<const tagREG_CM_LE_LISTA_AC_CMSAUTPS*>(nullptr)).EstaVazio());
}

TEST(ArvoreAdicionaNode, AbaixoDoPrimeiroEmPreOrdemMasNaoDaRaiz) {
  Arvore raiz = Monta({{1, 0}, {2, 1}, {2, 0}});
  raiz.SetrACSmall({7, 0});
  EXPECT_EQ(raiz.AdicionaNode(Chaves{3, 7}), nullptr);
  const Arvore* const novo = raiz.AdicionaNode(Chaves{3, 2});
  ASSERT_NE(novo, nullptr);
  EXPECT_EQ(novo->GetrACSmall().ChaveEste, 3U);
  tagREG_CM_AUTORIZACAO_CMSAUTPS regra{};
  regra.ChaveEste = 4;
  regra.ChaveNivelAnterior = 3;
  EXPECT_EQ(raiz.AdicionaNode(&regra)->GetQuantidadeAC(), 1);
  EXPECT_EQ(TextoDaFloresta(raiz), "1<0(2<1(3<2(4<3))) 2<0");
}

// Items for the nodes of a tree, in pre-order; 0 leaves a node without one.
TEST(ArvoreMontagem, ContagemMaiorQueAsRegras) {
  const apoio::Paginas paginas;
  constexpr std::int32_t kCabem = apoio::Paginas::kPagina / sizeof(tagREG_CM_AUTORIZACAO_CMSAUTPS);
  auto* const regras = reinterpret_cast<tagREG_CM_AUTORIZACAO_CMSAUTPS*>(paginas.Legivel());
  std::fill_n(regras, kCabem, tagREG_CM_AUTORIZACAO_CMSAUTPS{});
  const tagREG_CM_LE_LISTA_AC_CMSAUTPS lista{std::numeric_limits<std::int32_t>::max(), {}, regras};
  Arvore raiz;
  EXPECT_EQ(raiz.CopiarDe(&lista).GetQuantidadeNodes(), kCabem);
}

HTREEITEM Item(std::uintptr_t numero) { return reinterpret_cast<HTREEITEM>(numero * 16); }

Arvore& Filho(Arvore& node, int indice) {
  POSITION p = node.GetExNodes().GetHeadPosition();
  while (indice-- > 0) node.GetExNodes().GetNext(p);
  return node.GetExNodes().GetAt(p);
}

TEST(ArvoreBusca, ItemPelaChave) {
  Arvore raiz = Monta({{1, 0}, {1, 0}, {2, 1}});
  EXPECT_EQ(raiz.AchaItemArvore(1), nullptr);
  Filho(raiz, 1).SethTI(Item(5));
  EXPECT_EQ(raiz.AchaItemArvore(1), Item(5));
  // A match without an item hides what is below it.
  Filho(raiz, 0).AdicionaExNodes(Arvore(Chaves{1, 1}).SethTI(Item(6)));
  EXPECT_EQ(raiz.AchaItemArvore(1), Item(5));
  EXPECT_EQ(raiz.AchaItemArvore(2), nullptr);
  raiz.SethTI(Item(1));
  EXPECT_EQ(raiz.AchaItemArvore(0), Item(1));
  EXPECT_EQ(raiz.AchaItemArvore(~0UL - 0xFFFFFFFF), sizeof(unsigned long) == 4 ? Item(1) : nullptr);
}

// A chain whose records stand in the order given: 0 as it hangs, 1 reversed, 2 shuffled.
Registros Corrente(std::uint32_t quantos, int ordem) {
  Registros registros;
  for (std::uint32_t i = 1; i <= quantos; ++i) registros.push_back({i, i - 1});
  if (ordem == 1) std::reverse(registros.begin(), registros.end());
  if (ordem == 2) std::shuffle(registros.begin(), registros.end(), std::mt19937(1));
  return registros;
}

static_assert(std::ranges::input_range<decltype(std::declval<Arvore&>().Percorre())>);

TEST(ArvorePercurso, NemEsteNodeSeAchaNemSeRemove) {
  Arvore raiz = Monta({{1, 0}, {2, 1}, {7, 2}, {3, 1}, {4, 0}});
  raiz.SetrACSmall({7, 0});
  EXPECT_EQ(raiz.AchaNode(7), &Filho(Filho(Filho(raiz, 0), 0), 0));
  EXPECT_EQ(raiz.AchaNode(9), nullptr);
  EXPECT_EQ(raiz.AchaNode(4 + (~0UL - 0xFFFFFFFF)), sizeof(long) == 4 ? raiz.AchaNode(4) : nullptr);
  EXPECT_FALSE(raiz.AchaNode(2)->DeletarNode(2));
  EXPECT_TRUE(raiz.DeletarNode(2));
  EXPECT_FALSE(raiz.DeletarNode(7));
  EXPECT_EQ(TextoDaFloresta(raiz), "1<0(3<1) 4<0");
  const Arvore folha(Chaves{1, 0});
  for (auto [node, nivel] : folha.Percorre()) ADD_FAILURE() << node.GetrACSmall().ChaveEste;
}

TEST(ArvorePercurso, ONodeVisitadoGanhaEPerdeFilhos) {
  Arvore raiz = Monta({{1, 0}, {2, 1}, {3, 0}});
  std::string visitados;
  for (auto [node, nivel] : raiz.Percorre()) {
    const std::uint32_t chave = node.GetrACSmall().ChaveEste;
    visitados += std::to_string(chave) + " ";
    if (chave == 1) node.RemoveTodosNodes();
    if (chave == 3) node.AdicionaExNodes(Arvore(Chaves{4, 3}));
  }
  EXPECT_EQ(visitados, "1 3 4 ");
}

TEST(ArvoreMostra, UmaLinhaPorNode) {
  Arvore raiz = Monta({{10, 0}, {20, 10}, {30, 20}, {11, 0}});
  Arvore& dez = *raiz.AchaNode(10);
  dez.AdicionaAC(Regra().SetCodigo("PRE").SetDescricao("Presid\xEAncia")).AdicionaAC(Regra());
  raiz.AchaNode(20)->AdicionaAC(Regra().SetDescricao("Dir\n1")).SethTI(Item(1));
  raiz.AdicionaExNodes(Arvore(Chaves{12, 10}));
  EXPECT_EQ(kx::Descreve(raiz),
            "10: PRE Presid\xC3\xAAncia; (sem nome)\n"
            "  20: Dir 1 (item 16)\n"
            "    30\n"
            "11\n"
            "12 (acima 10)\n");
  EXPECT_EQ(kx::Descreve(*raiz.AchaNode(20)), "20: Dir 1 (acima 10) (item 16)\n  30\n");
  EXPECT_EQ(kx::Descreve(Arvore()), "");
  EXPECT_TRUE(kx::Descreve(Monta(Corrente(60, 0))).ends_with("\n" + std::string(80, ' ') + "60\n"));
}

TEST(ArvoreCopia, EhFundaELevaItensERegras) {
  Arvore raiz = Monta({{1, 0}, {2, 1}, {3, 1}});
  Filho(Filho(raiz, 0), 1).SethTI(Item(3)).AdicionaAC(Regra().SetCodigo("X"));
  const Arvore copia(raiz);
  EXPECT_TRUE(copia == raiz);
  EXPECT_EQ(copia.AchaItemArvore(3), Item(3));
  Filho(Filho(raiz, 0), 1).GetRefAC(0).SetCodigo("Y");
  EXPECT_FALSE(copia == raiz);
  raiz = copia;
  EXPECT_TRUE(copia == raiz);
  Filho(Filho(raiz, 0), 1).SethTI(nullptr);
  EXPECT_TRUE(copia != raiz);
  Filho(raiz, 0).RemoveTodosNodes();
  EXPECT_EQ(TextoDaFloresta(raiz), "1<0");
  Arvore movida(std::move(raiz));
  movida = Arvore(copia);
  EXPECT_TRUE(movida == copia);
}

TEST(ArvoreCopia, DeDentroDeSiMesma) {
  Arvore raiz = Monta({{1, 0}, {2, 1}, {3, 2}});
  raiz.AdicionaExNodes(raiz);
  EXPECT_EQ(TextoDaFloresta(raiz), "1<0(2<1(3<2)) 0<0(1<0(2<1(3<2)))");
  raiz = Filho(raiz, 0);
  EXPECT_EQ(TextoDaFloresta(raiz), "2<1(3<2)");
  raiz = std::move(Filho(raiz, 0));
  EXPECT_EQ(raiz.GetrACSmall().ChaveEste, 2U);
  EXPECT_EQ(TextoDaFloresta(raiz), "3<2");
}

TEST(ArvoreNodes, EnderecoResisteAosIrmaos) {
  Arvore raiz = Monta({{1, 0}, {2, 0}, {3, 0}});
  const Arvore* const dois = &Filho(raiz, 1);
  for (std::uint32_t i = 0; i < 100; ++i) raiz.AdicionaExNodes(Arvore(Chaves{100 + i, 0}));
  Arvore::Nodes& nodes = raiz.GetExNodes();
  nodes.RemoveAt(nodes.GetHeadPosition());
  EXPECT_EQ(&Filho(raiz, 0), dois);
  EXPECT_EQ(dois->GetrACSmall().ChaveEste, 2U);
}

void PercorreUmMilhaoDeNiveis() {
  constexpr std::uint32_t kNiveis = 1'000'000;
  Arvore raiz = Monta(Corrente(kNiveis, 1));
  Arvore copia(raiz);
  EXPECT_TRUE(copia == raiz);
  ASSERT_NE(copia.AdicionaNode(Chaves{kNiveis + 1, kNiveis}), nullptr);
  EXPECT_FALSE(copia == raiz);
  EXPECT_TRUE(copia.EhReferenciaCiclica(1, kNiveis + 1));
  EXPECT_EQ(copia.AchaItemArvore(kNiveis), nullptr);
  EXPECT_EQ(copia.AchaPonteiroArvore(Item(1)), 0U);
  CArray<unsigned long> chaves;
  copia.LocalizaChaveTodosNosFilhos(1, chaves);
  EXPECT_EQ(chaves.GetSize(), kNiveis + 1);
  std::size_t visitados = 0;
  for (auto [node, nivel] : copia.Percorre()) {
    if (nivel + 1 == node.GetrACSmall().ChaveEste) ++visitados;
  }
  EXPECT_EQ(visitados, kNiveis + 1);
  EXPECT_TRUE(copia.DeletarNode(kNiveis + 1));
  EXPECT_TRUE(copia == raiz && copia.DeletarNode(1) && copia.GetQuantidadeNodes() == 0);
  raiz.Limpar();
  EXPECT_TRUE(raiz.EstaVazio());
}

// In a thread, whose stack has 8 MiB or less whatever the program's own may grow to.
TEST(ArvoreFunda, UmMilhaoDeNiveis) { std::thread(PercorreUmMilhaoDeNiveis).join(); }

// Quadratic work on 200,000 records would take minutes; a linear build takes a fraction of a
// second.
TEST(ArvoreMontagem, CustoNaoCresceComOQuadrado) {
  constexpr std::uint32_t kQuantos = 200'000;
  const auto inicio = std::chrono::steady_clock::now();
  for (const int ordem : {0, 1, 2}) {
    EXPECT_EQ(Monta(Corrente(kQuantos, ordem)).GetQuantidadeNodes(), 1);
  }
  Registros estrela{{1, 0}};
  for (std::uint32_t i = 2; i <= kQuantos; ++i) estrela.push_back({i, 1});
  std::reverse(estrela.begin(), estrela.end());
  EXPECT_EQ(Monta(estrela).GetQuantidadeNodes(), 1);
  // A chain in which every second node, those in the index, has a child with one and the same key:
  // each of these children, deeper and deeper, is compared with the first.
  Registros repetidas;
  for (std::uint32_t i = 1; i <= kQuantos; i += 2) repetidas.push_back({kQuantos + 1, i});
  const Registros corrente = Corrente(kQuantos, 0);
  repetidas.insert(repetidas.end(), corrente.begin(), corrente.end());
  EXPECT_EQ(Monta(repetidas).GetQuantidadeNodes(), 1);
  EXPECT_LT(std::chrono::steady_clock::now() - inicio, std::chrono::seconds(10));
}

}  // namespace
