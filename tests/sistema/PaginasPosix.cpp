#include <sys/mman.h>

#include "tests/apoio/Paginas.h"

namespace apoio {

char* ReservaPaginas(std::size_t bytes) {
  const int privado = MAP_PRIVATE | MAP_ANONYMOUS;
  return static_cast<char*>(mmap(nullptr, bytes, PROT_READ | PROT_WRITE, privado, -1, 0));
}

void DevolvePaginas(char* inicio, std::size_t bytes) { munmap(inicio, bytes); }

void ProibePaginas(char* inicio, std::size_t bytes) { mprotect(inicio, bytes, PROT_NONE); }

void SoLeituraDePaginas(char* inicio, std::size_t bytes) { mprotect(inicio, bytes, PROT_READ); }

}  // namespace apoio
