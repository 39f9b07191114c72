// Every accessor that a table makes: what Set stores is found at the row's offset and nowhere else,
// and Get returns it; texts at N - 1, N and N + 1 characters.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

#include "core/Situacao.h"
#include "tests/apoio/ClassesDeRegistro.h"

namespace {

template <class T>
T Padrao() {
  static unsigned char proximo = 1;
  T valor;
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    reinterpret_cast<unsigned char*>(&valor)[i] = proximo++;
  }
  return valor;
}

// The record is `antes` but for the bytes at the offset, which are those given.
template <class REG>
bool SoMudou(REG antes, const REG& depois, std::size_t posicao, const void* bytes,
             std::size_t quantos) {
  std::memcpy(reinterpret_cast<unsigned char*>(&antes) + posicao, bytes, quantos);
  return std::memcmp(&antes, &depois, sizeof(REG)) == 0;
}

template <class T, class Classe, class Grava, class Le>
void TestaCampo(Classe& objeto, const char* nome, std::size_t posicao, Grava grava, Le le) {
  const auto antes = objeto.GetReg();
  const T valor = Padrao<T>();
  EXPECT_EQ(&grava(objeto, valor), &objeto) << nome;
  EXPECT_TRUE(le(objeto) == valor && le(std::as_const(objeto)) == valor) << nome;
  EXPECT_TRUE(SoMudou(antes, objeto.GetReg(), posicao, &valor, sizeof(valor))) << nome;
}

template <class Classe, class Grava, class Le>
void TestaTexto(Classe& objeto, const char* nome, std::size_t posicao, std::size_t largura,
                Grava grava, Le le) {
  for (const std::size_t tamanho : {largura - 1, largura, largura + 1, std::size_t{0}}) {
    const auto antes = objeto.GetReg();
    const std::string texto(tamanho, 'q');
    EXPECT_EQ(&grava(objeto, CString(std::string_view(texto))), &objeto) << nome;
    std::string guardado = texto.substr(0, largura - 1);
    EXPECT_EQ(le(objeto).Vista(), guardado) << nome;
    guardado.resize(largura, '\0');
    EXPECT_TRUE(SoMudou(antes, objeto.GetReg(), posicao, guardado.data(), largura)) << nome;
  }
}

}  // namespace

// For every class and table that the headers name, made by the build: the two and TestaAcessores.h.
#include "Acessores.inc"
