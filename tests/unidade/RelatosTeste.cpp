// What cannot be read: what is kept, how often it is reported, and where the report points.
#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <fstream>
#include <string>

#include "oc/DadosOC.h"
#include "re/DadosRE.h"
#include "tests/apoio/Classes.h"
#include "tests/apoio/Paginas.h"
#include "tests/mensagens/KXMensFalsa.h"

namespace {

std::string LinhaDoArquivo(const std::string& arquivo, int numero) {
  std::ifstream entrada(std::string(KX_RAIZ "/") + arquivo);
  std::string linha;
  while (numero-- > 0 && std::getline(entrada, linha)) continue;
  return entrada ? linha : std::string();
}

// Elements at the end of what can be read; those beyond it belong to an array that goes on.
template <class E>
E* NoFim(const apoio::Paginas& paginas, std::size_t inteiros) {
  auto* const array = reinterpret_cast<E*>(paginas.Proibida() - inteiros * sizeof(E) - 8);
  std::memset(static_cast<void*>(array), 0, inteiros * sizeof(E) + 8);
  return array;
}

class Relatos : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(_mensagens.Carregada()); }

  // The only report, of an element of that width, from the line where the class is implemented.
  void EsperaUm(std::size_t largura, const char* fonte, const char* arquivo, const char* classe) {
    ASSERT_EQ(_mensagens.Relatos().size(), 1U);
    const KXMensRelato& relato = _mensagens.Relatos().front();
    EXPECT_EQ(relato.codigo, 987654359);
    EXPECT_EQ(static_cast<std::size_t>(relato.largura), largura);
    EXPECT_EQ(relato.fonte, fonte);
    EXPECT_NE(LinhaDoArquivo(arquivo, relato.linha).find(classe), std::string::npos);
    _mensagens.Estado().Relatos.clear();
  }

  Mensagens _mensagens;
};

TEST_F(Relatos, ItensAteOPrimeiroIlegivelFicamEUmSoSeRelata) {
  const apoio::Paginas paginas(3);
  tagREG_ORDEMPS registro{};
  registro.ListaItem = NoFim<tagREG_ITENS_ORDEMPS>(paginas, 2);
  registro.ListaItem[1].Quantidade = CY{7};
  registro.QtdItem = 4;
  CKXDadosCM_OrdemCompra ordem;
  ordem.CopiarDe(&registro);
  ASSERT_EQ(ordem.GetQuantidadeItem(), 2);
  EXPECT_EQ(ordem.GetItem(1).GetQuantidade(), CY{7});
  EsperaUm(sizeof(tagREG_ITENS_ORDEMPS), "DadosOC", "oc/DadosOC.cpp", "CKXDadosCM_ItemOrdemCompra");

  registro.ListaItem = reinterpret_cast<tagREG_ITENS_ORDEMPS*>(paginas.Proibida());
  registro.QtdItem = 65535;
  EXPECT_EQ(ordem.CopiarDe(&registro).GetQuantidadeItem(), 0);
  EsperaUm(sizeof(tagREG_ITENS_ORDEMPS), "DadosOC", "oc/DadosOC.cpp", "CKXDadosCM_ItemOrdemCompra");
}

// Elements that another record's conversion reads, and those that are no objects.
TEST_F(Relatos, ParcelasEChaves) {
  const apoio::Paginas paginas;
  tagREG_ORDEMPS ordem{};
  ordem.ListaParcela = NoFim<tagREG_FATURA_COMPRAPS>(paginas, 1);
  ordem.QtdParcela = 9;
  CKXDadosCM_OrdemCompra lida;
  EXPECT_EQ(lida.CopiarDe(&ordem).GetCondicaoPagamento().GetNumeroParcelas(), 1);
  EsperaUm(sizeof(tagREG_FATURA_COMPRAPS), "DadosCore", "core/DadosCore.cpp", "CKXDadosCM_Parcela");

  tagREG_ENTRADAPS entrada{};
  entrada.ListaAssociacaoREOC = NoFim<tagREG_ASSOCIACAO_RE_OCPS>(paginas, 2);
  entrada.QtdAssociacaoREOC = 3;
  CKXDadosCM_RERegistroEntrada entradaLida;
  EXPECT_EQ(entradaLida.CopiarDe(&entrada).GetQuantidadeAssociacaoREOC(), 2);
  EsperaUm(sizeof(tagREG_ASSOCIACAO_RE_OCPS), "DadosRE", "re/DadosRE.cpp",
           "CKXDadosCM_RERegistroEntrada");
}

TEST_F(Relatos, TextoLongoApontaALinhaDoCampo) {
  CKXDadosCM_OrdemCompra ordem;
  ordem.SetMoeda(std::string(40, 'x').c_str());
  ASSERT_EQ(_mensagens.Relatos().size(), 1U);
  const KXMensRelato& relato = _mensagens.Relatos().front();
  EXPECT_EQ(relato.fonte, "DadosOC");
  EXPECT_NE(LinhaDoArquivo("oc/tagREG_ORDEMPS.def", relato.linha).find(" Moeda,"),
            std::string::npos);
}

TEST(Posicoes, SaoAsDaImplementacao) {
  for (const apoio::Classe& classe : apoio::ClassesDeRegistro()) {
    const std::string fonte = classe.Posicao->Fonte;
    std::string sala = fonte == "DadosCore" ? "core" : fonte.substr(5);
    for (char& letra : sala) letra = static_cast<char>(std::tolower(letra));
    const std::string linha = LinhaDoArquivo(sala + "/" + fonte + ".cpp", classe.Posicao->Linha);
    EXPECT_NE(linha.find("(" + std::string(classe.Nome) + ","), std::string::npos) << linha;
  }
}

// What a caller's own class adds is cleared with the rest.
TEST(Leitura, LimpaOQueADerivadaAcrescenta) {
  struct Minha : CKXDadosCM_OrdemCompra {
    int Limpezas = 0;
    void OnLimpar() override {
      ++Limpezas;
      CKXDadosCM_OrdemCompra::OnLimpar();
    }
  } minha;
  tagREG_ORDEMPS registro{};
  registro.ValorFrete = CY{5};
  minha.AdicionaItem({});
  minha.CopiarDe(&registro);
  EXPECT_EQ(minha.Limpezas, 1);
  EXPECT_EQ(minha.GetQuantidadeItem(), 0);
  EXPECT_EQ(minha.GetValorFrete(), CY{5});
  minha.CopiarDe(nullptr);
  EXPECT_EQ(minha.Limpezas, 2);
  EXPECT_TRUE(minha.EstaVazio());
}

}  // namespace
