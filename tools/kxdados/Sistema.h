// What the tool asks of the operating system: SistemaPosix.cpp and SistemaWindows.cpp. Inside,
// every text is UTF-8, names of files too.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kxdados {

// The arguments of the command line after the program's name.
std::vector<std::string> Argumentos(int argc, char** argv);

// Whether the standard input is somebody at a keyboard.
bool EntradaEhTerminal();

// Whether the standard error is.
bool ErroEhTerminal();

// Whether the standard input brings nothing for so long, though it has not ended. On Windows, where
// pipes cannot be asked, it never seems so.
bool EntradaEspera(std::chrono::milliseconds quanto);

// For as long as it lives, Ctrl-C does not end the program but asks it to end, and ends the
// standard input. Asked a second time the program ends at once.
class Interrupcao {
 public:
  Interrupcao();
  Interrupcao(const Interrupcao&) = delete;
  Interrupcao& operator=(const Interrupcao&) = delete;
  ~Interrupcao();

  // Whether that was asked.
  static bool Pedida() noexcept;
};

// For as long as it lives, what is read and written in the standard streams passes byte for byte,
// and a console shows it as UTF-8. To be made before anything is read or written: the streams are
// then no longer kept in step with those of C, which halves the time of a long run.
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
