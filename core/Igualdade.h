// Equality of two records of one type: the fields that their table marks as compared.
//
// Records that are the same byte for byte need no closer look; only when they differ are their
// fields looked at one by one.
#pragma once

#include <cstddef>
#include <cstring>

#include "core/Metadados.h"
#include "platform/Exporta.h"

namespace kx {

// Whether every byte is zero.
inline bool TudoZero(const void* bytes, std::size_t n) noexcept {
  const auto* primeiro = static_cast<const unsigned char*>(bytes);
  return n == 0 || (*primeiro == 0 && std::memcmp(primeiro, primeiro + 1, n - 1) == 0);
}

// Whether the field is equal in both, as equality looks at it, whether it does or not: texts up to
// their terminator, history complements by their first three lines, everything else byte for byte.
// The addresses are those of the field. Throws std::bad_alloc.
KX_API bool CampoIgual(const KXCampo& campo, const void* a, const void* b);

// True when every compared field of the two records is equal, as CampoIgual says. The records must
// be of the type described. Throws std::bad_alloc.
KX_API bool CamposIguais(const KXRegistroInfo& info, const void* a, const void* b);

// The same for records of a type that is known.
template <class REG>
bool RegistrosIguais(const REG& a, const REG& b) {
  return std::memcmp(&a, &b, sizeof(REG)) == 0 || CamposIguais(KXMetadados<REG>::kInfo, &a, &b);
}

}  // namespace kx
