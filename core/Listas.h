// The child arrays and counted texts of records, for either allocator: writing, reading, releasing.
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
#include <type_traits>

#include "core/Bloco.h"
#include "core/Metadados.h"
#include "kxldados/CKXVector.h"
#include "kxldados/CString.h"
#include "platform/Exporta.h"
#include "platform/Plataforma.h"

namespace kx {

// Where the arrays of a record come from.
enum class Alocador : std::uint8_t {
  Delete,  // array new; released by ZerarDelete
  Tarefa,  // task allocator; released by ZerarGlobalAlloc
};

// Asks for a default-constructed object whose record is not cleared: its first CopiarDe fills it.
struct SemLimpar {};

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
// the counted text held is overwritten, not released. Throws std::bad_alloc, the text then empty.
KX_API void EscreveTexto(const CString& texto, KXStringPS* destino, Alocador alocador,
                         std::size_t maximo);

// The same for a text whose size has 16 bits: at most its first 65,534 characters.
KX_API void EscreveTexto(const CString& texto, char*& destino, std::uint16_t& tamanho,
                         Alocador alocador);

// The same for a text without a size, of any length.
KX_API void EscreveTexto(const CString& texto, char*& destino, Alocador alocador);

// The characters of a counted text up to its terminator or its size, whichever comes first. A null
// pointer, a size of 0 and unreadable memory give an empty text.
KX_API CString LeTexto(const KXStringPS& origem, const char* fonte, int linha);
KX_API CString LeTexto(const char* texto, std::size_t tamanho, const char* fonte, int linha);

// The characters of a text without a size, up to its terminator; empty as above.
KX_API CString LeTexto(const char* texto, const char* fonte, int linha);

// How one element is written and read; core/Motor.h defines both. Elements that are no objects with
// a conversion of their own overload them.
template <class T, class E>
void EscreveElemento(const T& elemento, E* vaga, Alocador alocador);
template <class T, class E>
void LeElemento(CKXVector<T>& lista, const E* vaga);

// True for the elements that a parent's conversion writes and reads without a call of their own:
// their class says KX_CONVERSAO_DIRETA, and the record is the one it stores.
template <class T, class E>
inline constexpr bool kDireta = requires {
  requires T::kConversaoDireta;
  requires std::is_same_v<typename T::Registro, E>;
};
// Reads one of those from memory that was seen to be readable.
template <class T, class E>
void LeLegivel(CKXVector<T>& lista, const E& vaga);

// The conversions below, of a collection that is not empty.
template <class T, class E>
void EscreveElementos(const CKXVector<T>& lista, E*& array, std::uint16_t& quantidade,
                      Alocador alocador) {
  const auto total = static_cast<std::uint16_t>(lista.size());
  if (total == 0) return;
  array = AlocaArray<E>(alocador, total);
  while (quantidade < total) {
    const std::size_t indice = quantidade++;
    EscreveElemento(lista.at(indice), &array[indice], alocador);
  }
}

// The same, of an array that is there.
template <class T, class E>
void LeElementos(CKXVector<T>& lista, const E* array, std::uint16_t quantidade) {
  lista.reserve(quantidade);
  if constexpr (kDireta<T, E>) {
    // One look at the whole array in place of a guarded copy for each element.
    if (plataforma::Legivel(array, quantidade * sizeof(E))) {
      for (std::size_t i = 0; i < quantidade; ++i) LeLegivel(lista, array[i]);
      return;
    }
  }
  for (std::size_t i = 0; i < quantidade; ++i) LeElemento(lista, &array[i]);
}

// Writes the collection as an array of records: one allocation, elements written in place. The
// count is stored in 16 bits and wraps beyond 65,535 elements; the wrapped count is what is
// allocated and written. An empty collection gives count 0 and a null pointer.
template <class T, class E>
inline void EscreveLista(const CKXVector<T>& lista, E*& array, std::uint16_t& quantidade,
                         Alocador alocador) {
  array = nullptr;
  quantidade = 0;
  if (!lista.empty()) EscreveElementos(lista, array, quantidade, alocador);
}

// Replaces the collection by the elements of the array: one reservation, elements filled in place.
// A count without an array reads as empty; an array with count 0 is not read.
template <class T, class E>
inline void LeLista(CKXVector<T>& lista, const E* array, std::uint16_t quantidade) {
  lista.clear();
  if (array != nullptr && quantidade != 0) LeElementos(lista, array, quantidade);
}

// Whether something hangs from the record.
template <class REG>
constexpr bool TemListas() {
  for (const KXCampo& campo : KXMetadados<REG>::kCampos) {
    if (campo.Papel == KXPapel::Lista || campo.Papel == KXPapel::Bloco ||
        campo.Papel == KXPapel::Corrido || campo.Papel == KXPapel::Terminado) {
      return true;
    }
  }
  return false;
}

// Visits a record's arrays and texts, as its metadata names them, and releases them.
struct Liberador {
  // Where the memory came from, and what to do with each kind of thing that hangs from a record.
  Alocador De;
  template <class E>
  void Lista(E*& array, std::uint16_t& quantidade) const noexcept {
    if (array != nullptr) {
      if constexpr (TemListas<E>()) {
        for (std::size_t i = 0; i < quantidade; ++i) KXMetadados<E>::VisitaListas(array[i], *this);
      }
      LiberaArray(De, array);
      array = nullptr;
    }
    quantidade = 0;
  }
  void Texto(KXStringPS& texto) const noexcept {
    LiberaArray(De, texto.Texto);
    texto = {};
  }
  void TextoCorrido(char*& texto, std::uint16_t& tamanho) const noexcept {
    TextoTerminado(texto);
    tamanho = 0;
  }
  void TextoTerminado(char*& texto) const noexcept {
    LiberaArray(De, texto);
    texto = nullptr;
  }
  void Zero(auto&) const noexcept {}
};

// Forgets a record's arrays and texts, and clears its spare bytes.
struct Esquecedor {
  // What to do with each kind of thing that hangs from a record.
  template <class E>
  void Lista(E*& array, std::uint16_t& quantidade) const noexcept {
    array = nullptr;
    quantidade = 0;
  }
  void Texto(KXStringPS& texto) const noexcept { texto = {}; }
  void TextoCorrido(char*& texto, std::uint16_t& tamanho) const noexcept { Lista(texto, tamanho); }
  void TextoTerminado(char*& texto) const noexcept { texto = nullptr; }
  void Zero(auto& bytes) const noexcept { std::memset(bytes, 0, sizeof(bytes)); }
};

// Releases every array and counted text that the record owns, nested ones included, and sets the
// pointers and counts to zero. A null record is allowed.
template <class REG>
void LiberaRegistro(REG* registro, Alocador alocador) noexcept {
  if (registro != nullptr) KXMetadados<REG>::VisitaListas(*registro, Liberador{alocador});
}

// Sets the pointers, counts and spare bytes of a record to zero and releases nothing: what the
// record held belongs to another one.
template <class REG>
void EsqueceListas(REG& registro) noexcept {
  KXMetadados<REG>::VisitaListas(registro, Esquecedor{});
}

}  // namespace kx
