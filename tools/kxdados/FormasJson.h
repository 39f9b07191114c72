// What writing JSON and reading it share: the forms of the types.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "core/Metadados.h"

namespace kxdados {

// The member that holds the record's name.
inline constexpr std::string_view kRegistro = "_registro";
// Stands before the bytes of a field that its form cannot say.
inline constexpr std::string_view kHex = "hex:";

// What is no pointer, no measure of what hangs from one, and no part of a field above.
constexpr bool EhValor(KXPapel papel) {
  return papel == KXPapel::Campo || papel == KXPapel::Interno || papel == KXPapel::Reserva;
}

// The members of a field that is an object, at their places within the field; none of another.
std::span<const KXCampo> MembrosDe(KXTipoCampo tipo);

// Whether integers of this type are strings, as numbers of many programs have 53 bits.
template <class Inteiro>
inline constexpr bool kEntreAspas = sizeof(Inteiro) == sizeof(std::uint64_t);

// Calls the function with a zero of the type, if that is an integer; tells whether it is.
template <class Funcao>
bool ComInteiro(KXTipoCampo tipo, Funcao funcao) {
  switch (tipo) {
    case KXTipoCampo::SemSinal8:
    case KXTipoCampo::Caractere:
      funcao(std::uint8_t{});
      return true;
    case KXTipoCampo::SemSinal16:
      funcao(std::uint16_t{});
      return true;
    case KXTipoCampo::SemSinal32:
      funcao(std::uint32_t{});
      return true;
    case KXTipoCampo::SemSinal64:
      funcao(std::uint64_t{});
      return true;
    case KXTipoCampo::ComSinal32:
      funcao(std::int32_t{});
      return true;
    case KXTipoCampo::ComSinal64:
      funcao(std::int64_t{});
      return true;
    default:
      return false;
  }
}

}  // namespace kxdados
