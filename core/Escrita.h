// Object to record. The way leads down: a record, what hangs from it, each array, each element,
// which is a record again.
//
// Internal to the library's sources: classes name kx::Escrita as their friend.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "core/ClasseDeRegistro.h"
#include "core/Listas.h"
#include "kxldados/CKXVector.h"

namespace kx {

// CopiarPara, of any class.
struct Escrita {
  // One block copy, then the arrays and texts. Nothing is written where the destination cannot be,
  // which is reported. Throws std::bad_alloc; the record can then still be released.
  template <class C>
  static void Registro(const C& objeto, typename C::Registro* destino, Alocador alocador) {
    if (CopiaBloco(destino, &objeto._Reg, sizeof(objeto._Reg), C::kPosicao) == nullptr) return;
    Pendentes(objeto, *destino, alocador);
  }

  // The collection as an array of records: one allocation, elements written in place. The count is
  // stored in 16 bits and wraps beyond 65,535 elements; the wrapped count is what is allocated and
  // written. An empty collection gives count 0 and a null pointer.
  template <class T, class E>
  static void Lista(const CKXVector<T>& lista, E*& array, std::uint16_t& quantidade,
                    Alocador alocador) {
    array = nullptr;
    quantidade = 0;
    if (!lista.empty()) Elementos(lista, array, quantidade, alocador);
  }

 private:
  template <class C>
  static void Pendentes(const C& objeto, typename C::Registro& destino, Alocador alocador) {
    const Partes<C> partes{objeto, destino, alocador};
    if constexpr (requires { C::Partes(partes); }) C::Partes(partes);
  }

  template <class T, class E>
  static void Elementos(const CKXVector<T>& lista, E*& array, std::uint16_t& quantidade,
                        Alocador alocador) {
    const auto total = static_cast<std::uint16_t>(lista.size());
    if (total == 0) return;
    array = AlocaArray<E>(alocador, total);
    while (quantidade < total) {
      const std::size_t indice = quantidade++;
      Elemento(lista.at(indice), array[indice], alocador);
    }
  }

  // Nothing can fault in an array that was just allocated, so the copy is a plain one.
  template <class T, class E>
  static void Elemento(const T& elemento, E& vaga, Alocador alocador) {
    if constexpr (kDireta<T, E>) {
      vaga = elemento._Reg;
      Pendentes(elemento, vaga, alocador);
    } else if constexpr (requires { elemento.CopiarParaPS(&vaga); }) {
      alocador == Alocador::Tarefa ? elemento.CopiarParaPS(&vaga) : elemento.CopiarPara(&vaga);
    } else if constexpr (std::is_same_v<T, E>) {
      vaga = elemento;
    } else {
      ParaElemento(elemento, vaga);  // of the document, for a value that is no object
    }
  }

  // What core/Motor.h lists, as it goes into a record.
  template <class C>
  struct Partes {
    const C& Objeto;
    typename C::Registro& Destino;
    Alocador De;
    void Lista(auto membro, auto array, auto quantidade) const {
      Escrita::Lista(Objeto.*membro, Destino.*array, Destino.*quantidade, De);
    }
    void ListaHerdada(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void ListaSeAmbas(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void ListaSoLida(auto, auto, auto) const noexcept {}
    void Contado(auto membro, auto campo, std::size_t maximo = kSemLimite) const {
      Contado(membro, campo, maximo, De);
    }
    void Contado(auto membro, auto campo, std::size_t maximo, Alocador alocador) const {
      Destino.*campo = {};
      const CString& texto = Objeto.*membro;
      if (!texto.IsEmpty()) EscreveContado(texto, Destino.*campo, alocador, maximo);
    }
    void Corrido(auto membro, auto texto, auto tamanho, auto...) const {
      EscreveCorrido(Objeto.*membro, Destino.*texto, Destino.*tamanho, De);
    }
    void Terminado(auto membro, auto texto) const {
      EscreveTerminado(Objeto.*membro, Destino.*texto, De);
    }
    void Condicao(auto membro) const {
      const auto& condicao = Objeto.*membro;
      condicao.VisitaRegistro(condicao, Destino, [this](const auto& valor, auto&... campos) {
        this->Condicao(valor, campos...);
      });
    }
    void Condicao(const auto& valor, auto& campo) const noexcept { campo = valor; }
    void Condicao(const auto& lista, auto& array, auto& quantidade) const {
      Escrita::Lista(lista, array, quantidade, De);
    }
    void Local(auto, auto...) const noexcept {}
    void NaoComparado(auto, auto) const noexcept {}
    void Auxiliar(auto, auto) const noexcept {}
  };
};

}  // namespace kx
