// What every class does with what it is made of, beside converting it: clear, copy, move, compare,
// test for emptiness and for a fit in the record. A class says once what it has beside its record;
// the functions here, in core/Escrita.h, core/Leitura.h, core/Descritor.h and
// core/Diferenciador.h walk it.
//
//   template <class V> static void Partes(V&& v) {
//     v.Lista(&Esta::_ListaRateio, &Registro::ListaRateio, &Registro::QtdRateio);  // child array
//     v.ListaHerdada(...);            // the same; cleared, copied and moved by the base class
//     v.ListaSeAmbas(...);            // the same as Lista, compared where neither is empty
//     v.ListaSoLida(...);             // read from the record, never written, not compared
//     v.Contado(&Esta::_Mascara, &Registro::Mascara, maximum);  // text, as the row of that name
//     v.Corrido(&Esta::_Nome, &Registro::TextoNome, &Registro::TamanhoNome);  // a maximum that the
//                                     // class's own CopiarPara cuts to may follow
//     v.Terminado(&Esta::_Nome, &Registro::TextoNome);
//     v.Condicao(&Esta::_CondicaoPagamento);  // travels in the fields that the record has for it
//     v.Local(KX_DO_OBJETO(ListaLogs));     // lives only in the object; compared
//     v.Local(KX_DO_OBJETO(Nivel), 1);      // the same, 1 when cleared
//     v.NaoComparado(KX_DO_OBJETO(Vinculo));  // lives only in the object; not compared
//     v.Auxiliar(KX_DO_OBJETO(Expandir));   // the same; an object with nothing else is empty
//   }
//
// A class whose fields mean something together names a Registro ComoSeCompara(const Registro&): the
// record as equality sees it.
//
// Internal to the library's sources: classes name kx::Motor as their friend.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#include "core/ClasseDeRegistro.h"
#include "core/Descritor.h"
#include "core/Diferenciador.h"
#include "core/Escrita.h"
#include "core/Igualdade.h"
#include "core/Leitura.h"

namespace kx {

// The walks over a class C: its record, where it has one, and its parts.
struct Motor {
  // Whether the class stores a record.
  template <class C>
  static constexpr bool kTemRegistro = requires(C& c) {
    c._Reg;
  };

  // Back to the defaults: zero and empty. What the bases hold is the caller's to clear.
  template <class C>
  static void Limpa(C& objeto) noexcept {
    if constexpr (kTemRegistro<C>) std::memset(&objeto._Reg, 0, sizeof(objeto._Reg));
    LimpaPartes(objeto);
  }

  // The parts alone: the record is about to be overwritten.
  template <class C>
  static void LimpaPartes(C& objeto) noexcept {
    VisitaPartes<C>(Limpador<C>{objeto});
  }

  // A deep copy. Throws std::bad_alloc.
  template <class C>
  static void Copia(C& destino, const C& origem) {
    if constexpr (kTemRegistro<C>) destino._Reg = origem._Reg;
    VisitaPartes<C>(Copiador<C>{destino, origem});
  }

  // Takes over the parts; the origin's collections and texts are empty afterwards.
  template <class C>
  static void Move(C& destino, C& origem) noexcept {
    if constexpr (kTemRegistro<C>) destino._Reg = origem._Reg;
    VisitaPartes<C>(Movedor<C>{destino, origem});
  }

  // The compared fields of the record, then the compared parts in their order.
  template <class C>
  static bool Iguais(const C& a, const C& b) {
    if constexpr (kTemRegistro<C>) {
      if constexpr (requires { C::ComoSeCompara(a._Reg); }) {
        if (!RegistrosIguais(C::ComoSeCompara(a._Reg), C::ComoSeCompara(b._Reg))) return false;
      } else if (!RegistrosIguais(a._Reg, b._Reg)) {
        return false;
      }
    }
    Comparador<C> comparador{a, b};
    VisitaPartes<C>(comparador);
    return comparador.Resultado;
  }

  // True when every byte of the record is zero and every part is empty.
  template <class C>
  static bool EstaVazio(const C& objeto) {
    if constexpr (kTemRegistro<C>) {
      if (!TudoZero(&objeto._Reg, sizeof(objeto._Reg))) return false;
    }
    Vazio<C> vazio{objeto};
    VisitaPartes<C>(vazio);
    return vazio.Resultado;
  }

  // True when CopiarPara leaves out nothing, at no level: no count that wraps, no text that is cut.
  template <class C>
  static bool Cabe(const C& objeto) {
    Medidor<C> medidor{objeto};
    VisitaPartes<C>(medidor);
    return medidor.Resultado;
  }

 private:
  template <class C, class V>
  static void VisitaPartes(V&& visitante) {
    if constexpr (requires { C::Partes(visitante); }) C::Partes(visitante);
  }

  template <class T>
  static void LimpaValor(T& valor) noexcept {
    if constexpr (requires { valor.Limpar(); }) {
      valor.Limpar();
    } else if constexpr (requires { valor.clear(); }) {
      valor.clear();
    } else if constexpr (requires { valor.Empty(); }) {
      valor.Empty();
    } else {
      valor = T{};
    }
  }

  template <class T>
  static bool ValorVazio(const T& valor) {
    if constexpr (requires { valor.EstaVazio(); }) {
      return valor.EstaVazio();
    } else if constexpr (requires { valor.empty(); }) {
      return valor.empty();
    } else if constexpr (requires { valor.IsEmpty(); }) {
      return valor.IsEmpty();
    } else {
      return valor == T{};
    }
  }

  template <class C>
  struct Limpador {
    C& Objeto;
    void Lista(auto membro, auto, auto) const noexcept { (Objeto.*membro).clear(); }
    void ListaSeAmbas(auto membro, auto, auto) const noexcept { (Objeto.*membro).clear(); }
    void ListaSoLida(auto membro, auto, auto) const noexcept { (Objeto.*membro).clear(); }
    void Corrido(auto membro, auto, auto, auto...) const noexcept { (Objeto.*membro).Empty(); }
    void Terminado(auto membro, auto) const noexcept { (Objeto.*membro).Empty(); }
    void ListaHerdada(auto, auto, auto) const noexcept {}
    void Contado(auto membro, auto, auto...) const noexcept { (Objeto.*membro).Empty(); }
    void Condicao(auto membro) const noexcept { LimpaValor(Objeto.*membro); }
    void Local(auto, auto membro) const noexcept { LimpaValor(Objeto.*membro); }
    void Local(auto, auto membro, auto padrao) const noexcept { Objeto.*membro = padrao; }
    void NaoComparado(auto, auto membro) const noexcept { LimpaValor(Objeto.*membro); }
    void Auxiliar(auto, auto membro) const noexcept { LimpaValor(Objeto.*membro); }
  };

  template <class C>
  struct Copiador {
    C& Destino;
    const C& Origem;
    void Lista(auto membro, auto, auto) const { Copia(membro); }
    void ListaHerdada(auto, auto, auto) const noexcept {}
    void ListaSeAmbas(auto membro, auto, auto) const { Copia(membro); }
    void ListaSoLida(auto membro, auto, auto) const { Copia(membro); }
    void Corrido(auto membro, auto, auto, auto...) const { Copia(membro); }
    void Terminado(auto membro, auto) const { Copia(membro); }
    void Contado(auto membro, auto, auto...) const { Copia(membro); }
    void Condicao(auto membro) const { Copia(membro); }
    void Local(auto, auto membro, auto...) const { Copia(membro); }
    void NaoComparado(auto, auto membro) const { Copia(membro); }
    void Auxiliar(auto, auto membro) const { Copia(membro); }
    void Copia(auto membro) const { Destino.*membro = Origem.*membro; }
  };

  template <class C>
  struct Movedor {
    C& Destino;
    C& Origem;
    void Lista(auto membro, auto, auto) const noexcept { Troca(membro); }
    void ListaHerdada(auto, auto, auto) const noexcept {}
    void ListaSeAmbas(auto membro, auto, auto) const noexcept { Troca(membro); }
    void ListaSoLida(auto membro, auto, auto) const noexcept { Troca(membro); }
    void Corrido(auto membro, auto, auto, auto...) const noexcept { Troca(membro); }
    void Terminado(auto membro, auto) const noexcept { Troca(membro); }
    void Contado(auto membro, auto, auto...) const noexcept { Troca(membro); }
    void Condicao(auto membro) const noexcept { Troca(membro); }
    void Local(auto, auto membro, auto...) const noexcept { Troca(membro); }
    void NaoComparado(auto, auto membro) const noexcept { Troca(membro); }
    void Auxiliar(auto, auto membro) const noexcept { Troca(membro); }
    void Troca(auto membro) const noexcept { Destino.*membro = std::move(Origem.*membro); }
  };

  template <class C>
  struct Comparador {
    const C& A;
    const C& B;
    bool Resultado = true;
    void Lista(auto membro, auto, auto) { Compara(membro); }
    void ListaHerdada(auto membro, auto, auto) { Compara(membro); }
    void ListaSeAmbas(auto membro, auto, auto) {
      if (!(A.*membro).empty() && !(B.*membro).empty()) Compara(membro);
    }
    void ListaSoLida(auto, auto, auto) const noexcept {}
    void Corrido(auto membro, auto, auto, auto...) { Compara(membro); }
    void Terminado(auto membro, auto) { Compara(membro); }
    void Contado(auto membro, auto, auto...) { Compara(membro); }
    void Condicao(auto membro) { Compara(membro); }
    void Local(auto, auto membro, auto...) { Compara(membro); }
    void NaoComparado(auto, auto) const noexcept {}
    void Auxiliar(auto, auto) const noexcept {}
    void Compara(auto membro) { Resultado = Resultado && A.*membro == B.*membro; }
  };

  template <class C>
  struct Vazio {
    const C& Objeto;
    bool Resultado = true;
    void Lista(auto membro, auto, auto) { Testa(membro); }
    void ListaHerdada(auto membro, auto, auto) { Testa(membro); }
    void ListaSeAmbas(auto membro, auto, auto) { Testa(membro); }
    void ListaSoLida(auto membro, auto, auto) { Testa(membro); }
    void Corrido(auto membro, auto, auto, auto...) { Testa(membro); }
    void Terminado(auto membro, auto) { Testa(membro); }
    void Contado(auto membro, auto, auto...) { Testa(membro); }
    void Condicao(auto membro) { Testa(membro); }
    void Local(auto, auto membro) { Testa(membro); }
    void Local(auto, auto membro, auto padrao) {
      Resultado = Resultado && Objeto.*membro == padrao;
    }
    void NaoComparado(auto, auto membro) { Testa(membro); }
    void Auxiliar(auto, auto) const noexcept {}
    void Testa(auto membro) { Resultado = Resultado && ValorVazio(Objeto.*membro); }
  };

  template <class C>
  struct Medidor {
    static constexpr std::size_t kMaximo = std::numeric_limits<std::uint16_t>::max();
    const C& Objeto;
    bool Resultado = true;
    void Lista(auto membro, auto, auto) { Elementos(Objeto.*membro); }
    void ListaHerdada(auto membro, auto, auto) { Elementos(Objeto.*membro); }
    void ListaSeAmbas(auto membro, auto, auto) { Elementos(Objeto.*membro); }
    void ListaSoLida(auto, auto, auto) const noexcept {}
    void Corrido(auto membro, auto, auto, std::size_t maximo = kMaximo - 1) {
      Texto(Objeto.*membro, maximo);
    }
    void Terminado(auto, auto) const noexcept {}
    void Contado(auto membro, auto, std::size_t maximo = kSemLimite, auto...) {
      Texto(Objeto.*membro, maximo);
    }
    void Condicao(auto membro) {
      const auto& condicao = Objeto.*membro;
      condicao.VisitaRegistro(condicao, Objeto._Reg, [this](const auto& valor, auto&... campos) {
        if constexpr (sizeof...(campos) == 2) this->Elementos(valor);
      });
    }
    void Local(auto, auto...) const noexcept {}
    void NaoComparado(auto, auto) const noexcept {}
    void Auxiliar(auto, auto) const noexcept {}
    void Texto(const CString& texto, std::size_t maximo) {
      Resultado = Resultado && texto.Vista().size() <= maximo;
    }
    template <class T>
    void Elementos(const CKXVector<T>& lista) {
      Resultado = Resultado && lista.size() <= kMaximo;
      if constexpr (requires(const T& elemento) { elemento.CabeNoRegistro(); }) {
        Resultado = Resultado && std::all_of(lista.begin(), lista.end(), [](const T& elemento) {
                      return elemento.CabeNoRegistro();
                    });
      }
    }
  };
};

}  // namespace kx
