// Growing array with signed indexes. Every index is tested: one outside the array raises
// std::out_of_range "invalid CArray subscript" and changes nothing. ARG is the type in which
// elements are passed in.
#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <vector>

template <class T, class ARG = const T&>
class CArray {
 public:
  // The number of elements, under both names.
  std::ptrdiff_t GetSize() const noexcept { return static_cast<std::ptrdiff_t>(_elementos.size()); }
  std::ptrdiff_t GetCount() const noexcept { return GetSize(); }
  // True when there is no element.
  bool IsEmpty() const noexcept { return _elementos.empty(); }
  // Removes elements from the end, or appends. New elements are zero, or as their default
  // constructor leaves them.
  void SetSize(std::ptrdiff_t quantos) {
    if (quantos < 0) Recusa();
    _elementos.resize(static_cast<std::size_t>(quantos));
  }

  // The element at the index, to be read, changed or replaced.
  const T& GetAt(std::ptrdiff_t indice) const { return _elementos[Testado(indice)]; }
  T& ElementAt(std::ptrdiff_t indice) { return _elementos[Testado(indice)]; }
  void SetAt(std::ptrdiff_t indice, ARG valor) { _elementos[Testado(indice)] = valor; }
  const T& operator[](std::ptrdiff_t indice) const { return GetAt(indice); }
  T& operator[](std::ptrdiff_t indice) { return ElementAt(indice); }

  // Appends. Returns the index of the new element.
  std::ptrdiff_t Add(ARG valor) {
    _elementos.push_back(valor);
    return GetSize() - 1;
  }
  // Inserts before the element at the index; the size itself appends.
  void InsertAt(std::ptrdiff_t indice, ARG valor) {
    if (indice != GetSize()) Testado(indice);
    _elementos.push_back(valor);
    std::rotate(_elementos.begin() + indice, _elementos.end() - 1, _elementos.end());
  }
  // Removes one element; those after it move down.
  void RemoveAt(std::ptrdiff_t indice) {
    Testado(indice);
    _elementos.erase(_elementos.begin() + indice);
  }
  // Removes every element.
  void RemoveAll() noexcept { _elementos.clear(); }

 private:
  [[noreturn]] static void Recusa() { throw std::out_of_range("invalid CArray subscript"); }
  std::size_t Testado(std::ptrdiff_t indice) const {
    if (indice < 0 || indice >= GetSize()) Recusa();
    return static_cast<std::size_t>(indice);
  }

  std::vector<T> _elementos;
};
