// What every class over a record does in the same way: clear, copy, move, compare, test for
// emptiness, convert. A class says once what it is made of; the functions here walk it.
//
//   template <class V> static void Partes(V&& v) {
//     v.Lista(&Esta::_ListaRateio, &Registro::ListaRateio, &Registro::QtdRateio);  // child array
//     v.ListaHerdada(...);            // the same; cleared, copied and moved by the base class
//     v.ListaNaoComparada(...);       // the same as Lista, not compared
//     v.ListaSoLida(...);             // read from the record, never written, not compared
//     v.Texto(&Esta::_Mascara, &Registro::Mascara, maximum);   // counted text
//     v.TextoCorrido(&Esta::_Nome, &Registro::TextoNome, &Registro::TamanhoNome);
//     v.TextoTerminado(&Esta::_Nome, &Registro::TextoNome);    // text without a size
//     v.Local(&Esta::_ListaLogs);     // lives only in the object; compared
//     v.Local(&Esta::_Nivel, 1);      // the same, 1 when cleared
//     v.NaoComparado(&Esta::_Vinculo);  // lives only in the object; not compared
//     v.Auxiliar(&Esta::_Expandir);   // the same; an object with nothing else is empty
//   }
//
// Internal to the library's sources: classes name kx::Motor as their friend.
#pragma once

#include <cstring>
#include <type_traits>
#include <utility>

#include "core/Bloco.h"
#include "core/Igualdade.h"
#include "core/Listas.h"

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
      if (!RegistrosIguais(a._Reg, b._Reg)) return false;
    }
    Comparador<C> comparador{a, b};
    VisitaPartes<C>(comparador);
    return comparador.Resultado;
  }

  // True when every byte of the record is zero and every part is empty.
  template <class C>
  static bool EstaVazio(const C& objeto) {
    if constexpr (kTemRegistro<C>) {
      const auto* bytes = reinterpret_cast<const unsigned char*>(&objeto._Reg);
      for (std::size_t i = 0; i < sizeof(objeto._Reg); ++i) {
        if (bytes[i] != 0) return false;
      }
    }
    Vazio<C> vazio{objeto};
    VisitaPartes<C>(vazio);
    return vazio.Resultado;
  }

  // Object to record: one block copy, then the arrays and texts. False when the destination could
  // not be written. Throws std::bad_alloc; the record can then still be released.
  template <class C>
  static bool Escreve(const C& objeto, typename C::Registro* destino, Alocador alocador,
                      const char* fonte, int linha) {
    if (CopiaBloco(destino, &objeto._Reg, sizeof(objeto._Reg), fonte, linha) == nullptr) {
      return false;
    }
    VisitaPartes<C>(Escritor<C>{objeto, *destino, alocador});
    return true;
  }

  // Record to object, whatever the object held. False, and the object cleared, when the source is
  // null or cannot be read. Throws std::bad_alloc; the object is then valid, with fewer children.
  template <class C>
  static bool Le(C& objeto, const typename C::Registro* origem, const char* fonte, int linha) {
    VisitaPartes<C>(Limpador<C>{objeto});
    return LeEmNovo(objeto, origem, fonte, linha);
  }

  // The same into an object that was just made, whose record need not be cleared.
  template <class C>
  static bool LeEmNovo(C& objeto, const typename C::Registro* origem, const char* fonte,
                       int linha) {
    if (origem == nullptr ||
        CopiaBloco(&objeto._Reg, origem, sizeof(objeto._Reg), fonte, linha) == nullptr) {
      std::memset(&objeto._Reg, 0, sizeof(objeto._Reg));
      return false;
    }
    LePartes(objeto, *origem, fonte, linha);
    return true;
  }

  // The same from memory that was seen to be readable.
  template <class C>
  static void LeLegivel(C& objeto, const typename C::Registro& origem, const char* fonte,
                        int linha) {
    objeto._Reg = origem;
    LePartes(objeto, origem, fonte, linha);
  }

  // Into a slot of an array that a conversion has just allocated: nothing can fault there, so the
  // copy is a plain one.
  template <class C>
  static void EscreveNaVaga(const C& objeto, typename C::Registro* vaga, Alocador alocador) {
    *vaga = objeto._Reg;
    VisitaPartes<C>(Escritor<C>{objeto, *vaga, alocador});
  }

 private:
  template <class C, class V>
  static void VisitaPartes(V&& visitante) {
    if constexpr (requires { C::Partes(visitante); }) C::Partes(visitante);
  }

  template <class C>
  static void LePartes(C& objeto, const typename C::Registro& origem, const char* fonte,
                       int linha) {
    EsqueceListas(objeto._Reg);
    VisitaPartes<C>(Leitor<C>{objeto, origem, fonte, linha});
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
    void ListaNaoComparada(auto membro, auto, auto) const noexcept { (Objeto.*membro).clear(); }
    void ListaSoLida(auto membro, auto, auto) const noexcept { (Objeto.*membro).clear(); }
    void TextoCorrido(auto membro, auto, auto) const noexcept { (Objeto.*membro).Empty(); }
    void TextoTerminado(auto membro, auto) const noexcept { (Objeto.*membro).Empty(); }
    void ListaHerdada(auto, auto, auto) const noexcept {}
    void Texto(auto membro, auto, auto...) const noexcept { (Objeto.*membro).Empty(); }
    void Local(auto membro) const noexcept { LimpaValor(Objeto.*membro); }
    void Local(auto membro, auto padrao) const noexcept { Objeto.*membro = padrao; }
    void NaoComparado(auto membro) const noexcept { LimpaValor(Objeto.*membro); }
    void Auxiliar(auto membro) const noexcept { LimpaValor(Objeto.*membro); }
  };

  template <class C>
  struct Copiador {
    C& Destino;
    const C& Origem;
    void Lista(auto membro, auto, auto) const { Destino.*membro = Origem.*membro; }
    void ListaHerdada(auto, auto, auto) const noexcept {}
    void ListaNaoComparada(auto membro, auto, auto) const { Local(membro); }
    void ListaSoLida(auto membro, auto, auto) const { Local(membro); }
    void TextoCorrido(auto membro, auto, auto) const { Local(membro); }
    void TextoTerminado(auto membro, auto) const { Local(membro); }
    void Texto(auto membro, auto, auto...) const { Destino.*membro = Origem.*membro; }
    void Local(auto membro, auto...) const { Destino.*membro = Origem.*membro; }
    void NaoComparado(auto membro) const { Local(membro); }
    void Auxiliar(auto membro) const { Local(membro); }
  };

  template <class C>
  struct Movedor {
    C& Destino;
    C& Origem;
    void Lista(auto membro, auto, auto) const noexcept { Troca(membro); }
    void ListaHerdada(auto, auto, auto) const noexcept {}
    void ListaNaoComparada(auto membro, auto, auto) const noexcept { Troca(membro); }
    void ListaSoLida(auto membro, auto, auto) const noexcept { Troca(membro); }
    void TextoCorrido(auto membro, auto, auto) const noexcept { Troca(membro); }
    void TextoTerminado(auto membro, auto) const noexcept { Troca(membro); }
    void Texto(auto membro, auto, auto...) const noexcept { Troca(membro); }
    void Local(auto membro, auto...) const noexcept { Troca(membro); }
    void NaoComparado(auto membro) const noexcept { Troca(membro); }
    void Auxiliar(auto membro) const noexcept { Troca(membro); }
    void Troca(auto membro) const noexcept { Destino.*membro = std::move(Origem.*membro); }
  };

  template <class C>
  struct Comparador {
    const C& A;
    const C& B;
    bool Resultado = true;
    void Lista(auto membro, auto, auto) { Compara(membro); }
    void ListaHerdada(auto membro, auto, auto) { Compara(membro); }
    void ListaNaoComparada(auto, auto, auto) const noexcept {}
    void ListaSoLida(auto, auto, auto) const noexcept {}
    void TextoCorrido(auto membro, auto, auto) { Compara(membro); }
    void TextoTerminado(auto membro, auto) { Compara(membro); }
    void Texto(auto membro, auto, auto...) { Compara(membro); }
    void Local(auto membro, auto...) { Compara(membro); }
    void NaoComparado(auto) const noexcept {}
    void Auxiliar(auto) const noexcept {}
    void Compara(auto membro) { Resultado = Resultado && A.*membro == B.*membro; }
  };

  template <class C>
  struct Vazio {
    const C& Objeto;
    bool Resultado = true;
    void Lista(auto membro, auto, auto) { Testa(membro); }
    void ListaHerdada(auto membro, auto, auto) { Testa(membro); }
    void ListaNaoComparada(auto membro, auto, auto) { Testa(membro); }
    void ListaSoLida(auto membro, auto, auto) { Testa(membro); }
    void TextoCorrido(auto membro, auto, auto) { Testa(membro); }
    void TextoTerminado(auto membro, auto) { Testa(membro); }
    void Texto(auto membro, auto, auto...) { Testa(membro); }
    void Local(auto membro) { Testa(membro); }
    void Local(auto membro, auto padrao) { Resultado = Resultado && Objeto.*membro == padrao; }
    void NaoComparado(auto membro) { Testa(membro); }
    void Auxiliar(auto) const noexcept {}
    void Testa(auto membro) { Resultado = Resultado && ValorVazio(Objeto.*membro); }
  };

  template <class C>
  struct Escritor {
    const C& Objeto;
    typename C::Registro& Destino;
    Alocador De;
    void Lista(auto membro, auto array, auto quantidade) const {
      EscreveLista(Objeto.*membro, Destino.*array, Destino.*quantidade, De);
    }
    void ListaHerdada(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void ListaNaoComparada(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void ListaSoLida(auto, auto, auto) const noexcept {}
    void TextoCorrido(auto membro, auto texto, auto tamanho) const {
      EscreveTexto(Objeto.*membro, Destino.*texto, Destino.*tamanho, De);
    }
    void TextoTerminado(auto membro, auto texto) const {
      EscreveTexto(Objeto.*membro, Destino.*texto, De);
    }
    void Texto(auto membro, auto campo, std::size_t maximo = kSemLimite) const {
      Texto(membro, campo, maximo, De);
    }
    void Texto(auto membro, auto campo, std::size_t maximo, Alocador alocador) const {
      Destino.*campo = {};
      const CString& texto = Objeto.*membro;
      if (!texto.IsEmpty()) EscreveTexto(texto, &(Destino.*campo), alocador, maximo);
    }
    void Local(auto, auto...) const noexcept {}
    void NaoComparado(auto) const noexcept {}
    void Auxiliar(auto) const noexcept {}
  };

  template <class C>
  struct Leitor {
    C& Objeto;
    const typename C::Registro& Origem;
    const char* Fonte;
    int Linha;
    void Lista(auto membro, auto array, auto quantidade) const {
      LeLista(Objeto.*membro, Origem.*array, Origem.*quantidade);
    }
    void ListaHerdada(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void ListaNaoComparada(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void ListaSoLida(auto membro, auto array, auto quantidade) const {
      Lista(membro, array, quantidade);
    }
    void TextoCorrido(auto membro, auto texto, auto tamanho) const {
      Objeto.*membro = LeTexto(Origem.*texto, Origem.*tamanho, Fonte, Linha);
    }
    void TextoTerminado(auto membro, auto texto) const {
      Objeto.*membro = LeTexto(Origem.*texto, Fonte, Linha);
    }
    void Texto(auto membro, auto campo, auto...) const {
      const KXStringPS& texto = Origem.*campo;
      if (texto.Texto != nullptr) Objeto.*membro = LeTexto(texto, Fonte, Linha);
    }
    void Local(auto, auto...) const noexcept {}
    void NaoComparado(auto) const noexcept {}
    void Auxiliar(auto) const noexcept {}
  };
};

template <class T, class E>
void EscreveElemento(const T& elemento, E* vaga, Alocador alocador) {
  if constexpr (kDireta<T, E>) {
    Motor::EscreveNaVaga(elemento, vaga, alocador);
  } else if constexpr (requires { elemento.CopiarParaPS(vaga); }) {
    alocador == Alocador::Tarefa ? elemento.CopiarParaPS(vaga) : elemento.CopiarPara(vaga);
  } else {
    elemento.CopiarPara(vaga);
  }
}

template <class T, class E>
void LeElemento(CKXVector<T>& lista, const E* vaga) {
  if constexpr (kDireta<T, E>) {
    Motor::LeEmNovo(lista.emplace_back(SemLimpar{}), vaga, T::kFonteDosRelatos, __LINE__);
  } else {
    lista.emplace_back(SemLimpar{}).CopiarDe(vaga);
  }
}

template <class T, class E>
void LeLegivel(CKXVector<T>& lista, const E& vaga) {
  Motor::LeLegivel(lista.emplace_back(SemLimpar{}), vaga, T::kFonteDosRelatos, __LINE__);
}

}  // namespace kx
