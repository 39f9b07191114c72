// Records as JSON, and back.
#include <nlohmann/json.hpp>

#include "Falha.h"
#include "Json.h"
#include "JsonLido.h"
#include "core/Imagem.h"
#include "oc/DadosOC.h"
#include "tests/apoio/PorClasse.h"

namespace {

using kxdados::JsonDeRegistro;
using kxdados::RegistroDeJson;

std::vector<std::byte> Imagem(const KXRegistroInfo& info, const void* registro) {
  const kx::LeiauteDeImagem leiaute(info);
  std::vector<std::byte> bytes(kx::TamanhoDaImagem(leiaute, registro));
  kx::EscreveImagem(leiaute, registro, bytes);
  return bytes;
}

// Whatever a field holds, at its ends and in the middle, stands in the text in some form.
KX_POR_CLASSE(JsonDeTodas, apoio::ClassesDeRegistro());

TEST_P(JsonDeTodas, NenhumByteSePerde) {
  const apoio::Registro aleatorio(Info(), 3);
  std::vector<unsigned char> registro(aleatorio.Bytes(), aleatorio.Bytes() + Info().Tamanho);
  const auto texto = [&] { return kxdados::JsonDeRegistro(Info(), registro.data()); };
  const std::string antes = texto();
  for (const KXCampo& campo : Info().Campos) {
    if (campo.Papel > KXPapel::Reserva) continue;
    for (const int i : {0, campo.Largura / 2, campo.Largura - 1}) {
      unsigned char& byte = registro[campo.Posicao + static_cast<std::size_t>(i)];
      byte ^= 1;
      EXPECT_NE(texto(), antes) << campo.Nome << " + " << i;
      byte ^= 1;
    }
  }
}

// The keys of the second are in the order of their names, as databases give them back.
TEST_P(JsonDeTodas, VoltamIguaisByteAByte) {
  for (unsigned semente = 0; semente < 8; ++semente) {
    const apoio::Registro original(Info(), semente, true);
    const auto imagem = Imagem(Info(), original.Bytes());
    const std::string linha = JsonDeRegistro(Info(), original.Bytes());
    for (const std::string& texto : {linha, nlohmann::json::parse(linha).dump(1)}) {
      const kxdados::RegistroLido lido = RegistroDeJson(texto);
      ASSERT_STREQ(lido.Info().Nome, Info().Nome);
      ASSERT_EQ(Imagem(Info(), lido.Registro()), imagem) << texto;
    }
  }
}

const tagREG_ORDEMPS& Ordem(const kxdados::RegistroLido& lido) {
  return *static_cast<const tagREG_ORDEMPS*>(lido.Registro());
}

std::string LinhaDe(const std::string& membros) {
  return R"({"_registro":"tagREG_ORDEMPS",)" + membros + "}";
}

TEST(JsonLidoTeste, AceitaOQueSeEscreveAMao) {
  const kxdados::RegistroLido lido = RegistroDeJson(LinhaDe(
      R"("Codigo":"S\u00e3o","ValorFrete":"-7","ValorSeguro":"+.5","Moeda":"hex:5200000000000000)"
      R"(00000000000000000000","RegDataUltimaAlteracao":"2026-01-01T00:30:00+01:00","Situacao":255,)"
      R"("QuemGerou":{"Contador":4294967295,"Data":"2024-02-29"},"ListaItem":[],"ListaParcela":[{}])"));
  EXPECT_STREQ(Ordem(lido).Codigo, "S\xE3o");
  EXPECT_EQ(Ordem(lido).ValorFrete.int64, -70'000);
  EXPECT_EQ(Ordem(lido).ValorSeguro.int64, 5'000);
  EXPECT_STREQ(Ordem(lido).Moeda, "R");
  EXPECT_EQ(Ordem(lido).RegDataUltimaAlteracao, (REG_KXDMAHMSUTC{{31, 12, 2025}, {23, 30, 0, 0}}));
  EXPECT_EQ(Ordem(lido).QuemGerou, (REG_KXDMC{{29, 2, 2024}, 4'294'967'295}));
  EXPECT_EQ(Ordem(lido).ListaItem, nullptr);
  EXPECT_EQ(Ordem(lido).QtdParcela, 1);
}

// Of each refusal: the line, the path, and a word of what is said.
struct Recusa {
  std::string Linha;
  std::string Caminho;
  std::string Motivo;
};

void ExigeRecusa(const Recusa& recusa) {
  SCOPED_TRACE(recusa.Linha.substr(0, 200));
  try {
    RegistroDeJson(recusa.Linha);
    ADD_FAILURE() << "aceita";
  } catch (const kxdados::Falha& falha) {
    EXPECT_EQ(falha.Elemento(), recusa.Caminho);
    EXPECT_TRUE(std::string_view(falha.what()).find(recusa.Motivo) != std::string::npos)
        << falha.what();
    EXPECT_EQ(std::string_view(falha.what()).find('\n'), std::string::npos);
  }
}

TEST(JsonLidoTeste, RecusaALinha) {
  const std::string fundo(1'000'000, '[');
  for (const Recusa& recusa : std::vector<Recusa>{
           {"", "linha", "byte 1"},
           {"7", "linha", "objeto"},
           {"[{}]", "linha", "objeto"},
           {fundo, "linha", "objeto"},
           {"{}", "_registro", "falta"},
           {R"({"_registro":7})", "_registro", "nome"},
           {R"({"_registro":"tagREG\n"})", "_registro", "\"tagREG?\""},
           {R"({"QuemGerou":{"_registro":"tagREG_ORDEMPS"}})", "_registro", "falta"},
           {LinhaDe(R"("_registro":"tagREG_ORDEMPS")"), "_registro", "repetido"},
           {LinhaDe(R"("Codigo":"a")") + "{}", "linha", "byte 44"},
           {LinhaDe(R"("Codigo":"a")") + std::string("\0{}", 3), "linha", "byte 44"},
           {LinhaDe("\"Codigo\":\"\xE7\""), "linha", "byte"},
           {LinhaDe(R"("ValorFrete":1e999)"), "linha", "byte"},
       }) {
    ExigeRecusa(recusa);
  }
}

TEST(JsonLidoTeste, RecusaOMembro) {
  const std::string fundo(1'000'000, '[');
  const std::string muitos = R"("ListaItem":[{})" + [] {
    std::string elementos;
    for (int i = 0; i < 65'535; ++i) elementos += ",{}";
    return elementos;
  }() + "]";
  for (const Recusa& recusa : std::vector<Recusa>{
           {R"("Nada":1)", "Nada", "existe"},
           {R"("":1)", "\"\"", "existe"},
           {R"("QtdItem":1)", "QtdItem", "existe"},
           {R"("Codigo":"a","Codigo":"a")", "Codigo", "repetido"},
           {R"("ValorFrete":1234.5)", "ValorFrete", "aspas"},
           {R"("ValorFrete":null)", "ValorFrete", "aspas"},
           {R"("ValorFrete":"1.00000")", "ValorFrete", "quatro casas"},
           {R"("ValorFrete":"922337203685477.5808")", "ValorFrete", "faixa"},
           {R"("ValorFrete":" 1")", "ValorFrete", "aspas"},
           {R"("Situacao":256)", "Situacao", "de 0 a 255"},
           {R"("Situacao":-1)", "Situacao", "de 0 a 255"},
           {R"("Situacao":1.0)", "Situacao", "inteiro"},
           {R"("PonteiroFornecedor":2147483648)", "PonteiroFornecedor", "faixa"},
           {R"("PonteiroFornecedor":99999999999999999999)", "PonteiroFornecedor", "caiba"},
           {R"("PonteiroFornecedor":"7")", "PonteiroFornecedor", "inteiro"},
           {R"("RegDataEmissao":"2026-02-29")", "RegDataEmissao", "AAAA-MM-DD"},
           {R"("RegDataEmissao":"2026-02-28T10:00:00Z")", "RegDataEmissao", "AAAA-MM-DD"},
           {R"("RegDataUltimaAlteracao":"2026-02-28T10:00:00.5Z")", "RegDataUltimaAlteracao", "ss"},
           {R"("Moeda":"123456789012345678")", "Moeda", "18 caracteres, e no campo cabem 17"},
           {R"("Codigo":"a\u20acb")", "Codigo", "\"\xE2\x82\xAC\""},
           {R"("Codigo":"a\u0000")", "Codigo", "zero"},
           {R"("Moeda":"hex:00")", "Moeda", "36 algarismos"},
           {R"("PonteiroFornecedor":"hex:0000000g")", "PonteiroFornecedor", "0g"},
           {R"("QuemGerou":{"Contador":-1})", "QuemGerou.Contador", "faixa"},
           {R"("QuemGerou":{"Outro":1})", "QuemGerou.Outro", "existe"},
           {R"("QuemGerou":7)", "QuemGerou", "objeto"},
           {R"("Codigo":{})", "Codigo", "texto"},
           {R"("Codigo":)" + fundo, "Codigo", "texto"},
           {R"("ListaItem":{})", "ListaItem", "lista"},
           {R"("ListaItem":[{},7])", "ListaItem[1]", "objeto"},
           {R"("ListaItem":[{},{"ListaRateio":[{},{},{"x":1}]}])", "ListaItem[1].ListaRateio[2].x",
            "existe"},
           {R"("ListaItem":)" + fundo, "ListaItem[0]", "objeto"},
           {muitos, "ListaItem[65535]", "65.535"},
       }) {
    ExigeRecusa({LinhaDe(recusa.Linha), recusa.Caminho, recusa.Motivo});
  }
  ExigeRecusa({R"({"_registro":"tagREG_ENTRADAPS","NSU":"18446744073709551616"})", "NSU", "faixa"});
  const std::string conta = R"({"_registro":"tagREG_CM_LE_LISTA_AC_CMSAUTPS",)";
  ExigeRecusa({conta + R"("ListaAC":[{}],"QtdAC":65535})", "QtdAC", "elementos"});
  ExigeRecusa({conta + R"("QtdAC":"hex:02000000","ListaAC":[{}]})", "QtdAC", "elementos"});
  EXPECT_NO_THROW(RegistroDeJson(conta + R"("QtdAC":1,"ListaAC":[{}]})"));
  ExigeRecusa({conta + R"("QtdAC":1})", "QtdAC", "elementos"});
  ExigeRecusa({R"({"_registro":"tagREG_ENTRADAPS","NSU":1})", "NSU", "aspas"});
  ExigeRecusa({R"({"_registro":"tagREG_ENTRADAPS","RegNFe":"1"})", "RegNFe", "44"});
}

}  // namespace
