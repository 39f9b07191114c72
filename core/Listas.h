// What hangs from a record, child arrays and texts: where its memory comes from, how a text is
// written and read, and how all of it is released.
//
// A record owns its arrays. An array hangs in the record from the moment it exists, and its count
// covers exactly the elements that have been begun; every element begins with a block copy that
// leaves it releasable. So whatever fails half-way, LiberaRegistro frees all there is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

#include "core/Bloco.h"
#include "core/Metadados.h"
#include "kxldados/CString.h"
#include "platform/Exporta.h"
#include "platform/Plataforma.h"

namespace kx {

// Where the arrays of a record come from.
enum class Alocador : std::uint8_t {
  Delete,  // array new; released by ZerarDelete
  Tarefa,  // task allocator; released by ZerarGlobalAlloc
};

// An uninitialised array of the allocator given. Throws std::bad_alloc; never null.
template <class E>
E* AlocaArray(Alocador alocador, std::size_t quantos) {
  if (alocador == Alocador::Delete) return new E[quantos];
  void* memoria = plataforma::AlocaTarefa(quantos * sizeof(E));
  if (memoria == nullptr) throw std::bad_alloc();
  return static_cast<E*>(memoria);
}

// Gives an array of that allocator back; null is allowed.
template <class E>
void LiberaArray(Alocador alocador, E* array) noexcept {
  if (array == nullptr) return;
  if (alocador == Alocador::Delete) {
    delete[] array;
  } else {
    plataforma::LiberaTarefa(array);
  }
}

// The maximum of a text that travels whole.
inline constexpr std::size_t kSemLimite = std::numeric_limits<std::size_t>::max();

// Writes a text of at most `maximo` characters; an empty one gives size 0 and a null pointer. What
// the destination held is overwritten, not released. Throws std::bad_alloc, the text then empty.
KX_API void EscreveContado(const CString& texto, KXStringPS& destino, Alocador alocador,
                           std::size_t maximo);

// The same for a text whose size has 16 bits: at most its first 65,534 characters.
KX_API void EscreveCorrido(const CString& texto, char*& destino, std::uint16_t& tamanho,
                           Alocador alocador);

// The same for a text without a size, of any length.
KX_API void EscreveTerminado(const CString& texto, char*& destino, Alocador alocador);

// The characters of a text up to its terminator or its size, whichever comes first. A null pointer,
// a size of 0 and memory that cannot be read, which is reported once, give an empty text.
KX_API CString LeContado(const KXStringPS& origem, const Posicao& posicao);
KX_API CString LeCorrido(const char* texto, std::size_t tamanho, const Posicao& posicao);

// The characters of a text without a size, up to its terminator; empty as above.
KX_API CString LeTerminado(const char* texto, const Posicao& posicao);

// How many elements of an array can be read: all of them, or those before the first that cannot,
// and then it is reported, once. The look is at every page and not at every byte, and what it saw
// needs no guard of its own, as long as nobody unmaps it meanwhile.
KX_API std::size_t ElementosLegiveis(const void* array, std::size_t quantos, std::size_t largura,
                                     const Posicao& posicao);

// Whether something hangs from the record.
template <class REG>
constexpr bool TemPendentes() {
  for (const KXCampo& campo : KXMetadados<REG>::kCampos) {
    if (campo.Papel == KXPapel::Lista || campo.Papel == KXPapel::Contado ||
        campo.Papel == KXPapel::Corrido || campo.Papel == KXPapel::Terminado) {
      return true;
    }
  }
  return false;
}

// Visits what hangs from a record, and releases it.
struct Liberador {
  // Of all that hangs from the record.
  Alocador De;

  // Called once for each row of the kind (KXMetadados::VisitaPendentes).
  template <class E>
  void Lista(E*& array, std::uint16_t& quantidade) const noexcept {
    if (array != nullptr) {
      if constexpr (TemPendentes<E>()) {
        for (std::size_t i = 0; i < quantidade; ++i) {
          KXMetadados<E>::VisitaPendentes(array[i], *this);
        }
      }
      LiberaArray(De, array);
      array = nullptr;
    }
    quantidade = 0;
  }
  void Contado(KXStringPS& texto) const noexcept {
    LiberaArray(De, texto.Texto);
    texto = {};
  }
  void Corrido(char*& texto, std::uint16_t& tamanho) const noexcept {
    Terminado(texto);
    tamanho = 0;
  }
  void Terminado(char*& texto) const noexcept {
    LiberaArray(De, texto);
    texto = nullptr;
  }
  void Zero(auto&) const noexcept {}
};

// Visits what hangs from a record, and forgets it; spare bytes become zero.
struct Esquecedor {
  // Called once for each row of the kind (KXMetadados::VisitaPendentes).
  template <class E>
  void Lista(E*& array, std::uint16_t& quantidade) const noexcept {
    array = nullptr;
    quantidade = 0;
  }
  void Contado(KXStringPS& texto) const noexcept { texto = {}; }
  void Corrido(char*& texto, std::uint16_t& tamanho) const noexcept { Lista(texto, tamanho); }
  void Terminado(char*& texto) const noexcept { texto = nullptr; }
  void Zero(auto& bytes) const noexcept { std::memset(bytes, 0, sizeof(bytes)); }
};

// Releases every array and text that the record owns, nested ones included, and sets the pointers
// and counts to zero. A null record is allowed.
template <class REG>
void LiberaRegistro(REG* registro, Alocador alocador) noexcept {
  if (registro != nullptr) KXMetadados<REG>::VisitaPendentes(*registro, Liberador{alocador});
}

// Sets the pointers, counts and spare bytes of a record to zero and releases nothing: what the
// record held belongs to another one.
template <class REG>
void EsquecePendentes(REG& registro) noexcept {
  KXMetadados<REG>::VisitaPendentes(registro, Esquecedor{});
}

}  // namespace kx
