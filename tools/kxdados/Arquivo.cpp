#include "Arquivo.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <iostream>

#include "Falha.h"
#include "Sistema.h"

namespace kxdados {

namespace {

std::string Le(std::istream& entrada, std::uint64_t maximoMiB, const char* conselho) {
  const std::uint64_t maximo = maximoMiB << 20;
  std::string bytes;
  std::array<char, 65536> trecho;
  while (entrada.read(trecho.data(), trecho.size()), entrada.gcount() > 0) {
    bytes.append(trecho.data(), static_cast<std::size_t>(entrada.gcount()));
    if (bytes.size() > maximo) {
      throw Falha("arquivo", "tem mais de " + std::to_string(maximoMiB) + " MiB" + conselho);
    }
  }
  if (entrada.bad()) throw Falha("arquivo", "não pode ser lido");
  return bytes;
}

}  // namespace

std::string LeArquivo(const std::string& caminho, std::uint64_t maximoMiB, const char* conselho) {
  if (caminho == "-") return Le(std::cin, maximoMiB, conselho);
  std::ifstream arquivo(Caminho(caminho), std::ios::binary);
  if (!arquivo) throw Falha("arquivo", errno == ENOENT ? "não existe" : "não pode ser aberto");
  return Le(arquivo, maximoMiB, conselho);
}

}  // namespace kxdados
