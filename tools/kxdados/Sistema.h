// What the tool asks of the operating system: SistemaPosix.cpp and SistemaWindows.cpp. Inside,
// every text is UTF-8, names of files too.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kxdados {

// The arguments of the command line after the program's name.
std::vector<std::string> Argumentos(int argc, char** argv);

// Whether the standard input is somebody at a keyboard.
bool EntradaEhTerminal();

// For as long as it lives, what is read and written in the standard streams passes byte for byte,
// and a console shows it as UTF-8.
class FluxosPadrao {
 public:
  FluxosPadrao();
  FluxosPadrao(const FluxosPadrao&) = delete;
  FluxosPadrao& operator=(const FluxosPadrao&) = delete;
  ~FluxosPadrao();

 private:
  [[maybe_unused]] unsigned _pagina = 0;  // the console's code page before
};

inline std::filesystem::path Caminho(std::string_view texto) {
  return {std::u8string_view(reinterpret_cast<const char8_t*>(texto.data()), texto.size())};
}

inline std::string Texto(const std::filesystem::path& caminho) {
  const std::u8string texto = caminho.u8string();
  return {reinterpret_cast<const char*>(texto.data()), texto.size()};
}

}  // namespace kxdados
