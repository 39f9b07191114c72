// What the hand-written floors of the document benchmarks share. A floor holds the same records and
// collections as the document's object and makes the same block copies and allocations.
#pragma once

#include <malloc.h>

#include <cstdint>
#include <cstring>
#include <vector>

// Freed memory stays with the process: what is measured is the conversion, not the kernel giving
// pages back and forth, which depends on where the heap's last block happens to be.
[[maybe_unused]] inline const bool gMemoriaFica =
    mallopt(M_TRIM_THRESHOLD, 1 << 30) != 0 && mallopt(M_MMAP_THRESHOLD, 1 << 30) != 0;

template <class E>
inline void LePiso(std::vector<E>& lista, const E* array, std::uint16_t quantidade) {
  lista.assign(array, array + quantidade);
}

template <class E>
inline void EscrevePiso(const std::vector<E>& lista, E*& array, std::uint16_t& quantidade) {
  quantidade = static_cast<std::uint16_t>(lista.size());
  array = new E[quantidade];
  std::memcpy(array, lista.data(), quantidade * sizeof(E));
}

template <class E>
inline bool BlocosIguais(const std::vector<E>& a, const std::vector<E>& b) {
  return std::memcmp(a.data(), b.data(), a.size() * sizeof(E)) == 0;
}
