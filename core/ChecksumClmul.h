// The checksum by carry-less multiplication, for Checksum.cpp alone.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kx::interno {

// Shortest range that ChecksumClmul takes.
inline constexpr std::size_t kMinimoClmul = 64;

// True when this build and this processor have the instruction.
bool TemClmul() noexcept;

// Only when TemClmul(), and for n >= kMinimoClmul.
std::uint32_t ChecksumClmul(const unsigned char* dados, std::size_t n,
                            std::uint32_t anterior) noexcept;

}  // namespace kx::interno
