// Copy and fill of raw blocks, records and elements of child arrays, that survive bad pointers.
#pragma once

#include <cstddef>

#include "platform/Exporta.h"
#include "platform/Plataforma.h"

namespace kx {

// Where a report comes from: the source of a class, without its ending, and a line in it.
struct Posicao {
  const char* Fonte;  // "DadosRE"
  int Linha;          // from 1
};

// What a failed copy or fill reports (kCodigoFalhaBloco).
KX_API void RelataFalhaBloco(std::size_t n, const char* fonte, int linha) noexcept;

// Copies n bytes; the blocks may overlap. Returns `destino`. When a memory fault stops the copy it
// is reported once (kCodigoFalhaBloco, with n as the width and length 0) and null is returned; the
// destination may be partly written. A null pointer is such a fault, unless n is 0. `fonte` and
// `linha` name the caller in the report. See CopiaProtegida for the limits of the guard.
inline void* CopiaBloco(void* destino, const void* origem, std::size_t n, const char* fonte,
                        int linha) noexcept {
  void* const copia = plataforma::CopiaProtegida(destino, origem, n);
  if (copia == nullptr && n != 0) RelataFalhaBloco(n, fonte, linha);
  return copia;
}

// The same, for a class that says where it is (kPosicao).
inline void* CopiaBloco(void* destino, const void* origem, std::size_t n,
                        const Posicao& posicao) noexcept {
  return CopiaBloco(destino, origem, n, posicao.Fonte, posicao.Linha);
}

// The same for filling n bytes with `valor`.
inline void* PreencheBloco(void* destino, int valor, std::size_t n, const char* fonte,
                           int linha) noexcept {
  void* const cheio = plataforma::PreencheProtegido(destino, valor, n);
  if (cheio == nullptr && n != 0) RelataFalhaBloco(n, fonte, linha);
  return cheio;
}

}  // namespace kx
