// Files as the commands read them.
#pragma once

#include <cstdint>
#include <string>

namespace kxdados {

// How messages name the standard input.
inline constexpr const char* kEntradaPadrao = "(entrada padrão)";

// The bytes of a file, or of the standard input for "-". Throws Falha: it does not exist, cannot be
// read, or has more than so many MiB, whatever it says of its size, since what is no ordinary file
// may not end; `conselho` then follows.
std::string LeArquivo(const std::string& caminho, std::uint64_t maximoMiB, const char* conselho);

}  // namespace kxdados
