// The edge of the tool: files and terminals speak UTF-8, the library Latin-1.
#pragma once

#include <string>
#include <string_view>

#include "kxldados/CString.h"

namespace kxdados {

// False where a byte starts no well-formed UTF-8 sequence.
bool EhUTF8(std::string_view texto) noexcept;

// Characters that Latin-1 does not have become their usual replacement (curly quotes, dashes, the
// euro sign...) or '?'.
CString Latin1DeUTF8(std::string_view texto);

// Control characters become blanks: the result is printed.
std::string UTF8DeLatin1(std::string_view texto);

}  // namespace kxdados
