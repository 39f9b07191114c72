// Reports to the user through the suite's message library, KXMens.dll on Windows and libKXMens.so
// elsewhere. The library is loaded for each report and unloaded after it; reports are rare.
#pragma once

#include <cstdint>

#include "platform/Exporta.h"

namespace kx {

// A text longer than its fixed-width field.
inline constexpr std::int32_t kCodigoTextoLongo = 987654358;
// A memory fault in the copy or fill of a block.
inline constexpr std::int32_t kCodigoFalhaBloco = 987654359;

// What the message library exports, as `extern "C"`, under the name KXTrataErroExported.
//   codigo     one of the codes above
//   largura    width of the field, or of the block, in bytes
//   tamanho    length of the text, as its owner stated it
//   texto      "-1"
//   fonte      source file that asked for the copy
//   linha      line in that source
//   sinal      true
//   reservado  null
//   modulo     full path of the file that holds this library's code, at most 259 characters
//   opcional   null
// The texts belong to the caller and hold for the call alone.
using KXTrataErroEntrada = void(std::int32_t codigo, std::int32_t largura, std::int32_t tamanho,
                                const char* texto, const char* fonte, std::int32_t linha,
                                bool sinal, void* reservado, const char* modulo, void* opcional);

// Calls the entry. Without the library or the entry nothing is reported; never throws.
KX_API void TrataErro(std::int32_t codigo, std::int32_t largura, std::int32_t tamanho,
                      const char* texto, const char* fonte, std::int32_t linha,
                      bool sinal) noexcept;

}  // namespace kx
