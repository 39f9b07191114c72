// Fixed-width texts and guarded blocks: what both report through the message library. What is
// copied and read, fuzz/Textos.cpp tries.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <filesystem>
#include <string>

#include "core/Bloco.h"
#include "core/Mensagem.h"
#include "core/TextoFixo.h"
#include "tests/mensagens/KXMensFalsa.h"

namespace {

class ComMensagens : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(_mensagens.Carregada()); }

  // The only report so far, for an unreadable or over-long text or block.
  void EsperaRelato(std::int32_t codigo, std::int32_t largura, std::int32_t tamanho) const {
    ASSERT_EQ(_mensagens.Relatos().size(), 1U);
    const KXMensRelato& relato = _mensagens.Relatos().front();
    EXPECT_EQ(relato.codigo, codigo);
    EXPECT_EQ(relato.largura, largura);
    EXPECT_EQ(relato.tamanho, tamanho);
    EXPECT_EQ(relato.texto, "-1");
    EXPECT_EQ(relato.fonte, "Fonte");
    EXPECT_EQ(relato.linha, 77);
    EXPECT_TRUE(relato.sinal);
    EXPECT_TRUE(relato.ponteirosNulos);
    EXPECT_TRUE(std::filesystem::path(relato.modulo).is_absolute()) << relato.modulo;
  }

  Mensagens _mensagens;
};

using TextoFixo = ComMensagens;
using Bloco = ComMensagens;

char* const kIlegivel = reinterpret_cast<char*>(16);

// A field of 8 bytes full of garbage, between two bytes that are not its own.
struct Campo {
  Campo() { std::memset(this, '#', sizeof(*this)); }
  void Copia(const char* texto, int tamanho) {
    kx::CopiaTextoFixo(Bytes, sizeof(Bytes), texto, tamanho, "Fonte", 77);
  }
  // True when the field is the text and then zeros, and its neighbours are untouched.
  bool Contem(const char* texto) const {
    char esperado[sizeof(Bytes)] = {};
    std::memcpy(esperado, texto, std::strlen(texto));
    return std::memcmp(Bytes, esperado, sizeof(Bytes)) == 0 && Antes == '#' && Depois == '#';
  }
  char Antes;
  char Bytes[8];
  char Depois;
};

TEST_F(TextoFixo, DaLarguraPerdeOUltimoSemRelato) {
  Campo campo;
  campo.Copia(nullptr, 0);
  EXPECT_TRUE(campo.Contem(""));
  campo.Copia("12345678", 8);
  EXPECT_TRUE(campo.Contem("1234567"));
  EXPECT_TRUE(_mensagens.Relatos().empty());
}

TEST_F(TextoFixo, MaisLongoQueALarguraECortadoERelatado) {
  Campo campo;
  campo.Copia("123456789", 9);
  EXPECT_TRUE(campo.Contem("1234567"));
  EsperaRelato(987654358, 8, 9);
}

TEST_F(TextoFixo, TamanhoNegativoEMaisLongo) {
  for (const int tamanho : {-1, INT_MIN}) {
    _mensagens.Estado().Relatos.clear();
    Campo campo;
    campo.Copia("123456789", tamanho);
    EXPECT_TRUE(campo.Contem("1234567"));
    EsperaRelato(987654358, 8, tamanho);
  }
}

TEST_F(TextoFixo, TextoIlegivelDeixaZeros) {
  for (const char* texto :
       {static_cast<const char*>(nullptr), static_cast<const char*>(kIlegivel)}) {
    _mensagens.Estado().Relatos.clear();
    Campo campo;
    campo.Copia(texto, 3);
    EXPECT_TRUE(campo.Contem(""));
    EsperaRelato(987654359, 3, 0);
  }
}

TEST_F(TextoFixo, ReporterQueLancaNaoInterrompeACopia) {
  _mensagens.Estado().Lanca = true;
  Campo campo;
  campo.Copia("123456789", 9);
  EXPECT_TRUE(campo.Contem("1234567"));
  EsperaRelato(987654358, 8, 9);
}

TEST_F(Bloco, CopiaEPreenche) {
  char destino[] = "abcd";
  EXPECT_EQ(kx::CopiaBloco(destino, "xy", 2, "Fonte", 77), destino);
  EXPECT_EQ(kx::PreencheBloco(destino + 3, '!', 1, "Fonte", 77), destino + 3);
  EXPECT_STREQ(destino, "xyc!");
  kx::CopiaBloco(nullptr, nullptr, 0, "Fonte", 77);
  EXPECT_TRUE(_mensagens.Relatos().empty());
}

TEST_F(Bloco, FalhaERelatadaComSuaLargura) {
  char destino[4];
  EXPECT_EQ(kx::CopiaBloco(destino, kIlegivel, 4, "Fonte", 77), nullptr);
  EsperaRelato(987654359, 4, 0);
  _mensagens.Estado().Relatos.clear();
  EXPECT_EQ(kx::PreencheBloco(kIlegivel, 0, 3, "Fonte", 77), nullptr);
  EsperaRelato(987654359, 3, 0);
}

TEST(Mensagem, BibliotecaEDescarregadaDepoisDoRelato) {
  kx::TrataErro(1, 2, 3, "-1", "Fonte", 77, true);
  EXPECT_FALSE(MensagensCarregada());
}

}  // namespace
