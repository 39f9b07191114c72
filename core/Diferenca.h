// What changed between two objects: operator== answers whether, this says what.
//
//   for (const kx::Diferenca& d : kx::Diferencas(antes, depois)) std::cout << d << '\n';
//
//   ListaItem[3].ValorUnitarioV8: 12,50 -> 13,75
//   ListaItem[7]: retirado
//   LinhaArquivoImportacao: 0 -> 12 (não comparado)
//
// A row for each field, text and value kept beside the record that differs, children by their path.
// What equality leaves out is listed too, and marked: two objects are equal exactly when no row is
// marked as compared.
//
// Children are matched, not counted off: an element taken out of the middle is one row, and so is
// one put in; of an element that changed, its fields are rows. Equal elements are matched first, in
// their order; those between them by what most of their fields say. An element that moved is taken
// out at one place and put in at another.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Metadados.h"
#include "kxldados/CString.h"
#include "platform/Exporta.h"

class CIEVinculo;
class TKXConsisteRetorno;
class TKXConsisteRetornoItem;

namespace kx {

// What happened.
enum class TipoDeDiferenca : std::uint8_t {
  Mudou,         // a value is another one
  Retirado,      // an element is in the first object alone
  Acrescentado,  // an element is in the second object alone
};

// One row.
struct Diferenca {
  // "ListaItem[3].ValorUnitarioV8": names as the accessors have them, indexes from 0. They are
  // those of the second object, but for an element that was taken out.
  std::string Caminho;
  TipoDeDiferenca Tipo;
  // The values as people write them, in UTF-8 (kx::TextoDoValor); empty for an element that is not
  // there, and in hexadecimal where both would read the same.
  std::string Antes;
  std::string Depois;
  // Whether equality sees it.
  bool Comparado;

  bool operator==(const Diferenca&) const = default;
};

// Writes a row on one line, in UTF-8, without a line end.
KX_API std::ostream& operator<<(std::ostream& saida, const Diferenca& diferenca);

// A comparison in the making; an object writes what is different into it by its ListaDiferencas.
class KX_API Comparacao {
 public:
  // The index of what is no element.
  static constexpr std::size_t kSemIndice = static_cast<std::size_t>(-1);

  // What is written next lies in this member, or in this element of it, until Sai; `comparado`
  // false says that equality does not look there.
  void Entra(std::string_view nome, bool comparado, std::size_t indice = kSemIndice) {
    _trechos.push_back({nome, indice, _comparado});
    _comparado = _comparado && comparado;
  }
  void Sai() noexcept {
    _comparado = _trechos.back().Antes;
    _trechos.pop_back();
  }
  // Whether equality looks here.
  bool Comparado() const noexcept { return _comparado; }

  // The fields that differ; the record as equality sees it may be another one.
  void Campos(const KXRegistroInfo& info, const void* a, const void* b, const void* comoA,
              const void* comoB);
  // A value of bytes that are read as the type says, and a text, where they differ.
  void Valor(std::string_view nome, bool comparado, KXTipoCampo tipo, const void* a, const void* b,
             std::size_t largura);
  void Texto(std::string_view nome, bool comparado, const CString& a, const CString& b);
  // An element that only one of the two has.
  void Elemento(TipoDeDiferenca tipo);

  // A place among the rows; whether a row was written since, or one that is marked as compared; and
  // back to it.
  std::size_t Marca() const noexcept { return _linhas.size(); }
  bool DifereDesde(std::size_t marca, bool comparado) const noexcept;
  void Volta(std::size_t marca) { _linhas.erase(Em(marca), _linhas.end()); }

  // The rows, once.
  std::vector<Diferenca> Entrega() noexcept { return std::move(_linhas); }

 private:
  struct Trecho {
    std::string_view Nome;
    std::size_t Indice;
    bool Antes;
  };
  std::vector<Diferenca>::iterator Em(std::size_t marca) noexcept {
    return _linhas.begin() + static_cast<std::ptrdiff_t>(marca);
  }
  std::string Caminho(std::string_view nome) const;
  void Mudou(std::string_view nome, bool comparado, std::string antes, std::string depois);

  std::vector<Trecho> _trechos;
  std::vector<Diferenca> _linhas;
  bool _comparado = true;
};

// The objects that write themselves, and those that are written from here.
template <class C>
requires requires(const C& objeto, Comparacao& comparacao) {
  objeto.ListaDiferencas(objeto, comparacao);
}
void ComparaEm(Comparacao& comparacao, const C& antes, const C& depois) {
  antes.ListaDiferencas(depois, comparacao);
}
KX_API void ComparaEm(Comparacao& comparacao, const CIEVinculo& antes, const CIEVinculo& depois);
KX_API void ComparaEm(Comparacao& comparacao, const TKXConsisteRetorno& antes,
                      const TKXConsisteRetorno& depois);
KX_API void ComparaEm(Comparacao& comparacao, const TKXConsisteRetornoItem& antes,
                      const TKXConsisteRetornoItem& depois);

// What can be asked for its differences: the classes of the documents, validation results, links.
template <class C>
concept Comparavel = requires(const C& objeto, Comparacao& comparacao) {
  ComparaEm(comparacao, objeto, objeto);
};

// What is different in the second object. Equal objects take the time of operator==. Throws
// std::bad_alloc.
template <Comparavel C>
std::vector<Diferenca> Diferencas(const C& antes, const C& depois) {
  Comparacao comparacao;
  ComparaEm(comparacao, antes, depois);
  return comparacao.Entrega();
}

}  // namespace kx
