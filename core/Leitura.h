// Record to object. The way leads down: a record, what hangs from it, each array, each element,
// which is a record again.
//
// Internal to the library's sources: classes name kx::Leitura as their friend.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/ClasseDeRegistro.h"
#include "core/Listas.h"
#include "kxldados/CKXVector.h"

namespace kx {

// CopiarDe, of any class.
struct Leitura {
  // Into an object whose parts are empty; its record may hold anything. A null source, or one that
  // cannot be read, which is reported, leaves it cleared. Throws std::bad_alloc; the object is then
  // valid, with fewer children.
  template <class C>
  static void Registro(C& objeto, const typename C::Registro* origem) {
    if (origem == nullptr ||
        CopiaBloco(&objeto._Reg, origem, sizeof(objeto._Reg), C::kPosicao) == nullptr) {
      std::memset(&objeto._Reg, 0, sizeof(objeto._Reg));
      return;
    }
    Pendentes(objeto, *origem);
  }

  // The elements of the array into an empty collection: one reservation, elements filled in place.
  // A count without an array reads as empty; an array with count 0 is not read. The elements before
  // the first that cannot be read are kept, the others are left out, and it is reported once: by
  // the class of the elements, or of their owner where they are no objects.
  template <class T, class E>
  static void Lista(CKXVector<T>& lista, const E* array, std::uint16_t quantidade,
                    const Posicao& doDono) {
    if (array != nullptr && quantidade != 0) Elementos(lista, array, quantidade, doDono);
  }

 private:
  template <class C>
  static void Pendentes(C& objeto, const typename C::Registro& origem) {
    EsquecePendentes(objeto._Reg);
    const Partes<C> partes{objeto, origem};
    if constexpr (requires { C::Partes(partes); }) C::Partes(partes);
  }

  template <class T, class E>
  static void Elementos(CKXVector<T>& lista, const E* array, std::uint16_t quantidade,
                        const Posicao& doDono) {
    const std::size_t total = ElementosLegiveis(array, quantidade, sizeof(E), PosicaoDe<T>(doDono));
    lista.reserve(total);
    for (std::size_t i = 0; i < total; ++i) Elemento(lista, array[i]);
  }

  template <class T>
  static const Posicao& PosicaoDe(const Posicao& doDono) {
    if constexpr (requires { T::kPosicao; }) {
      return T::kPosicao;
    } else {
      return doDono;
    }
  }

  // The array was looked at, so the copy is a plain one.
  template <class T, class E>
  static void Elemento(CKXVector<T>& lista, const E& vaga) {
    if constexpr (kDireta<T, E>) {
      lista.emplace_back(SemLimpar{});
      T& novo = lista.back();
      novo._Reg = vaga;
      Pendentes(novo, vaga);
    } else if constexpr (requires { lista.back().CopiarDe(&vaga); }) {
      lista.emplace_back(SemLimpar{}).CopiarDe(&vaga);
    } else if constexpr (std::is_same_v<T, E>) {
      lista.push_back(vaga);
    } else {
      lista.push_back(DeElemento(vaga));  // of the document, for a value that is no object
    }
  }

  // What core/Motor.h lists, as it comes out of a record.
  template <class C>
  struct Partes {
    C& Objeto;
    const typename C::Registro& Origem;
    void Lista(auto membro, auto array, auto quantidade) const {
      Leitura::Lista(Objeto.*membro, Origem.*array, Origem.*quantidade, C::kPosicao);
    }
    void ListaHerdada(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void ListaSeAmbas(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void ListaSoLida(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void Contado(auto membro, auto campo, auto...) const {
      const KXStringPS& texto = Origem.*campo;
      if (texto.Texto != nullptr) Objeto.*membro = LeContado(texto, C::kPosicao);
    }
    void Corrido(auto membro, auto texto, auto tamanho, auto...) const {
      Objeto.*membro = LeCorrido(Origem.*texto, Origem.*tamanho, C::kPosicao);
    }
    void Terminado(auto membro, auto texto) const {
      Objeto.*membro = LeTerminado(Origem.*texto, C::kPosicao);
    }
    void Condicao(auto membro) const {
      auto& condicao = Objeto.*membro;
      condicao.VisitaRegistro(
          condicao, Origem, [](auto& valor, const auto&... campos) { Condicao(valor, campos...); });
    }
    static void Condicao(auto& valor, const auto& campo) noexcept { valor = campo; }
    static void Condicao(auto& lista, const auto& array, const auto& quantidade) {
      Leitura::Lista(lista, array, quantidade, C::kPosicao);
    }
    void Local(auto, auto...) const noexcept {}
    void NaoComparado(auto, auto) const noexcept {}
    void Auxiliar(auto, auto) const noexcept {}
  };
};

}  // namespace kx
