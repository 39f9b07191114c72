// The checksum by what the processor has for it, for Checksum.cpp alone.
//
// Internal to the library's sources.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kx::interno {

// Shortest range that a way takes.
inline constexpr std::size_t kMinimoClmul = 64;

// The checksum of n bytes, kMinimoClmul or more, continued from `anterior`.
using Via = std::uint32_t (*)(const unsigned char* dados, std::size_t n,
                              std::uint32_t anterior) noexcept;

// Carry-less multiplication, 16 bytes in each; null where this build or this processor cannot.
Via ViaClmul() noexcept;

// 32 bytes in each; null likewise.
Via ViaVpclmul() noexcept;

// 64 bytes in each; null likewise.
Via ViaAvx512() noexcept;

// The instruction that ARM has for this polynomial; null likewise.
Via ViaCRC32() noexcept;

}  // namespace kx::interno
