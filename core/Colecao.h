// The collection family: an ordered collection of children, held by value, and its operations.
//
// KX_COLECAO(Classe, Item, T), in the class body, declares for the collection Item of elements T
// (indexes are signed 64-bit):
//   AdicionaItem(const T&), AdicionaItem(T&&)  appends; an element of the collection may be passed
//   DeletarItem(index)                         removes one; the following ones move down
//   RemoveTodosItem()                          empties the collection
//   TrocaItem(i, j)                            exchanges two elements; returns the collection
//   GetItem(index)                             one element, to be read
//   GetPtrItem(index)                          the same, to be changed; a pointer, never null
//   GetRefItem(index), GetConstRefItem(index)  references, the index NOT tested
//   SetItem(index, const T&)                   replaces one element by a copy
//   GetListaItem(), SetListaItem(collection)   the collection itself
//   SetValorUnicoItem(const T&)                the collection becomes exactly that one element
//   GetQuantidadeItem()                        number of elements
// An index outside the collection raises std::out_of_range "invalid vector<T> subscript" and
// changes nothing, but where it says "NOT tested": there it is undefined what happens. To change
// elements, in order of preference:
//
//   for (CKXDadosCM_ItemOrdemCompra& item : ordem.GetListaItem()) item.SetValorIPI(CY{});
//   ordem.GetPtrItem(0)->SetQuantidade(CY{20000});
//
// Adding may move the other elements: pointers and references to them end there.
//
// A collection may grow beyond 65,535 elements, but the counts of a record have 16 bits and wrap:
// of 65,537 elements CopiarPara writes one. CabeNoRegistro() of the document asks before, at all
// levels.
#pragma once

#include <cstddef>
#include <utility>

#include "kxldados/CKXVector.h"

#define KX_COLECAO(Classe, Nome, T)                                                                \
 public:                                                                                           \
  Classe& Adiciona##Nome(const T& elemento) {                                                      \
    _Lista##Nome.push_back(elemento);                                                              \
    return *this;                                                                                  \
  }                                                                                                \
  Classe& Adiciona##Nome(T&& elemento) {                                                           \
    _Lista##Nome.push_back(std::move(elemento));                                                   \
    return *this;                                                                                  \
  }                                                                                                \
  Classe& Deletar##Nome(long long indice) {                                                        \
    _Lista##Nome.Deleta(indice);                                                                   \
    return *this;                                                                                  \
  }                                                                                                \
  Classe& RemoveTodos##Nome() {                                                                    \
    _Lista##Nome.clear();                                                                          \
    return *this;                                                                                  \
  }                                                                                                \
  CKXVector<T>& Troca##Nome(long long i, long long j) {                                            \
    _Lista##Nome.Troca(i, j);                                                                      \
    return _Lista##Nome;                                                                           \
  }                                                                                                \
  const T& Get##Nome(long long indice) const {                                                     \
    return _Lista##Nome.at(static_cast<std::size_t>(indice));                                      \
  }                                                                                                \
  T* GetPtr##Nome(long long indice) { return &_Lista##Nome.at(static_cast<std::size_t>(indice)); } \
  const T* GetPtr##Nome(long long indice) const {                                                  \
    return &_Lista##Nome.at(static_cast<std::size_t>(indice));                                     \
  }                                                                                                \
  T& GetRef##Nome(long long indice) { return _Lista##Nome[static_cast<std::size_t>(indice)]; }     \
  const T& GetConstRef##Nome(long long indice) const {                                             \
    return _Lista##Nome[static_cast<std::size_t>(indice)];                                         \
  }                                                                                                \
  Classe& Set##Nome(long long indice, const T& elemento) {                                         \
    _Lista##Nome.at(static_cast<std::size_t>(indice)) = elemento;                                  \
    return *this;                                                                                  \
  }                                                                                                \
  CKXVector<T>& GetLista##Nome() { return _Lista##Nome; }                                          \
  const CKXVector<T>& GetLista##Nome() const { return _Lista##Nome; }                              \
  Classe& SetLista##Nome(const CKXVector<T>& lista) {                                              \
    _Lista##Nome = lista;                                                                          \
    return *this;                                                                                  \
  }                                                                                                \
  void SetValorUnico##Nome(const T& elemento) { _Lista##Nome = CKXVector<T>(1, elemento); }        \
  long long GetQuantidade##Nome() const { return static_cast<long long>(_Lista##Nome.size()); }    \
                                                                                                   \
 protected:                                                                                        \
  CKXVector<T> _Lista##Nome;                                                                       \
                                                                                                   \
 public:
