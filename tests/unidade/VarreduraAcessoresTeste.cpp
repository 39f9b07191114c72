// Every accessor that a table makes: what Set stores is found at the row's offset and nowhere else,
// and Get returns it; texts at N - 1, N and N + 1 characters.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "gerado/Cabecalhos.inc"

namespace {

using Base = TKXBaseParaDados;

// The object, and the record in it.
struct Alvo {
  Base& Objeto;
  const unsigned char* Registro;
  std::size_t Tamanho;

  std::string Copia() const { return {reinterpret_cast<const char*>(Registro), Tamanho}; }
};

void TestaCampo(const Alvo& alvo, const char* nome, std::size_t posicao, std::size_t largura,
                bool (*acessa)(Base&, const void*)) {
  static unsigned char proximo = 1;
  std::string esperado = alvo.Copia();
  alignas(16) unsigned char valor[64];
  for (std::size_t i = 0; i < largura; ++i) valor[i] = proximo++;
  esperado.replace(posicao, largura, reinterpret_cast<const char*>(valor), largura);
  EXPECT_TRUE(acessa(alvo.Objeto, valor)) << nome;
  EXPECT_TRUE(alvo.Copia() == esperado) << nome;
}

void TestaTexto(const Alvo& alvo, const char* nome, std::size_t posicao, std::size_t largura,
                bool (*acessa)(Base&, const CString&, CString&)) {
  for (const std::size_t tamanho : {largura - 1, largura, largura + 1, std::size_t{0}}) {
    std::string esperado = alvo.Copia();
    const std::string texto(tamanho, 'q');
    std::string guardado = texto.substr(0, largura - 1);
    CString lido;
    EXPECT_TRUE(acessa(alvo.Objeto, CString(std::string_view(texto)), lido)) << nome;
    EXPECT_EQ(lido.Vista(), guardado) << nome;
    guardado.resize(largura, '\0');
    EXPECT_TRUE(alvo.Copia() == esperado.replace(posicao, largura, guardado)) << nome;
  }
}

}  // namespace

// For every class and table that the headers name, made by the build: the two and TestaAcessores.h.
#include "Acessores.inc"
