// The debugger's printers, in a real debugger: what it prints for the values of Alvo.cpp.
#include <gtest/gtest.h>
#include <stdio.h>

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using Expressoes = std::vector<std::string>;
using Mostrado = std::map<std::string, std::string>;

std::string Cita(const std::string& argumento) { return " '" + argumento + "'"; }

// Everything that a command writes, errors included.
std::string SaidaDe(const std::string& comando) {
  FILE* const tubo = popen((comando + " 2>&1").c_str(), "r");
  if (tubo == nullptr) throw std::runtime_error("popen");
  std::string saida;
  std::array<char, 4096> pedaco{};
  while (const std::size_t lidos = fread(pedaco.data(), 1, pedaco.size(), tubo)) {
    saida.append(pedaco.data(), lidos);
  }
  pclose(tubo);
  return saida;
}

// Stops the program in Parada and prints each expression as its main function sees it.
Mostrado Mostra(const std::string& comeco, const Expressoes& expressoes) {
  std::string comando = "LC_ALL=C.UTF-8 gdb -nx -batch -ex 'set width 0'" + comeco +
                        " -ex 'break Parada' -ex run -ex up";
  for (const std::string& expressao : expressoes) {
    comando += " -ex" + Cita("echo \\n@") + " -ex" + Cita("output " + expressao);
  }
  const std::string saida = SaidaDe(comando + Cita(KX_ALVO));
  EXPECT_EQ(saida.find("Python"), std::string::npos) << saida;

  Mostrado mostrado;
  std::size_t inicio = saida.find("\n@");
  for (const std::string& expressao : expressoes) {
    if (inicio == std::string::npos) throw std::runtime_error("gdb: " + saida);
    const std::size_t fim = saida.find("\n@", inicio + 2);
    mostrado[expressao] =
        saida.substr(inicio + 2, fim == std::string::npos ? fim : fim - inicio - 2);
    inicio = fim;
  }
  return mostrado;
}

void Confere(const std::string& comeco, const Mostrado& esperado) {
  Expressoes expressoes;
  for (const auto& [expressao, texto] : esperado) expressoes.push_back(expressao);
  const Mostrado mostrado = Mostra(comeco, expressoes);
  for (const auto& [expressao, texto] : esperado) EXPECT_EQ(mostrado.at(expressao), texto);
}

const std::string kImpressoras = " -ex" + Cita("source " KX_IMPRESSORAS);

TEST(Depurador, MostraValores) {
  Confere(kImpressoras, {
                            {"dinheiro", "1.234,5678"},
                            {"negativo", "-0,0001"},
                            {"data", "28/02/2026"},
                            {"semData", "(vazia)"},
                            {"hora", "09:05:07"},
                            {"momento", "28/02/2026 09:05:07 UTC"},
                            {"documento", "28/02/2026 n. 12"},
                            {"longa", "{Data = 28/02/2026}"},
                            {"chave", "35260212ABC34501DE35550010000012341000056786"},
                            {"chaveErrada", "(invalida: 0x1, 0x2, 0x3)"},
                            {"texto", "\"José \\\"da\\\" Silva\""},
                            {"comprido", "\"abcdefghijklmnopqrstuvwxyz\""},
                            {"contado", "\"abc\""},
                        });
}

TEST(Depurador, MostraColecoes) {
  Confere(kImpressoras, {
                            {"textos", "CKXVector de 2 = {\"a\", \"b\"}"},
                            {"vazio", "CKXVector de 0"},
                            {"array", "CArray de 1 = {7}"},
                            {"lista", "CList de 2 = {1,00, 2,50}"},
                        });
}

TEST(Depurador, MostraRegistrosEObjetos) {
  const std::string vazios = "set print vazios on";
  Confere(kImpressoras,
          {
              {"registro",
               "{ObservacaoGeral = \"São José\", PonteiroFilial = 3, QtdProduto = 2, "
               "NumeroNotaFiscal = \"Não\", "
               "ListaProduto = {{ValorTotal = 1.234,5678}, {ValorTotal = -0,50}}}"},
              {"entrada._Reg", "{PonteiroFilial = 3, NumeroNotaFiscal = \"Não\"}"},
              {"entrada._CondicaoPagamento",
               "{_CRC = 0, LinhaArquivoImportacao = 0, _PonteiroTipoPeriodo = 0, "
               "_DataPrimeiroVencimento = (vazia), _PonteiroTipoCobranca = 0, "
               "_PonteiroCondicaoPagamento = 0, _ListaParcela = CKXVector de 0, "
               "_ListaTituloImposto = CKXVector de 0}"},
              {"arvore",
               "{_CRC = 0, LinhaArquivoImportacao = 0, _rACSmall = {ChaveEste = 1}, _hTI = 0x0, "
               "_ListaAC = CKXVector de 0, _ExNodes = CList de 1 = {"
               "{_CRC = 0, LinhaArquivoImportacao = 0, _rACSmall = {ChaveEste = 2, "
               "ChaveNivelAnterior = 1}, _hTI = 0x0, _ListaAC = CKXVector de 0, "
               "_ExNodes = CList de 0}}}"},
          });
  const std::string comVazios =
      Mostra(kImpressoras + " -ex" + Cita(vazios), {"registro"}).at("registro");
  EXPECT_NE(comVazios.find("RegNFe = (vazia), "), std::string::npos) << comVazios;
  EXPECT_EQ(comVazios.find("Reserva"), std::string::npos) << comVazios;
  EXPECT_EQ(comVazios.find("QtdServico"), std::string::npos) << comVazios;
}

TEST(Depurador, DadosEstragadosNaoOAtrapalham) {
  Confere(kImpressoras,
          {
              {"exagerado", "\"abc\""},
              {"quebrado",
               "{ObservacaoGeral = (ilegivel), Reserva_48 = 00 00 01 00 00 00 00 00, "
               "QtdProduto = 9, QtdServico = 9, ListaProduto = 0x10, ListaServico = 0x0}"},
              {"listaLixo", "(ilegivel)"},
              {"arvoreZerada._rACSmall", "(vazia)"},
              {"*nulo", "Cannot access memory at address 0x0\n"},
          });
  const Mostrado lixo = Mostra(kImpressoras, {"objetoLixo", "objetoLixo._ObservacaoGeral"});
  EXPECT_EQ(lixo.at("objetoLixo._ObservacaoGeral"), "(ilegivel)");
  EXPECT_NE(lixo.at("objetoLixo").find("PonteiroFilial = 42405"), std::string::npos);
}

TEST(Depurador, InstaladoCarregaSozinho) {
  const std::string pasta = KX_INSTALADO;
  if (pasta.empty()) GTEST_SKIP() << "no shared library is installed";
  SaidaDe(KX_INSTALA " --component biblioteca");
  SaidaDe(KX_INSTALA " --component desenvolvimento");
  const std::string comeco =
      " -iex" + Cita("add-auto-load-scripts-directory " + pasta + "/share/gdb/auto-load") +
      " -iex" + Cita("add-auto-load-safe-path " + pasta) + " -ex" +
      Cita("set env LD_LIBRARY_PATH " + pasta + "/" + KX_LIBDIR);
  Confere(comeco, {{"dinheiro", "1.234,5678"}, {"textos", "CKXVector de 2 = {\"a\", \"b\"}"}});
}

}  // namespace
