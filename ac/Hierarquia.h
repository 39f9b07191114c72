// Which rule hangs below which: the hierarchy as plain numbers, before any node exists.
#pragma once

#include <cstdint>
#include <vector>

#include "ac/RegistrosAC.h"

namespace kx {

// One node of a hierarchy. Nodes are numbered in the order in which they were attached; 0 is the
// root and, as a link, none.
struct NodeDaHierarquia {
  std::uint32_t Registro;  // position of its record in the source; none for the root
  std::uint32_t Pai;
  std::uint32_t PrimeiroFilho;
  std::uint32_t ProximoIrmao;
};

// The nodes by number, of at most 2^32 - 2 records. The rules:
//   - Records without a parent key are attached to the root first, in source order.
//   - Then, always, the first record in source order whose parent key is that of some node is
//     attached as that node's last child. Records whose parent never appears are left out.
//   - Of several nodes with that key, the one in the index is taken; when the index has none, the
//     first in pre-order. The records of the root enter the index, and those attached by pre-order,
//     each replacing what was there; those attached by the index do not.
// Linear in the number of records, whatever their order; comparing nodes that share a key adds a
// logarithm of their depth. Throws std::bad_alloc.
std::vector<NodeDaHierarquia> MontaHierarquia(
    const std::vector<tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS>& chaves);

}  // namespace kx
