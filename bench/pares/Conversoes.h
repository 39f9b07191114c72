// What the generated conversions of Plano.h say of one field: between a record's bytes, the plain
// struct's member, and what each peer's accessors take and give.
#pragma once

#include <capnp/list.h>
#include <capnp/message.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "oc/RegistrosOC.h"

namespace plano {

// Texts up to their terminator, numbers as they are, what is not interpreted as bytes.
template <class C>
void DeCampo(const C& campo, std::string& valor) {
  if constexpr (std::is_same_v<C, KXStringPS>) {
    if (campo.Texto != nullptr) valor = campo.Texto;
  } else if constexpr (std::is_array_v<C> && std::is_same_v<std::remove_extent_t<C>, char>) {
    valor.assign(campo, strnlen(campo, sizeof(campo)));
  } else {
    valor.assign(reinterpret_cast<const char*>(&campo), sizeof(campo));
  }
}

template <class C, class T>
void DeCampo(const C& campo, T& valor) {
  static_assert(sizeof(C) == sizeof(T));
  std::memcpy(&valor, &campo, sizeof(valor));
}

template <class REG, class Q, class P>
void DeLista(const REG* array, Q quantidade, std::vector<P>& lista) {
  lista.resize(quantidade);
  for (std::size_t i = 0; i < lista.size(); ++i) DeRegistro(array[i], lista[i]);
}

// The way back, into a record that is zero. Texts and arrays come from array new.
template <class C>
void ParaCampo(const std::string& valor, C& campo) {
  if constexpr (std::is_same_v<C, KXStringPS>) {
    if (valor.empty()) return;
    campo.Tamanho = static_cast<std::uint32_t>(valor.size() + 1);
    campo.Texto = new char[campo.Tamanho];
    std::memcpy(campo.Texto, valor.c_str(), campo.Tamanho);
  } else {
    std::memcpy(&campo, valor.data(), std::min(valor.size(), sizeof(campo)));
  }
}

template <class C, class T>
void ParaCampo(const T& valor, C& campo) {
  static_assert(sizeof(C) == sizeof(T));
  std::memcpy(&campo, &valor, sizeof(campo));
}

template <class REG, class Q, class P>
void ParaArray(const std::vector<P>& lista, REG*& array, Q& quantidade) {
  if (lista.empty()) return;
  quantidade = static_cast<Q>(lista.size());
  array = new REG[lista.size()]{};
  for (std::size_t i = 0; i < lista.size(); ++i) ParaRegistro(lista[i], array[i]);
}

template <class De, class T>
void Atribui(const De& de, T& valor) {
  if constexpr (std::is_same_v<T, std::string>) {
    valor.assign(reinterpret_cast<const char*>(std::data(de)), std::size(de));
  } else {
    valor = static_cast<T>(de);
  }
}

inline void Atribui(capnp::Data::Reader de, std::string& valor) {
  valor.assign(reinterpret_cast<const char*>(de.begin()), de.size());
}

inline capnp::Data::Reader Dados(const std::string& valor) {
  return {reinterpret_cast<const kj::byte*>(valor.data()), valor.size()};
}

template <class P>
unsigned Quantos(const std::vector<P>& lista) {
  return static_cast<unsigned>(lista.size());
}

template <class P, class Lista>
void ParaLista(const std::vector<P>& de, Lista para) {
  for (unsigned i = 0; i < para.size(); ++i) ParaCapnp(de[i], para[i]);
}

template <class Lista, class P>
void DaLista(Lista de, std::vector<P>& para) {
  para.resize(de.size());
  for (unsigned i = 0; i < de.size(); ++i) DeCapnp(de[i], para[i]);
}

}  // namespace plano
