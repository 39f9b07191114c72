#include <algorithm>
#include <regex>

#include "Execucao.h"

namespace {

constexpr const char* kAtacado = "01_atacado_st_ipi_3parcelas.xml";
constexpr const char* kLotes = "02_medicamentos_lotes_servico.xml";
constexpr const char* kSimples = "03_simples_cnpj_alfanumerico.xml";
constexpr const char* kServico = "04_servico_vigilancia_retencoes.xml";

std::string UTF8(const std::string& latin1) {
  std::string utf8;
  for (const char c : latin1) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xC0 | byte >> 6);
      utf8 += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return utf8;
}

struct CasoDeErro {
  const char* Nome;
  std::string Bytes;
  const char* Erro;        // element and reason
  bool Importada = false;  // only a key is wrong
};

std::vector<CasoDeErro> CasosDeErro() {
  const std::string boa = NotaDeExemplo(kAtacado);
  const auto com = [&boa](const char* velho, const char* novo) { return Troca(boa, velho, novo); };
  const std::string fundo = [] {
    std::string aninhado;
    for (int i = 0; i < 200'000; ++i) aninhado += "<a>";
    return aninhado;
  }();
  return {
      {"vazio", "", "XML: arquivo vazio"},
      {"texto", "isto é uma carta\n", "XML: não é XML"},
      {"nulo", boa.substr(0, 900) + std::string(1, '\0') + boa.substr(900), "XML: byte nulo"},
      {"cortado", boa.substr(0, boa.size() / 2), "XML: malformado ou cortado"},
      {"fundo", fundo, "XML: malformado ou cortado"},
      {"outro", "<mdfeProc><MDFe/></mdfeProc>", "mdfeProc: não é nota fiscal nem conhecimento"},
      {"sem_inf", "<NFe/>", "NFe/infNFe: elemento obrigatório ausente"},
      {"sem_itens", std::regex_replace(boa, std::regex("<(/?)det\\b"), "<$1x"),
       "det: elemento obrigatório ausente"},
      {"sem_total", com("<vNF>3296.73</vNF>", ""), "total/ICMSTot/vNF: elemento obrigatório"},
      {"sem_numero", com("<nNF>48213</nNF>", "<nNF/>"), "ide/nNF: elemento obrigatório"},
      {"letras", com("<qCom>240.0000<", "<qCom>24O<"),
       "det[2]/prod/qCom: não é um número: \"24O\""},
      {"virgula", com("<vProd>564.00<", "<vProd>564,00<"), "det[2]/prod/vProd: não é um número"},
      {"entidade", com("<vProd>564.00<", "<vProd>&muito;<"), "det[2]/prod/vProd: não é um número"},
      {"enorme", com("<vNF>3296.73<", "<vNF>922337203685477.5808<"),
       "total/ICMSTot/vNF: valor além do campo monetário"},
      {"volumes", com("<qVol>9<", "<qVol>123456789012345<"),
       "transp/vol/qVol: valor além do campo, que vai até 4294967295"},
      {"pesos",
       com("</vol>",
           "</vol><vol><pesoL>-922337203685477.5808</pesoL></vol>"
           "<vol><pesoL>-999</pesoL></vol>"),
       "transp/vol[3]/pesoL: a soma dos volumes não cabe no campo"},
      {"item", com("nItem=\"2\"", "nItem=\"4294967296\""), "det[2]/@nItem: valor além do campo"},
      {"data", com("<dVenc>2026-05-08<", "<dVenc>2026-02-29<"),
       "cobr/dup[2]/dVenc: data que não existe: \"2026-02-29\""},
      {"emissao", com("<dhEmi>2026-03-09T", "<dhEmi>2026-13-09T"),
       "ide/dhEmi: data que não existe"},
      {"digito", com("651\" versao", "652\" versao"), "infNFe/@Id: ", true},
      {"curta", com("651\" versao", "65\" versao"), "infNFe/@Id: ", true},
      {"minuscula", com("Id=\"NFe3526", "Id=\"NFea526"), "infNFe/@Id: ", true},
  };
}

}  // namespace

TEST_F(FerramentaTeste, ErrosNaoParamOsOutrosArquivos) {
  const std::string boa = Escreve("boa.xml", NotaDeExemplo(kSimples));
  for (const CasoDeErro& caso : CasosDeErro()) {
    SCOPED_TRACE(caso.Nome);
    const std::string ruim = Escreve("ruim.xml", caso.Bytes);
    const Execucao e = Executa({"importa", ruim, boa});
    EXPECT_EQ(e.Status, 1);
    EXPECT_TRUE(Contem(e.Erros, ruim + ": " + caso.Erro)) << e.Erros;
    EXPECT_EQ(std::count(e.Erros.begin(), e.Erros.end(), '\n'), 1) << e.Erros;
    EXPECT_EQ(Contem(e.Saida, ruim + ": nota"), caso.Importada);
    EXPECT_TRUE(Contem(e.Saida, boa + ": nota 315"));
  }
}

TEST_F(FerramentaTeste, ChaveErradaNaoPerdeNadaMais) {
  const std::string nota = NotaDeExemplo(kAtacado);
  const Execucao certa = Executa({"importa", "--campos", "-"}, nota);
  const Execucao errada = Executa({"importa", "--campos", "-"}, Troca(nota, "651\" v", "652\" v"));
  EXPECT_EQ(certa.Status, 0);
  EXPECT_EQ(errada.Status, 1);
  const auto campos = [](const std::string& saida) { return saida.substr(saida.find("campos")); };
  EXPECT_EQ(
      Troca(campos(certa.Saida), "    RegNFe: 35260331842057000161550010000482131407182651\n", ""),
      campos(errada.Saida));
}

TEST_F(FerramentaTeste, ComplementarComReferidasDeCadaTipoETresVeiculos) {
  const std::string referidas =
      "<NFref><refNF><mod>01</mod><serie>7</serie><nNF>31</nNF></refNF></NFref>"
      "<NFref><refNFP><mod>04</mod><nNF>32</nNF></refNFP>"
      "<refECF><mod>2D</mod><nCOO>33</nCOO></refECF><outra/></NFref></ide>";
  const std::string veiculos =
      "<transp><veicTransp><placa>AAA1</placa></veicTransp>"
      "<reboque><placa>BBB2</placa></reboque><reboque><placa>CCC3</placa></reboque>";
  const std::string complementar = Troca(NotaDeExemplo(kAtacado), "<finNFe>1<", "<finNFe>2<");
  const std::string nota = Troca(complementar, "</ide>", referidas);
  const Execucao tres = Executa({"importa", "--campos", "-"}, Troca(nota, "<transp>", veiculos));
  for (const char* linha :
       {"    Referidas 3 de 3", "      NumeroNotaFiscalOrigem: 31",
        "      SerieNotaFiscalOrigem: 7", "      NumeroNotaFiscalOrigem: 32",
        "      NumeroNotaFiscalOrigem: 33", "      ModeloNotaFiscalOrigem: 2D",
        "    PlacaVeiculo1: AAA1", "    PlacaVeiculo2: BBB2", "    PlacaVeiculo3: CCC3",
        "      CFOPNFComplementar: 1", "      NFComplementarQuantidade: 120,00",
        "      NFComplementarValorUnitarioV8: 14,90", "      NFComplementarValorTotal: 1.788,00"}) {
    EXPECT_TRUE(Contem(tres.Saida, std::string("\n") + linha + "\n")) << linha << tres.Saida;
  }
  EXPECT_FALSE(Contem(tres.Saida, "couberam"));
  const Execucao quatro =
      Executa({"importa", "-"}, Troca(nota, "<transp>", veiculos + "<reboque><placa/></reboque>"));
  EXPECT_TRUE(Contem(quatro.Saida, "a nota traz 3 reboques, couberam 2")) << quatro.Saida;
}

TEST_F(FerramentaTeste, PastasELeituraImpossivel) {
  const std::string pasta = (_pasta / "notas").string();
  EXPECT_TRUE(Contem(Executa({"importa", pasta}).Erros, pasta + ": pasta: "));
  Escreve("b.xml", NotaDeExemplo(kAtacado));
  Escreve("a.XML", NotaDeExemplo(kSimples));
  Escreve("c.txt", "outra coisa");
  const Execucao e = Executa({"importa", pasta});
  EXPECT_EQ(e.Status, 0) << e.Erros;
  EXPECT_LT(e.Saida.find("a.XML: nota 315"), e.Saida.find("b.xml: nota 48213"));
  const Execucao ausente = Executa({"importa", pasta + "/d.xml", pasta});
  EXPECT_EQ(ausente.Status, 1);
  EXPECT_TRUE(Contem(ausente.Erros, "d.xml: arquivo: não existe"));
  EXPECT_EQ(ausente.Saida, e.Saida);
}

// All that is shown of invoices, as the demo does, and of each kind of document with every option,
// on every system.
TEST_F(FerramentaTeste, SaidaByteAByte) {
  const std::string exemplos = KX_RAIZ "/examples/notas/";
  const std::string dados = KX_RAIZ "/tests/dados/";
  const struct {
    const char* Esperada;
    std::vector<std::string> Argumentos;
    std::vector<std::string> Documentos;
  } casos[] = {
      {"demo.txt",
       {},
       {exemplos + kAtacado, exemplos + kLotes, exemplos + kSimples, exemplos + kServico}},
      {"opcoes.txt",
       {"--filial", "11", "--fornecedor", "2147483647", "--condicao-pagamento", "30",
        "--transportadora", "9", "--tipo-cobranca", "4", "--comprador", "5"},
       {exemplos + kLotes, dados + "conhecimento.xml", dados + "conhecimento_simplificado.xml"}},
  };
  for (const auto& caso : casos) {
    std::vector<std::string> argumentos{"importa", "--campos"};
    argumentos.insert(argumentos.end(), caso.Argumentos.begin(), caso.Argumentos.end());
    argumentos.push_back("-");
    std::string saida;
    for (const std::string& documento : caso.Documentos) {
      const Execucao e = Executa(argumentos, LeArquivo(documento));
      EXPECT_EQ(e.Status, 0) << e.Erros;
      saida += e.Saida;
    }
    EXPECT_TRUE(saida == LeArquivo(dados + caso.Esperada))
        << caso.Esperada << ": if it is meant to differ, this is the new one:\n"
        << saida;
  }
}

// Names of files and folders in any alphabet, as arguments and in what is written.
TEST_F(FerramentaTeste, NomesAcentuados) {
  const std::string caminho = Escreve("ação nº 1 – 日本.xml", NotaDeExemplo(kAtacado));
  const Execucao arquivo = Executa({"importa", caminho});
  EXPECT_EQ(arquivo.Status, 0) << arquivo.Erros;
  EXPECT_TRUE(arquivo.Saida.starts_with(caminho + ": nota ")) << arquivo.Saida;
  EXPECT_EQ(Executa({"importa", (_pasta / "notas").string()}).Saida, arquivo.Saida);
  EXPECT_EQ(Executa({"importa", caminho + "ã"}).Erros, caminho + "ã: arquivo: não existe\n");
}

// The same invoice in other encodings and wrappings gives the same entry.
TEST_F(FerramentaTeste, FormasDeUmaNota) {
  const std::string latin1 = NotaDeExemplo(kLotes);
  const std::string utf8 = UTF8(Troca(latin1, "ISO-8859-1", "UTF-8"));
  const Execucao base = Executa({"importa", "--campos"}, latin1);
  ASSERT_EQ(base.Status, 0) << base.Erros;
  EXPECT_TRUE(Contem(base.Saida, "emitente   Farmacêutica Três Irmãos Ltda"));

  const std::string corpo = utf8.substr(utf8.find("<NFe"));
  const std::string prefixado =
      std::regex_replace(Troca(corpo, "xmlns=", "xmlns:n="), std::regex("<(/?)(\\w)"), "<$1n:$2");
  for (const std::string& forma :
       {utf8, "\xEF\xBB\xBF" + utf8, Troca(latin1, "ISO-8859-1", "UTF-8"), prefixado,
        "<nfeProc>" + corpo + "</nfeProc>", Troca(latin1, ">L26B020<", "><![CDATA[L26]]>B020<"),
        Troca(Troca(corpo, "4.00", "1.10"), "<dhEmi>2026-03-16T10:15:00-03:00</dhEmi>",
              "<dEmi>2026-03-16</dEmi>")}) {
    EXPECT_EQ(Executa({"importa", "--campos", "-"}, forma).Saida, base.Saida);
  }
  const Execucao lote =
      Executa({"importa", "-"}, "<enviNFe><idLote>1</idLote>" + corpo +
                                    Troca(corpo, "<vNF>", "<vNF>x") + corpo + "</enviNFe>");
  EXPECT_EQ(lote.Status, 1);
  EXPECT_EQ(Ocorrencias(lote.Saida, "nota 9154"), 2U);
  EXPECT_TRUE(Contem(lote.Erros, "(entrada padrão) (nota 2): total/ICMSTot/vNF: "));
}

TEST_F(FerramentaTeste, ContaOQueDifereEOQueNaoCoube) {
  const Execucao e = Executa({"importa", "-"}, NotaDeExemplo(kSimples));
  EXPECT_EQ(e.Status, 0);
  EXPECT_TRUE(Contem(e.Saida, "chave      3526097KQ3M09ZBX4117550020000003151604173926\n"));
  EXPECT_TRUE(std::regex_search(e.Saida,
                                std::regex("vProd +2\\.212,11 ≠ +2\\.222,11  difere em -10,00\n")));
  EXPECT_TRUE(
      Contem(e.Saida, "cortado: EspecieVolume: transp/vol/esp tem 15 caracteres, couberam 9\n"));
  // What stands more than once has one place.
  const std::string muitos = Troca(NotaDeExemplo(kSimples), "</prod>",
                                   "<nItemPed>65536</nItemPed><DI><adi/></DI><DI/></prod>");
  const std::string avisos = Executa({"importa", "-"}, muitos).Saida;
  EXPECT_TRUE(Contem(avisos, "nItemPed: 65536 não cabe em SequenciaItem\n")) << avisos;
  EXPECT_TRUE(Contem(avisos, "a nota traz 2 DI, a primeira com 1 adições\n")) << avisos;
  // A width that is exactly met loses its last character.
  const std::string justa = Troca(NotaDeExemplo(kSimples), "CAIXA DE ISOPOR", "ISOPOR 10L");
  EXPECT_TRUE(Contem(Executa({"importa", "-"}, justa).Saida, "tem 10 caracteres, couberam 9\n"));
  const std::string casas =
      std::regex_replace(NotaDeExemplo(kAtacado), std::regex("<vUnCom>[^<]*"), "<vUnCom>1.234560");
  EXPECT_TRUE(Contem(Executa({"importa", "-"}, casas).Saida, "tem 5 casas decimais, couberam 4"));
  // Without installments there is nothing to hold against the net value.
  const std::string aVista =
      std::regex_replace(NotaDeExemplo(kAtacado), std::regex("<dup>[^]*</dup>"), "");
  EXPECT_FALSE(Contem(Executa({"importa", "-"}, aVista).Saida, "vLiq"));
  // Typographic characters are replaced, others become '?'.
  const std::string aspas =
      Troca(NotaDeExemplo(kAtacado), "Reclamações", "“Avise” – até 10 € … ≥ 日");
  EXPECT_TRUE(Contem(Executa({"importa", "--campos", "-"}, aspas).Saida,
                     "\"Avise\" - até 10 EUR ... >= ? em até 7 dias."));
}

TEST_F(FerramentaTeste, Leiautes) {
  const Execucao um = Executa({"leiaute", "tagREG_ENTRADAPS"});
  EXPECT_EQ(um.Status, 0);
  EXPECT_TRUE(
      std::regex_search(um.Saida, std::regex("\n +1190 +10 +sim +char\\[10\\] +EspecieVolume ")));
  EXPECT_TRUE(Contem(Executa({"leiaute"}).Saida, "tagREG_ENTRADAPS"));
  const Execucao nenhum = Executa({"leiaute", "tagreg_entrada"});
  EXPECT_EQ(nenhum.Status, 1);
  EXPECT_TRUE(Contem(nenhum.Erros, "nomes parecidos: tagREG_ENTRADAPS"));
}

TEST_F(FerramentaTeste, ErrosDeUso) {
  for (const std::vector<std::string>& argumentos : {std::vector<std::string>{},
                                                     {"exporta"},
                                                     {"importa", "--nada", "x.xml"},
                                                     {"importa", "--filial", "65536", "x.xml"},
                                                     {"leiaute", "--tudo", ".", "tagREG_ENTRADAPS"},
                                                     {"leiaute", "--tudo", "./nao-ha"}}) {
    const Execucao e = Executa(argumentos);
    EXPECT_EQ(e.Status, 2);
    EXPECT_TRUE(e.Erros.starts_with("kxdados: uso: ")) << e.Erros;
  }
  EXPECT_TRUE(Contem(Executa({"importa", "--filial", "65536", "x.xml"}).Erros,
                     "não é um número de 0 a 65535: 65536"));
  EXPECT_TRUE(Contem(Executa({"importa", "--help"}).Saida, "--comprador"));
  EXPECT_TRUE(
      std::regex_match(Executa({"--versao"}).Saida, std::regex("kxdados \\d+\\.\\d+\\.\\d+\n")));
}
