// What an object holds, for people: reports, logs and failing tests.
//
//   std::cout << ordem;                        // the same as kx::Descreve(ordem)
//   EXPECT_EQ(ordem, esperada);                // GoogleTest prints both in this way
//
//   Codigo: 2026/0417
//   ValorFrete: 15,00
//   Item 1 de 1
//     Quantidade: 12,00
//
// A line for each field that is not empty, by the name that its accessors have, in the order of the
// record; then what lives in the object alone. Children are indented below their title. Money is
// written as Brazil does, dates as "dd/mm/aaaa", uninterpreted bytes in hexadecimal, codes and keys
// as numbers. The text is UTF-8. Meant to be read, not parsed: later versions may write more.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

#include "core/Metadados.h"
#include "platform/Exporta.h"

class CIEVinculo;
class TKXConsisteRetorno;

namespace kx {

// The bytes of a value as people write it: money as Brazil does, dates as "dd/mm/aaaa", codes and
// keys as numbers, uninterpreted bytes in hexadecimal, Latin-1 text as UTF-8 on one line.
KX_API std::string TextoDoValor(KXTipoCampo tipo, const void* bytes, std::size_t largura);

// A description in the making; an object writes itself into it by its Descreve.
class KX_API Descricao {
 public:
  // One line, as a whole or of a name and a value: UTF-8, or Latin-1 that becomes UTF-8 on one
  // line.
  void Linha(std::string_view nome, std::string_view valor);
  void Linha(std::string_view texto);
  void LinhaLatin1(std::string_view nome, std::string_view valor);
  // The field of a record, if it is not empty.
  void Campo(const KXCampo& campo, const void* registro);
  // Bytes that are read as the type says, if they are not all zero.
  void Valor(std::string_view nome, KXTipoCampo tipo, const void* bytes, std::size_t largura);

  // What is written inside the function goes below the title, indented. The title alone stays only
  // where the block is numbered: "Item 2 de 3".
  template <class Funcao>
  void Bloco(std::string_view titulo, Funcao escreve) {
    const std::size_t inicio = _texto.size();
    const std::size_t vazio = Abre(titulo);
    escreve();
    Fecha();
    if (_texto.size() == vazio) _texto.resize(inicio);
  }
  template <class Funcao>
  void Bloco(std::string_view titulo, std::size_t numero, std::size_t quantos, Funcao escreve) {
    Abre(Numerado(titulo, numero, quantos));
    escreve();
    Fecha();
  }
  // "Item 2 de 3".
  static std::string Numerado(std::string_view titulo, std::size_t numero, std::size_t quantos);

  // What has been written, each line with its end.
  const std::string& Texto() const noexcept { return _texto; }

 private:
  std::size_t Abre(std::string_view titulo);
  void Fecha() noexcept;

  std::string _texto;
  std::string _margem;
};

// The objects that write themselves, and those that are written from here.
template <class C>
requires requires(const C& objeto, Descricao& descricao) { objeto.Descreve(descricao); }
void DescreveEm(Descricao& descricao, const C& objeto) { objeto.Descreve(descricao); }
KX_API void DescreveEm(Descricao& descricao, const CIEVinculo& vinculo);
KX_API void DescreveEm(Descricao& descricao, const TKXConsisteRetorno& retorno);

// What has a description: the classes of the documents, validation results, links.
template <class C>
concept Descritivel = requires(const C& objeto, Descricao& descricao) {
  DescreveEm(descricao, objeto);
};

// The description of an object; empty when every field is. Throws std::bad_alloc.
template <Descritivel C>
std::string Descreve(const C& objeto) {
  Descricao descricao;
  DescreveEm(descricao, objeto);
  return descricao.Texto();
}

// Writes a description; "(vazio)" when there is none.
KX_API std::ostream& Escreve(std::ostream& saida, const std::string& descricao);

}  // namespace kx

// Writes the description of an object.
template <kx::Descritivel C>
std::ostream& operator<<(std::ostream& saida, const C& objeto) {
  return kx::Escreve(saida, kx::Descreve(objeto));
}
