// Doubly linked list, walked by positions.
//
//   for (POSITION p = lista.GetHeadPosition(); p != nullptr;) Usa(lista.GetNext(p));
//
// A position is a handle on one element of one list; null stands for none. It stays valid until its
// element is removed. Positions are not tested. ARG is the type in which elements are passed in.
#pragma once

#include <cstddef>
#include <utility>

// The links of one element of a list; null at the ends.
struct KXNoDeLista {
  KXNoDeLista* Anterior;  // the element before
  KXNoDeLista* Proximo;   // the element after
};
// A place in a list.
using POSITION = KXNoDeLista*;

// A list of values; copies are deep.
template <class T, class ARG = const T&>
class CList {
 public:
  CList() noexcept = default;
  // A copy of every element, in order. Throws std::bad_alloc.
  CList(const CList& outra) : CList() {  // delegates: a failed copy is destroyed
    for (POSITION p = outra._primeiro; p != nullptr; p = p->Proximo) AddTail(outra.GetAt(p));
  }
  // Takes over the elements; positions stay valid, the other list is empty.
  CList(CList&& outra) noexcept { Troca(outra); }
  CList& operator=(CList outra) noexcept {
    Troca(outra);
    return *this;
  }
  ~CList() { RemoveAll(); }

  // The number of elements.
  std::ptrdiff_t GetCount() const noexcept { return _quantidade; }
  // True when there is no element.
  bool IsEmpty() const noexcept { return _quantidade == 0; }

  // Insert at the ends. Both return the position of the new element, and throw std::bad_alloc.
  POSITION AddHead(ARG valor) { return Liga(nullptr, new No(valor), _primeiro); }
  POSITION AddTail(ARG valor) { return Liga(_ultimo, new No(valor), nullptr); }
  // Makes the new last element in its place; it need not be copyable. Throws std::bad_alloc.
  template <class... Args>
  T& EmplaceTail(Args&&... args) {
    return GetAt(Liga(_ultimo, new No(std::forward<Args>(args)...), nullptr));
  }

  // The position of the first element, null when there is none.
  POSITION GetHeadPosition() const noexcept { return _primeiro; }
  // The element at the position, which advances; null after the last.
  T& GetNext(POSITION& posicao) noexcept {
    T& valor = GetAt(posicao);
    posicao = posicao->Proximo;
    return valor;
  }
  const T& GetNext(POSITION& posicao) const noexcept {
    const T& valor = GetAt(posicao);
    posicao = posicao->Proximo;
    return valor;
  }
  // The element at the position.
  T& GetAt(POSITION posicao) noexcept { return static_cast<No*>(posicao)->Valor; }
  const T& GetAt(POSITION posicao) const noexcept { return static_cast<No*>(posicao)->Valor; }

  // Position of the first element equal to the value, at `inicio` or after it (from the head when
  // null); null when there is none.
  POSITION Find(ARG valor, POSITION inicio = nullptr) const {
    POSITION p = inicio != nullptr ? inicio : _primeiro;
    while (p != nullptr && !(GetAt(p) == valor)) p = p->Proximo;
    return p;
  }

  // Removes the element at the position, which ends.
  void RemoveAt(POSITION posicao) noexcept {
    (posicao->Anterior != nullptr ? posicao->Anterior->Proximo : _primeiro) = posicao->Proximo;
    (posicao->Proximo != nullptr ? posicao->Proximo->Anterior : _ultimo) = posicao->Anterior;
    delete static_cast<No*>(posicao);
    --_quantidade;
  }
  // Removes every element.
  void RemoveAll() noexcept {
    while (_primeiro != nullptr) RemoveAt(_primeiro);
  }
  // Moves every element of another list to the head of this one, in their order; positions and
  // addresses stay valid. Takes the same time whatever the sizes.
  void Antepoe(CList& outra) noexcept {
    if (outra.IsEmpty()) return;
    outra._ultimo->Proximo = _primeiro;
    (_primeiro != nullptr ? _primeiro->Anterior : _ultimo) = outra._ultimo;
    _primeiro = std::exchange(outra._primeiro, nullptr);
    outra._ultimo = nullptr;
    _quantidade += std::exchange(outra._quantidade, 0);
  }

 private:
  struct No : KXNoDeLista {
    template <class... Args>
    explicit No(Args&&... args) : KXNoDeLista{}, Valor(std::forward<Args>(args)...) {}
    T Valor;
  };

  POSITION Liga(POSITION antes, No* novo, POSITION depois) noexcept {
    novo->Anterior = antes;
    novo->Proximo = depois;
    (antes != nullptr ? antes->Proximo : _primeiro) = novo;
    (depois != nullptr ? depois->Anterior : _ultimo) = novo;
    ++_quantidade;
    return novo;
  }

  void Troca(CList& outra) noexcept {
    std::swap(_primeiro, outra._primeiro);
    std::swap(_ultimo, outra._ultimo);
    std::swap(_quantidade, outra._quantidade);
  }

  POSITION _primeiro = nullptr;
  POSITION _ultimo = nullptr;
  std::ptrdiff_t _quantidade = 0;
};
