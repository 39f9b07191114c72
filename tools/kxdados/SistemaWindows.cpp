#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>
// After windows.h, whose types it uses.
#include <shellapi.h>

#include <atomic>
#include <iostream>
#include <memory>

#include "Sistema.h"

namespace kxdados {

namespace {

std::string UTF8(const wchar_t* largo) {
  const int n = WideCharToMultiByte(CP_UTF8, 0, largo, -1, nullptr, 0, nullptr, nullptr);
  if (n <= 1) return {};
  std::string texto(static_cast<std::size_t>(n), '\0');
  WideCharToMultiByte(CP_UTF8, 0, largo, -1, texto.data(), n, nullptr, nullptr);
  texto.pop_back();  // the terminator
  return texto;
}

std::atomic<bool> pedida = false;

// In a thread of its own. The default comes behind it, and ends the program.
BOOL WINAPI Interrompe(DWORD /*qual*/) { return pedida.exchange(true) ? FALSE : TRUE; }

}  // namespace

// Not from argv, which has the words in the code page of the system.
std::vector<std::string> Argumentos(int /*argc*/, char** /*argv*/) {
  int quantos = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> largos(
      CommandLineToArgvW(GetCommandLineW(), &quantos), LocalFree);
  std::vector<std::string> argumentos;
  for (int i = 1; largos != nullptr && i < quantos; ++i) {
    argumentos.push_back(UTF8(largos.get()[i]));
  }
  return argumentos;
}

bool EntradaEhTerminal() { return _isatty(_fileno(stdin)) != 0; }

bool ErroEhTerminal() { return _isatty(_fileno(stderr)) != 0; }

bool EntradaEspera(std::chrono::milliseconds /*quanto*/) { return false; }

Interrupcao::Interrupcao() { SetConsoleCtrlHandler(&Interrompe, TRUE); }

Interrupcao::~Interrupcao() { SetConsoleCtrlHandler(&Interrompe, FALSE); }

bool Interrupcao::Pedida() noexcept { return pedida; }

FluxosPadrao::FluxosPadrao() : _pagina(GetConsoleOutputCP()) {
  std::ios::sync_with_stdio(false);
  for (FILE* fluxo : {stdin, stdout, stderr}) _setmode(_fileno(fluxo), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

FluxosPadrao::~FluxosPadrao() {
  std::cout.flush();
  if (_pagina != 0) SetConsoleOutputCP(_pagina);
}

}  // namespace kxdados
