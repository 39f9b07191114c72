// The texts of the library are Latin-1; files, terminals and networks speak UTF-8.
//
//   ordem.SetCodigo(kx::Latin1DeUTF8(u8));
//   std::cout << kx::UTF8DeLatin1(ordem.GetCodigo()) << '\n';
//
// A byte of Latin-1 is the character of that number (ISO 8859-1), so every text has its UTF-8 and
// comes back from it unchanged. All of it throws std::bad_alloc alone.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "kxldados/CString.h"
#include "platform/Exporta.h"

namespace kx {

// Every byte as its character.
KX_API std::string UTF8DeLatin1(std::string_view latin1);

// The same on one line, for reports: control characters become blanks.
KX_API std::string LinhaDeLatin1(std::string_view latin1);

// Both for a text of an object.
template <std::same_as<CString> Texto>
std::string UTF8DeLatin1(const Texto& latin1) {
  return UTF8DeLatin1(latin1.Vista());
}
template <std::same_as<CString> Texto>
std::string LinhaDeLatin1(const Texto& latin1) {
  return LinhaDeLatin1(latin1.Vista());
}

// Characters that Latin-1 does not have become their usual replacement (curly quotes, dashes, the
// euro sign...) or '?', and so does each byte that starts no well-formed sequence.
KX_API CString Latin1DeUTF8(std::string_view utf8);

// False where a byte starts no well-formed UTF-8 sequence (RFC 3629).
KX_API bool EhUTF8(std::string_view texto) noexcept;

}  // namespace kx
