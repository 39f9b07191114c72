#include <windows.h>

#include "tests/apoio/Paginas.h"

namespace apoio {

char* ReservaPaginas(std::size_t bytes) {
  return static_cast<char*>(VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
}

void DevolvePaginas(char* inicio, std::size_t /*bytes*/) { VirtualFree(inicio, 0, MEM_RELEASE); }

void ProibePaginas(char* inicio, std::size_t bytes) {
  DWORD antes = 0;
  VirtualProtect(inicio, bytes, PAGE_NOACCESS, &antes);
}

void SoLeituraDePaginas(char* inicio, std::size_t bytes) {
  DWORD antes = 0;
  VirtualProtect(inicio, bytes, PAGE_READONLY, &antes);
}

}  // namespace apoio
