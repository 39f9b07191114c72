// What changed between two objects. That its rows and equality agree is seen here, and where the
// sweeps change one thing at a time (IgualNasDiferencas).
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "ac/ArvoreAC.h"
#include "core/Diferenca.h"
#include "oc/DadosOC.h"
#include "tests/apoio/PorClasse.h"

namespace {

using namespace kx::literais;

// One row a line.
template <class C>
std::string Linhas(const C& antes, const C& depois) {
  std::ostringstream saida;
  for (const kx::Diferenca& linha : kx::Diferencas(antes, depois)) saida << linha << '\n';
  return saida.str();
}

CKXDadosCM_ItemOrdemCompra Item(int numero) {
  CKXDadosCM_ItemOrdemCompra item;
  item.SetPonteiroProdutoServico(1000 + numero);
  item.SetQuantidade(CY{numero * 10'000});
  item.SetValorIPI("1,50"_rs);
  return item;
}

CKXDadosCM_OrdemCompra Ordem(int itens) {
  CKXDadosCM_OrdemCompra ordem;
  for (int i = 1; i <= itens; ++i) ordem.AdicionaItem(Item(i));
  return ordem;
}

TEST(Diferenca, CamposTextosEValoresDoObjeto) {
  const CKXDadosCM_OrdemCompra antes = Ordem(2);
  CKXDadosCM_OrdemCompra depois = antes;
  EXPECT_EQ(Linhas(antes, depois), "");
  depois.SetCodigo("AB\xC7");
  depois.SetRegDataEmissao({23, 11, 2026});
  depois.GetPtrItem(1)->SetValorIPI("13,75"_rs);
  CKXDadosCM_Parcela parcela;
  parcela.SetValor("10,00"_rs);
  depois.GetCondicaoPagamento().SetPonteiroTipoCobranca(7).AdicionaParcela(parcela);
  depois.GetVinculo().SetTipo(3);
  depois.SetLinhaArquivoImportacao(12);
  EXPECT_EQ(Linhas(antes, depois),
            "RegDataEmissao:  -> 23/11/2026\n"
            "Codigo:  -> AB\xC3\x87\n"
            "ListaItem[1].ValorIPI: 1,50 -> 13,75\n"
            "CondicaoPagamento.PonteiroTipoCobranca: 0 -> 7\n"
            "CondicaoPagamento.ListaParcela[0]: acrescentado\n"
            "Vinculo.Tipo: 0 -> 3 (n\xC3\xA3o comparado)\n"
            "LinhaArquivoImportacao: 0 -> 12 (n\xC3\xA3o comparado)\n");
}

TEST(Diferenca, TotaisDeUmSoNaoContam) {
  const CKXDadosCM_ItemOrdemCompra sem = Item(1);
  CKXDadosCM_ItemOrdemCompra com = sem;
  com.AdicionaTotais({});
  EXPECT_EQ(Linhas(sem, com), "ListaTotais[0]: acrescentado (n\xC3\xA3o comparado)\n");
  CKXDadosCM_ItemOrdemCompra outro = com;
  outro.AdicionaTotais({});
  EXPECT_EQ(Linhas(com, outro), "ListaTotais[1]: acrescentado\n");
}

TEST(Diferenca, FilhosSaoEmparelhados) {
  const CKXDadosCM_OrdemCompra antes = Ordem(1000);
  CKXDadosCM_OrdemCompra depois = antes;
  depois.DeletarItem(500);
  EXPECT_EQ(Linhas(antes, depois), "ListaItem[500]: retirado\n");
  EXPECT_EQ(Linhas(depois, antes), "ListaItem[500]: acrescentado\n");

  depois.GetPtrItem(20)->SetValorIPI("2,00"_rs);
  depois.GetListaItem().erase(depois.GetListaItem().begin() + 21);
  depois.AdicionaItem(Item(5000));
  EXPECT_EQ(Linhas(antes, depois),
            "ListaItem[20].ValorIPI: 1,50 -> 2,00\n"
            "ListaItem[21]: retirado\n"
            "ListaItem[500]: retirado\n"
            "ListaItem[998]: acrescentado\n");
}

// None is as it was: the product, which stays, tells which is which, and the number in the list,
// which goes on from the gap, does not.
TEST(Diferenca, TodosMudadosENumeradosDeNovo) {
  CKXDadosCM_OrdemCompra antes = Ordem(300);
  CKXDadosCM_OrdemCompra depois = antes;
  depois.DeletarItem(7);
  for (auto* ordem : {&antes, &depois}) {
    std::uint32_t numero = 0;
    for (auto& item : ordem->GetListaItem()) {
      item.SetIDItem(++numero);
      item.SetValorFCP(CY{ordem == &antes ? 10'000 : 20'000});
      item.SetBaseIPI("3,00"_rs);
    }
  }
  const auto linhas = kx::Diferencas(antes, depois);
  std::ptrdiff_t retirados = 0;
  for (const kx::Diferenca& linha : linhas) {
    if (linha.Tipo == kx::TipoDeDiferenca::Mudou) {
      EXPECT_EQ(linha.Caminho.find("Produto"), std::string::npos) << linha;
    } else {
      EXPECT_EQ(linha.Caminho, "ListaItem[7]");
      ++retirados;
    }
  }
  EXPECT_EQ(retirados, 1);
  EXPECT_EQ(linhas.size(), 1U + 299 + 292);
}

TEST(Diferenca, OutrosItensNaoSaoOsMesmos) {
  CKXDadosCM_OrdemCompra antes = Ordem(3);
  CKXDadosCM_OrdemCompra depois;
  for (int i = 0; i < 2; ++i) {
    depois.AdicionaItem({});
    depois.GetPtrItem(i)->SetBaseIPI("9,00"_rs).SetComplemento("outro");
  }
  EXPECT_EQ(Linhas(antes, depois),
            "ListaItem[0]: retirado\nListaItem[1]: retirado\nListaItem[2]: retirado\n"
            "ListaItem[0]: acrescentado\nListaItem[1]: acrescentado\n");
}

TEST(Diferenca, Arvore) {
  CKXDadosCM_ACTreeAutorizacaoCompra antes;
  for (std::uint32_t chave = 1; chave <= 4; ++chave) {
    antes.AdicionaExNodes(CKXDadosCM_ACTreeAutorizacaoCompra({chave, 0}));
  }
  CKXDadosCM_ACTreeAutorizacaoCompra depois = antes;
  depois.DeletarNode(2);
  depois.AchaNode(4)->AdicionaExNodes(CKXDadosCM_ACTreeAutorizacaoCompra({9, 4}));
  EXPECT_EQ(Linhas(antes, depois), "Node[2]: retirado\nNode[4]: acrescentado\n");
}

// Records with nothing in common, and as careless senders fill them.
KX_POR_CLASSE(DiferencaDeRegistros, apoio::ClassesDeRegistro());

TEST_P(DiferencaDeRegistros, ConcordaComAIgualdade) {
  for (unsigned semente = 0; semente < 20; ++semente) {
    apoio::Bytes bytes(semente);
    apoio::Registro esperado(Info());
    apoio::Registro torto(Info(), bytes, esperado);
    const apoio::Registro outro(Info(), semente, true);
    const apoio::Objeto a(Atual(), torto.Bytes());
    const apoio::Objeto b(Atual(), outro.Bytes());
    EXPECT_EQ(a.IgualNasDiferencas(b), b.IgualNasDiferencas(a)) << semente;
  }
}

// What each class has beside its record is told by its name.
KX_POR_CLASSE(DiferencaDeTodas, apoio::Classes());

TEST_P(DiferencaDeTodas, CadaParteTemNome) {
  for (const apoio::Parte& parte : Atual().Partes) {
    const apoio::Objeto antes(Atual());
    const apoio::Objeto depois(Atual());
    parte.Enche(*depois);
    const auto linhas = Atual().Diferencas(*antes, *depois);
    ASSERT_FALSE(linhas.empty()) << parte.Nome;
    const std::string nome = parte.Nome == std::string("rACSmall") ? "Chave" : parte.Nome;
    EXPECT_NE(linhas[0].Caminho.find(nome), std::string::npos) << linhas[0];
  }
}

}  // namespace
