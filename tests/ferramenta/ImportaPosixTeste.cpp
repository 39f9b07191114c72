// Files that never end, of which only some systems have one.
#include <cstdlib>
#include <filesystem>
#include <string>

#include "Execucao.h"

namespace {

namespace fs = std::filesystem;

TEST_F(FerramentaTeste, OQueNaoAcabaEErroDeleEOsDemaisSeguem) {
  const std::string boa = Escreve("a.xml", NotaDeExemplo("01_atacado_st_ipi_3parcelas.xml"));
  const fs::path pasta = fs::path(boa).parent_path();
  fs::create_symlink("/dev/zero", pasta / "zero.xml");
  const Execucao daPasta = Executa({"importa", pasta.string()});
  EXPECT_EQ(daPasta.Status, 1);
  EXPECT_NE(daPasta.Erros.find("zero.xml: arquivo: não é um arquivo comum"), std::string::npos)
      << daPasta.Erros;
  EXPECT_EQ(Ocorrencias(daPasta.Saida, "ida e volta: igual"), 1U);

  const Execucao pedido = Executa({"importa", "--maximo", "1", "/dev/zero", boa});
  EXPECT_EQ(pedido.Status, 1);
  EXPECT_EQ(pedido.Erros, "/dev/zero: arquivo: tem mais de 1 MiB (--maximo admite mais)\n");
  EXPECT_EQ(Ocorrencias(pedido.Saida, "ida e volta: igual"), 1U);
  const std::string grande =
      NotaDeExemplo("01_atacado_st_ipi_3parcelas.xml") + std::string(1 << 20, ' ');
  EXPECT_EQ(Executa({"importa", "--maximo", "1", Escreve("b.xml", grande)}).Status, 1);
  EXPECT_EQ(Executa({"importa", "--maximo", "2", Escreve("b.xml", grande)}).Status, 0);
}

TEST_F(FerramentaTeste, SaidaQueNaoSeGravaEErro) {
  const std::string erros = Escreve("erros", "");
  const std::string comando = "'" KXDADOS_BIN "' leiaute >/dev/full 2>'" + erros + "'";
  EXPECT_EQ(WEXITSTATUS(std::system(comando.c_str())), 1);
  EXPECT_EQ(LeArquivo(erros), "kxdados: a saída não pôde ser gravada\n");
}

}  // namespace
