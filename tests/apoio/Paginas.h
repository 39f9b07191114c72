// Memory that cannot be touched, for tests of what survives it.
#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <cstring>

namespace apoio {

// One page that holds 'p' everywhere and, right after it, some that cannot be touched: more than
// the array of any record of the tests takes.
class Paginas {
 public:
  Paginas() {
    const int privado = MAP_PRIVATE | MAP_ANONYMOUS;
    _inicio = static_cast<char*>(mmap(nullptr, kTodas, PROT_READ | PROT_WRITE, privado, -1, 0));
    std::memset(_inicio, 'p', kPagina);
    mprotect(Proibida(), kTodas - kPagina, PROT_NONE);
  }
  Paginas(const Paginas&) = delete;
  Paginas& operator=(const Paginas&) = delete;
  ~Paginas() { munmap(_inicio, kTodas); }

  char* Proibida() const { return _inicio + kPagina; }
  char* Legivel() const { return _inicio; }
  static constexpr std::size_t kPagina = 4096;

 private:
  static constexpr std::size_t kTodas = 8 * kPagina;

  char* _inicio;
};

}  // namespace apoio
