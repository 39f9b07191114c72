// Which rule hangs below which: the hierarchy as plain numbers, before any node exists.
//
// Internal to the library's sources.
#pragma once

#include <cstdint>
#include <vector>

#include "ac/RegistrosAC.h"

namespace kx {

// The place of a record in the hierarchy.
struct Lugar {
  std::uint32_t Posicao;  // in the source
  bool TemFilhos;         // its first child is next
  bool TemIrmao;          // another child of its parent follows what is below it
};

// The hierarchy of fewer than 2^32 - 1 records, in pre-order: a record is followed by what is below
// it. The rules:
//   - Records without a parent key are attached to the root first, in source order.
//   - Then, always, the first record in source order whose parent key is that of some node is
//     attached as that node's last child. Records whose parent never appears are left out.
//   - Of several nodes with that key, the one in the index is taken; when the index has none, the
//     first in pre-order. The records of the root enter the index, and those attached by pre-order,
//     each replacing what was there; those attached by the index do not.
// Linear in the number of records, whatever their order; comparing nodes that share a key adds a
// logarithm of their depth. Throws std::bad_alloc.
std::vector<Lugar> MontaHierarquia(const std::vector<tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS>& chaves);

}  // namespace kx
