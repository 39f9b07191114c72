// Which rule hangs below which: the hierarchy as plain numbers, before any node exists.
#pragma once

#include <cstdint>
#include <vector>

#include "ac/RegistrosAC.h"

namespace kx {

// The links between records. Records are numbered from 1 by key, those of one key in source order:
// related rules tend to have keys that are near each other, so walking down the links stays in the
// same memory, whatever the order of the source. 0 is the root and, as a link, none. Records that
// are left out may be linked among themselves: the root does not reach them.
struct Hierarquia {
  std::vector<std::uint32_t> Posicao;  // in the source; none for the root
  std::vector<std::uint32_t> PrimeiroFilho;
  std::vector<std::uint32_t> ProximoIrmao;
};

// Builds the hierarchy of fewer than 2^32 - 1 records. The rules:
//   - Records without a parent key are attached to the root first, in source order.
//   - Then, always, the first record in source order whose parent key is that of some node is
//     attached as that node's last child. Records whose parent never appears are left out.
//   - Of several nodes with that key, the one in the index is taken; when the index has none, the
//     first in pre-order. The records of the root enter the index, and those attached by pre-order,
//     each replacing what was there; those attached by the index do not.
// Linear in the number of records, whatever their order; comparing nodes that share a key adds a
// logarithm of their depth. Throws std::bad_alloc.
Hierarquia MontaHierarquia(const std::vector<tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS>& chaves);

}  // namespace kx
