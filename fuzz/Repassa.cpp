// Runs a harness over files, and over those of folders, once each: what findings left behind stays
// a test where there is no fuzzer.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
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

}  // namespace

int main(int quantos, char** argumentos) {
  int feitos = 0;
  for (int i = 1; i < quantos; ++i) {
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
