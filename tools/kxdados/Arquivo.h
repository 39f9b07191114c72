// Files as the commands read them.
#pragma once

#include <cstdint>
#include <istream>
#include <memory>
#include <string>

namespace kxdados {

// How messages name the standard input.
inline constexpr const char* kEntradaPadrao = "(entrada padrão)";

// The same of a path, which "-" is too.
inline std::string NomeDe(const std::string& caminho) {
  return caminho == "-" ? kEntradaPadrao : caminho;
}

// Closes a file, but not the standard input.
struct FechaEntrada {
  void operator()(std::istream* entrada) const noexcept;
};

// The file, or the standard input for "-". Throws Falha.
std::unique_ptr<std::istream, FechaEntrada> AbreArquivo(const std::string& caminho);

// The bytes of a file, or of the standard input for "-". Throws Falha: it does not exist, cannot be
// read, or has more than so many MiB, whatever it says of its size, since what is no ordinary file
// may not end; `conselho` then follows.
std::string LeArquivo(const std::string& caminho, std::uint64_t maximoMiB, const char* conselho);

// The next line, without its end; false behind the last one. Throws Falha: it cannot be read, or is
// longer than so many MiB; the rest of it is then passed over.
bool LeLinha(std::istream& entrada, std::uint64_t maximoMiB, std::string& linha);

}  // namespace kxdados
