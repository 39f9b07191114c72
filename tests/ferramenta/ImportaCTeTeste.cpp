// Freight bills through the tool: which field each element reaches, the wrappings, the errors.
#include <algorithm>
#include <chrono>
#include <regex>

#include "Execucao.h"

namespace {

const std::string kNormal = LeArquivo(KX_RAIZ "/tests/dados/conhecimento.xml");
const std::string kSimplificado = LeArquivo(KX_RAIZ "/tests/dados/conhecimento_simplificado.xml");

}  // namespace

TEST_F(FerramentaTeste, ConhecimentoDeOutrosServicos) {
  std::string servico = Troca(kNormal, "<CTe>", "<CTeOS>");
  servico = Troca(servico, "</CTe>", "</CTeOS>");
  servico = Troca(servico, "41260311222333000181570010000042171000042173",
                  "41260311222333000181670010000042171000042176");
  servico = Troca(servico, "<mod>57<", "<mod>67<");
  servico = Troca(servico, "</ICMSUFFim>",
                  "</ICMSUFFim><infTribFed><vPIS>1.00</vPIS><vCOFINS>2.00</vCOFINS><vIR>3.00</vIR>"
                  "<vINSS>4.00</vINSS><vCSLL>5.00</vCSLL></infTribFed>");
  servico = Troca(servico, "</infDoc>",
                  "</infDoc><infModal versaoModal=\"4.00\"><rodoOS><veic><placa>ABC1D23</placa>"
                  "<UF>SC</UF></veic></rodoOS></infModal>");
  const Execucao e = Executa({"importa", "--campos", "-"}, servico);
  EXPECT_EQ(e.Status, 0) << e.Erros;
  for (const char* linha : {"ValorTotalCTe: 350,00", "ValorPISCTe: 1,00", "ValorCOFINSCTe: 2,00",
                            "ValorIRRFPJCTe: 3,00", "ValorINSSCTe: 4,00", "ValorCSLLCTe: 5,00",
                            "PlacaVeiculo1: ABC1D23", "Estado1: SC"}) {
    EXPECT_TRUE(Contem(e.Saida, std::string("\n    ") + linha + "\n")) << linha << '\n' << e.Saida;
  }
}

TEST_F(FerramentaTeste, ParcelaSoComOVencimento) {
  const std::string semNumero = Troca(kNormal, "<nDup>001</nDup>", "");
  const Execucao e = Executa({"importa", "-"}, Troca(semNumero, "<vDup>340.00</vDup>", ""));
  EXPECT_EQ(e.Status, 0) << e.Erros;
  EXPECT_TRUE(Contem(e.Saida, "3 notas transportadas, 1 parcela\n"));
}

TEST_F(FerramentaTeste, ErrosDoConhecimento) {
  struct {
    const char* Velho;
    const char* Novo;
    const char* Erro;
  } const casos[] = {
      {"<xNome>Expresso Araucária Ltda<", "<xNome><", "emit/xNome: elemento obrigatório ausente"},
      {"<nCT>4217</nCT>", "", "ide/nCT: elemento obrigatório ausente"},
      {"<vTPrest>350.00<", "<vTPrest><", "vPrest/vTPrest: elemento obrigatório ausente"},
      {"<vBC>350.00<", "<vBC>350,00<", "imp/ICMS/ICMS00/vBC: não é um número: \"350,00\""},
      {"<pICMS>12.00<", "<pICMS>700.00<", "imp/ICMS/ICMS00/pICMS: valor além do campo"},
      {"<vProd>900.00<", "<vProd>x<", "infCTeNorm/infDoc/infNF/vProd: não é um número"},
      {"<dVenc>2026-04-08<", "<dVenc>2026-04-31<",
       "infCTeNorm/cobr/dup/dVenc: data que não existe"},
      {"<chave>3", "<chave>4", "infCTeNorm/infDoc/infNFe/chave: O dígito verificador"},
      {"Id=\"CTe4", "Id=\"CTe5", "infCte/@Id: O dígito verificador"},
  };
  for (const auto& caso : casos) {
    const Execucao e = Executa({"importa", "-"}, Troca(kNormal, caso.Velho, caso.Novo));
    EXPECT_EQ(e.Status, 1);
    EXPECT_TRUE(Contem(e.Erros, std::string("(entrada padrão): ") + caso.Erro)) << e.Erros;
    EXPECT_EQ(std::count(e.Erros.begin(), e.Erros.end(), '\n'), 1) << e.Erros;
  }
}

// Twice the keys take about twice as long, and not four times.
TEST_F(FerramentaTeste, ChavesErradasAosMilharesCustamUmaUmaSo) {
  const std::string boa =
      "<infNFe><chave>35260344555666000172550020000091541000091545</chave></infNFe>";
  const auto segundos = [&](std::size_t quantas) {
    std::string notas;
    for (std::size_t i = 0; i < quantas; ++i) notas += Troca(boa, "3526", "3527");
    const std::string arquivo = Escreve("chaves.xml", Troca(kNormal, boa, notas));
    const auto inicio = std::chrono::steady_clock::now();
    const Execucao e = Executa({"importa", arquivo});
    const std::chrono::duration<double> tempo = std::chrono::steady_clock::now() - inicio;
    EXPECT_TRUE(Contem(e.Erros, "/infNFe[" + std::to_string(quantas) + "]/chave: ")) << e.Status;
    return tempo.count();
  };
  segundos(1000);
  EXPECT_LT(segundos(64000), 16 * segundos(16000));
}

TEST_F(FerramentaTeste, LoteDeConhecimentosENotas) {
  const std::string nota = NotaDeExemplo("03_simples_cnpj_alfanumerico.xml");
  const std::string lote = "<enviCTe><idLote>1</idLote>" + kNormal + kSimplificado +
                           Troca(kNormal, "<vTPrest>", "<vTPrest>x") + "</enviCTe>";
  const Execucao e = Executa({"importa", Escreve("lote.xml", lote), Escreve("nota.xml", nota)});
  EXPECT_EQ(e.Status, 1);
  EXPECT_TRUE(Contem(e.Saida, "lote.xml (conhecimento 1): conhecimento 4217"));
  EXPECT_TRUE(Contem(e.Saida, "lote.xml (conhecimento 2): conhecimento 4217"));
  EXPECT_TRUE(Contem(e.Erros, "lote.xml (conhecimento 3): vPrest/vTPrest: não é um número"));
  EXPECT_TRUE(Contem(e.Saida, "nota.xml: nota 315"));
}
