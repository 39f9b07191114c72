// How much a record tree holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/Metadados.h"

namespace kxdados {

// A record and everything that hangs from it.
struct Medida {
  std::size_t Bytes = 0;
  std::size_t Listas = 0;
  std::size_t Textos = 0;
};

// Visits what hangs from a record, and counts it.
struct Medidor {
  Medida& Total;

  template <class E>
  void Lista(E* array, std::uint16_t quantidade) const {
    if (array == nullptr) return;
    ++Total.Listas;
    Total.Bytes += quantidade * sizeof(E);
    for (std::size_t i = 0; i < quantidade; ++i) KXMetadados<E>::VisitaPendentes(array[i], *this);
  }
  void Contado(const KXStringPS& texto) const { Corrido(texto.Texto, texto.Tamanho); }
  void Corrido(const char* texto, std::size_t tamanho) const {
    if (texto == nullptr) return;
    ++Total.Textos;
    Total.Bytes += tamanho;
  }
  void Terminado(const char* texto) const {
    if (texto != nullptr) Corrido(texto, std::strlen(texto) + 1);
  }
  void Zero(const auto&) const noexcept {}
};

// The record is not changed.
template <class REG>
Medida MedeRegistro(REG& registro) {
  Medida medida{sizeof(REG), 0, 0};
  KXMetadados<REG>::VisitaPendentes(registro, Medidor{medida});
  return medida;
}

}  // namespace kxdados
