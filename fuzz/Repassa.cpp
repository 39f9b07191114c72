// Runs a harness over files, and over those of folders, once each, and over as many random inputs
// as a number says: what findings left behind stays a test where there is no fuzzer.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <vector>

#include "fuzz/Fuzz.h"

namespace {

namespace fs = std::filesystem;

bool Repassa(const fs::path& caminho) {
  std::ifstream arquivo(caminho, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(arquivo),
                                std::istreambuf_iterator<char>()};
  if (!arquivo) return false;
  std::cerr << caminho.string() << std::endl;  // before it runs: the last one told is the finding
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return true;
}

// The same ones at every run.
int Sorteia(int quantos) {
  std::mt19937 sorteio(20);
  std::vector<std::uint8_t> bytes;
  for (int i = 0; i < quantos; ++i) {
    bytes.resize(sorteio() % 128);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(sorteio());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  return quantos;
}

}  // namespace

int main(int quantos, char** argumentos) {
  int feitos = 0;
  for (int i = 1; i < quantos; ++i) {
    feitos += Sorteia(std::atoi(argumentos[i]));
    const fs::path caminho = argumentos[i];
    if (!fs::is_directory(caminho)) {
      feitos += Repassa(caminho) ? 1 : 0;
      continue;
    }
    for (const fs::directory_entry& arquivo : fs::directory_iterator(caminho)) {
      feitos += Repassa(arquivo.path()) ? 1 : 0;
    }
  }
  std::cout << feitos << " entradas\n";
  return feitos > 0 ? 0 : 1;
}
