// Which elements of two collections are the same ones, before and after.
//
// Internal to the library's sources.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/Metadados.h"

namespace kx {

// One of the two collections: of each element the checksum of all that it holds, and its record.
struct Colecao {
  std::vector<std::uint32_t> Resumos;
  std::vector<const void*> Registros;  // empty where the elements have none
};

// An element of each.
struct Par {
  std::size_t A;
  std::size_t B;
};

// The pairs, in the order of both; what is in none has no counterpart. `info` describes the
// records, where there are any. The work grows as n log n. Throws std::bad_alloc.
std::vector<Par> Emparelha(const Colecao& a, const Colecao& b, const KXRegistroInfo* info);

}  // namespace kx
