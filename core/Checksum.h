// The checksum of records and fields: CRC-32 with the reflected polynomial 0xEDB88320 (the one of
// IEEE 802.3), without the customary inversions before and after. So the checksum of one range
// continues into the next:
//
//   std::uint32_t crc = kx::CalculaChecksum(&chave, sizeof(chave));
//   crc = kx::CalculaChecksum(nome.GetString(), nome.Vista().size(), crc);
//
// equals the checksum of both ranges laid end to end, and differs from what CRC-32 programs print:
// the digits "123456789" give 0x2DFD2D88. Checksums are stored and compared later; this never
// changes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/Exporta.h"

namespace kx {

// Checksum of the n bytes at `dados`, continued from `anterior`. With n == 0 it is `anterior`, and
// `dados` may be null. Uses what the processor has for it: carry-less
// multiplication, or ARM's instruction.
KX_API std::uint32_t CalculaChecksum(const void* dados, std::size_t n,
                                     std::uint32_t anterior = 0) noexcept;

// The same value computed with tables alone, on any processor.
KX_API std::uint32_t CalculaChecksumTabela(const void* dados, std::size_t n,
                                           std::uint32_t anterior = 0) noexcept;

}  // namespace kx
