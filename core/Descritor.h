// Object to description, by the same walk as the conversions: the rows of the record in their
// order, each part at its row, then what lives in the object alone.
//
// Internal to the library's sources: classes name kx::Descritor as their friend.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/Descreve.h"
#include "kxldados/CKXVector.h"
#include "kxldados/CString.h"

namespace kx {

// Descreve, of any class.
struct Descritor {
  template <class C>
  static void Objeto(const C& objeto, Descricao& descricao) {
    Vistos vistos;
    if constexpr (requires { objeto._Reg; }) Linhas(objeto, descricao, vistos);
    Locais(objeto, descricao, vistos);
    if constexpr (requires { objeto.Get_CRC(); }) {
      Valor(descricao, "CRC", static_cast<std::uint32_t>(objeto.Get_CRC()));
      Valor(descricao, "LinhaArquivoImportacao", objeto.GetLinhaArquivoImportacao());
    }
  }

 private:
  // The members that have been described.
  using Vistos = std::vector<const void*>;

  template <class C>
  static void Linhas(const C& objeto, Descricao& descricao, Vistos& vistos) {
    LinhaVisivel visivel;
    for (const KXCampo& campo : KXMetadados<typename C::Registro>::kCampos) {
      if (visivel(campo)) {
        descricao.Campo(campo, &objeto._Reg);
      } else {
        const NaLinha<C> parte{objeto, campo, descricao, vistos};
        if constexpr (requires { C::Partes(parte); }) C::Partes(parte);
      }
    }
  }

  // Of the class and then of its bases, which a derived class may have described at a row.
  template <class C>
  static void Locais(const C& objeto, Descricao& descricao, Vistos& vistos) {
    const SoNoObjeto<C> parte{objeto, descricao, vistos};
    if constexpr (requires { C::Partes(parte); }) C::Partes(parte);
    if constexpr (requires { typename C::Base::Esta; }) {
      Locais<typename C::Base>(objeto, descricao, vistos);
    }
  }

  static std::string_view SemPrefixo(std::string_view nome) {
    constexpr std::string_view kLista = "Lista";
    return nome.starts_with(kLista) ? nome.substr(kLista.size()) : nome;
  }

  template <class T>
  static void Valor(Descricao& descricao, std::string_view nome, const T& valor) {
    if constexpr (Descritivel<T>) {
      descricao.Bloco(nome, [&] { DescreveEm(descricao, valor); });
    } else if constexpr (std::is_same_v<T, CString>) {
      if (!valor.IsEmpty()) descricao.LinhaLatin1(nome, valor.Vista());
    } else if constexpr (requires { TipoDe<T>::valor; }) {
      descricao.Valor(nome, kTipoDe<T>, &valor, sizeof(T));
    } else if constexpr (std::is_enum_v<T> || std::is_same_v<T, bool>) {
      const auto numero = static_cast<std::int32_t>(valor);
      descricao.Valor(nome, KXTipoCampo::ComSinal32, &numero, sizeof(numero));
    }  // else bytes that mean nothing to people
  }

  template <class T>
  static void Valor(Descricao& descricao, std::string_view nomeDaLista, const CKXVector<T>& lista) {
    const std::string_view titulo = SemPrefixo(nomeDaLista);
    std::size_t numero = 0;
    for (const T& elemento : lista) {
      ++numero;
      if constexpr (Descritivel<T>) {
        descricao.Bloco(titulo, numero, lista.size(), [&] { DescreveEm(descricao, elemento); });
      } else if constexpr (requires { KXMetadados<T>::kCampos; }) {
        descricao.Bloco(titulo, numero, lista.size(), [&] {
          for (const KXCampo& campo : KXMetadados<T>::kCampos) descricao.Campo(campo, &elemento);
        });
      } else {
        const std::string nome = Descricao::Numerado(titulo, numero, lista.size());
        const std::size_t antes = descricao.Texto().size();
        Valor(descricao, nome, elemento);
        if (descricao.Texto().size() == antes) descricao.Linha(nome, "");
      }
    }
  }

  // What core/Motor.h lists, where it is the part of one row.
  template <class C>
  struct NaLinha {
    const C& Objeto;
    const KXCampo& Linha;
    Descricao& Saida;
    Vistos& Descritos;
    void Lista(auto membro, auto array, auto) const { Em(array, membro); }
    void ListaHerdada(auto membro, auto array, auto) const { Em(array, membro); }
    void ListaSeAmbas(auto membro, auto array, auto) const { Em(array, membro); }
    void ListaSoLida(auto membro, auto array, auto) const { Em(array, membro); }
    void Contado(auto membro, auto campo, auto...) const { Em(campo, membro); }
    void Corrido(auto membro, auto texto, auto, auto...) const { Em(texto, membro); }
    void Terminado(auto membro, auto texto) const { Em(texto, membro); }
    void Condicao(auto) const noexcept {}
    void Local(auto, auto, auto...) const noexcept {}
    void NaoComparado(auto, auto) const noexcept {}
    void Auxiliar(auto, auto) const noexcept {}
    void Em(auto campo, auto membro) const {
      const auto* lugar = reinterpret_cast<const char*>(&(Objeto._Reg.*campo));
      if (lugar - reinterpret_cast<const char*>(&Objeto._Reg) != Linha.Posicao) return;
      Descritos.push_back(&(Objeto.*membro));
      Valor(Saida, Linha.Nome, Objeto.*membro);
    }
  };

  // The same, of what has no row. The payment condition is described whole, here.
  template <class C>
  struct SoNoObjeto {
    const C& Objeto;
    Descricao& Saida;
    Vistos& Descritos;
    void Lista(auto, auto, auto) const noexcept {}
    void ListaHerdada(auto, auto, auto) const noexcept {}
    void ListaSeAmbas(auto, auto, auto) const noexcept {}
    void ListaSoLida(auto, auto, auto) const noexcept {}
    void Contado(auto, auto, auto...) const noexcept {}
    void Corrido(auto, auto, auto, auto...) const noexcept {}
    void Terminado(auto, auto) const noexcept {}
    void Condicao(auto membro) const { Descreve("CondicaoPagamento", membro); }
    void Local(std::string_view nome, auto membro) const { Descreve(nome, membro); }
    void Local(std::string_view nome, auto membro, auto padrao) const {
      if (Objeto.*membro != padrao) Descreve(nome, membro);
    }
    void NaoComparado(std::string_view nome, auto membro) const { Descreve(nome, membro); }
    void Auxiliar(std::string_view nome, auto membro) const { Descreve(nome, membro); }
    void Descreve(std::string_view nome, auto membro) const {
      const auto& valor = Objeto.*membro;
      if (std::find(Descritos.begin(), Descritos.end(), &valor) == Descritos.end()) {
        Valor(Saida, nome, valor);
      }
    }
  };
};

}  // namespace kx
