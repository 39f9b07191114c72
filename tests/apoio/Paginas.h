// Memory that cannot be touched, for tests of what survives it.
#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <cstring>

namespace apoio {

// Pages, one unless said otherwise, that hold 'p' everywhere and, right after them, some that
// cannot be touched: more than the array of any record of the tests takes.
class Paginas {
 public:
  explicit Paginas(std::size_t legiveis = 1) : _legiveis(legiveis * kPagina) {
    const int privado = MAP_PRIVATE | MAP_ANONYMOUS;
    _inicio = static_cast<char*>(
        mmap(nullptr, _legiveis + kProibidas, PROT_READ | PROT_WRITE, privado, -1, 0));
    std::memset(_inicio, 'p', _legiveis);
    mprotect(Proibida(), kProibidas, PROT_NONE);
  }
  Paginas(const Paginas&) = delete;
  Paginas& operator=(const Paginas&) = delete;
  ~Paginas() { munmap(_inicio, _legiveis + kProibidas); }

  char* Proibida() const { return _inicio + _legiveis; }
  char* Legivel() const { return _inicio; }
  static constexpr std::size_t kPagina = 4096;

 private:
  static constexpr std::size_t kProibidas = 7 * kPagina;

  std::size_t _legiveis;
  char* _inicio;
};

}  // namespace apoio
