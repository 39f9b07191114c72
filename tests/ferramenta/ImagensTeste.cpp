// The commands `mostra` and `compara`, on images as programs write them.
#include "Execucao.h"
#include "core/Imagem.h"
#include "oc/DadosOC.h"

namespace {

using ImagensTeste = FerramentaTeste;
using namespace kx::literais;

CKXDadosCM_OrdemCompra Ordem() {
  CKXDadosCM_OrdemCompra ordem;
  ordem.SetCodigo("AB\xC7").SetRegDataEmissao({23, 11, 2026}).SetValorFrete("1.234,5"_rs);
  ordem.AdicionaItem(CKXDadosCM_ItemOrdemCompra().SetPonteiroProdutoServico(7));
  return ordem;
}

std::string Bytes(const CKXDadosCM_OrdemCompra& ordem) {
  const auto imagem = kx::Imagem(ordem);
  return {reinterpret_cast<const char*>(imagem.data()), imagem.size()};
}

TEST_F(ImagensTeste, MostraTextoEJson) {
  const std::string arquivo = Escreve("ordem.kximagem", Bytes(Ordem()));
  const Execucao texto = Executa({"mostra", arquivo});
  EXPECT_EQ(texto.Status, 0) << texto.Erros;
  EXPECT_TRUE(texto.Saida.starts_with("tagREG_ORDEMPS\n")) << texto.Saida;
  EXPECT_TRUE(Contem(texto.Saida, "ValorFrete: 1.234,50\n")) << texto.Saida;
  EXPECT_EQ(Executa({"mostra", "--json"}, Bytes(Ordem())).Saida,
            "{\"_registro\":\"tagREG_ORDEMPS\",\"RegDataEmissao\":\"2026-11-23\","
            "\"ValorFrete\":\"1234.50\",\"Codigo\":\"AB\xC3\x87\","
            "\"ListaItem\":[{\"PosicaoProduto\":{\"PonteiroProduto\":7,\"PonteiroItemGrade1\":0,"
            "\"PonteiroItemGrade2\":0,\"PonteiroItemGrade3\":0}}]}\n");
}

TEST_F(ImagensTeste, ImagemRuimEDitaEAsOutrasSaoMostradas) {
  std::string ruim = Bytes(Ordem());
  ruim.back() = 1;
  const Execucao execucao = Executa({"mostra", "--json"}, Bytes(Ordem()) + ruim + Bytes(Ordem()));
  EXPECT_EQ(execucao.Status, 1);
  EXPECT_EQ(Ocorrencias(execucao.Saida, "tagREG_ORDEMPS"), 2U);
  EXPECT_EQ(
      execucao.Erros,
      "(entrada padr\xC3\xA3o): imagem: Imagem inv\xC3\xA1lida, byte 12: o checksum n\xC3\xA3o "
      "confere.\n");
  for (const std::string& nada :
       {std::string(), std::string("<nfe/>"), Bytes(Ordem()).substr(0, 99)}) {
    const Execucao outra = Executa({"mostra"}, nada);
    EXPECT_EQ(outra.Status, 1);
    EXPECT_EQ(outra.Saida, "");
    EXPECT_EQ(Ocorrencias(outra.Erros, "\n"), 1U) << outra.Erros;
  }
}

TEST_F(ImagensTeste, Compara) {
  CKXDadosCM_OrdemCompra outra = Ordem();
  outra.GetPtrItem(0)->SetValorIPI("2,00"_rs);
  const std::string a = Escreve("a", Bytes(Ordem()));
  const std::string b = Escreve("b", Bytes(outra));
  const Execucao mudou = Executa({"compara", a, b});
  EXPECT_EQ(mudou.Status, 1) << mudou.Erros;
  EXPECT_EQ(mudou.Saida, "ListaItem[0].ValorIPI: 0,00 -> 2,00\n");
  EXPECT_EQ(Executa({"compara", "--json", a, "-"}, Bytes(outra)).Saida,
            "{\"caminho\":\"ListaItem[0].ValorIPI\",\"tipo\":\"mudou\",\"antes\":\"0,00\","
            "\"depois\":\"2,00\",\"comparado\":true}\n");
  EXPECT_EQ(Executa({"compara", a, a}).Status, 0);
  EXPECT_EQ(Executa({"compara", a, Escreve("c", "xx")}).Status, 2);
  EXPECT_EQ(Executa({"compara", a}).Status, 2);
}

}  // namespace
