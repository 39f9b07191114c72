#include "Arquivo.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <iostream>
#include <limits>

#include "Falha.h"
#include "Sistema.h"

namespace kxdados {

namespace {

Falha GrandeDemais(const char* elemento, std::uint64_t maximoMiB, const char* conselho) {
  return {elemento, "tem mais de " + std::to_string(maximoMiB) + " MiB" + conselho};
}

}  // namespace

void FechaEntrada::operator()(std::istream* entrada) const noexcept {
  if (entrada != &std::cin) delete entrada;
}

std::unique_ptr<std::istream, FechaEntrada> AbreArquivo(const std::string& caminho) {
  if (caminho == "-") return std::unique_ptr<std::istream, FechaEntrada>(&std::cin);
  auto arquivo = std::make_unique<std::ifstream>(Caminho(caminho), std::ios::binary);
  if (!*arquivo) throw Falha("arquivo", errno == ENOENT ? "não existe" : "não pode ser aberto");
  return std::unique_ptr<std::istream, FechaEntrada>(arquivo.release());
}

std::string LeArquivo(const std::string& caminho, std::uint64_t maximoMiB, const char* conselho) {
  const auto entrada = AbreArquivo(caminho);
  const std::uint64_t maximo = maximoMiB << 20;
  std::string bytes;
  std::array<char, 65536> trecho;
  while (entrada->read(trecho.data(), trecho.size()), entrada->gcount() > 0) {
    bytes.append(trecho.data(), static_cast<std::size_t>(entrada->gcount()));
    if (bytes.size() > maximo) throw GrandeDemais("arquivo", maximoMiB, conselho);
  }
  if (entrada->bad()) throw Falha("arquivo", "não pode ser lido");
  return bytes;
}

bool LeLinha(std::istream& entrada, std::uint64_t maximoMiB, std::string& linha) {
  const std::uint64_t maximo = maximoMiB << 20;
  linha.clear();
  std::array<char, 65536> trecho;
  // A piece that fills the array fails without reaching the end of the line.
  while (!entrada.getline(trecho.data(), trecho.size()) && !entrada.eof() && !entrada.bad() &&
         entrada.gcount() > 0) {
    entrada.clear();
    linha.append(trecho.data(), static_cast<std::size_t>(entrada.gcount()));
    if (linha.size() > maximo) {
      entrada.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
      throw GrandeDemais("linha", maximoMiB, "");
    }
  }
  if (entrada.bad()) throw Falha("arquivo", "não pode ser lido");
  const auto lidos = static_cast<std::size_t>(entrada.gcount());
  const bool comFim = lidos > 0 && !entrada.eof();
  linha.append(trecho.data(), comFim ? lidos - 1 : lidos);
  return lidos > 0 || !linha.empty();
}

}  // namespace kxdados
