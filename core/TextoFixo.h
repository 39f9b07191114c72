// Fixed-width text fields: char[N], at most N-1 characters, zeros after them.
#pragma once

#include <cstddef>
#include <cstring>

#include "kxldados/CString.h"
#include "platform/Exporta.h"

namespace kx {

// Writes a text of `tamanho` characters into a field of `largura` bytes. The result is always
// terminated, and zero beyond the text. By length:
//   below the width    stored whole
//   equal to it        the last character is lost, silently; callers rely on that
//   above it           cut to width-1 characters and reported (kCodigoTextoLongo), never thrown
// A negative length counts as above: as many characters as the width are read from `texto`.
// The text may be null when its length is 0, and may lie inside the field. A text that cannot be
// read is reported (kCodigoFalhaBloco) and leaves the field zero. `fonte` and `linha` name the
// caller in the reports.
KX_API void CopiaTextoFixo(char* destino, std::size_t largura, const char* texto, int tamanho,
                           const char* fonte, int linha) noexcept;

// The same for a field and a text as they are declared; the text counts up to its first zero.
template <std::size_t N>
void CopiaTextoFixo(char (&destino)[N], const CString& texto, const char* fonte,
                    int linha) noexcept {
  // Up to an embedded zero: every byte after the terminator is zero.
  const int tamanho = static_cast<int>(std::strlen(texto.GetString()));
  CopiaTextoFixo(destino, N, texto.GetString(), tamanho, fonte, linha);
}

// The text of a field: up to its terminator, or its whole width when a received record has none.
KX_API CString LeTextoFixo(const char* campo, std::size_t largura);

}  // namespace kx
