// Memory that cannot be touched, for tests of what survives it.
#pragma once

#include <cstddef>
#include <cstring>

namespace apoio {

// The system's part, in tests/sistema: memory page by page.
char* ReservaPaginas(std::size_t bytes);
void DevolvePaginas(char* inicio, std::size_t bytes);
void ProibePaginas(char* inicio, std::size_t bytes);       // nothing may touch them
void SoLeituraDePaginas(char* inicio, std::size_t bytes);  // nothing may write to them

// Pages, one unless said otherwise, that hold 'p' everywhere and, right after them, some that
// cannot be touched: more than the array of any record of the tests takes.
class Paginas {
 public:
  explicit Paginas(std::size_t legiveis = 1) : _legiveis(legiveis * kPagina) {
    _inicio = ReservaPaginas(_legiveis + kProibidas);
    std::memset(_inicio, 'p', _legiveis);
    ProibePaginas(Proibida(), kProibidas);
  }
  Paginas(const Paginas&) = delete;
  Paginas& operator=(const Paginas&) = delete;
  ~Paginas() { DevolvePaginas(_inicio, _legiveis + kProibidas); }

  char* Proibida() const { return _inicio + _legiveis; }
  char* Legivel() const { return _inicio; }
  static constexpr std::size_t kPagina = 4096;

 private:
  static constexpr std::size_t kProibidas = 7 * kPagina;

  std::size_t _legiveis;
  char* _inicio;
};

}  // namespace apoio
