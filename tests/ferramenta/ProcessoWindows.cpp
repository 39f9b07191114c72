#include <windows.h>

#include "Processo.h"

namespace {

namespace fs = std::filesystem;

// Between quotes, as the system's own splitting of a command line undoes them.
std::wstring Cita(const std::string& argumento) {
  std::wstring citado = L"\"";
  std::size_t barras = 0;
  const auto poe = [&](std::size_t quantas) { citado.append(quantas, L'\\'); };
  for (const wchar_t c : fs::path(std::u8string(argumento.begin(), argumento.end())).wstring()) {
    if (c == L'\\') {
      ++barras;
      continue;
    }
    poe(c == L'"' ? 2 * barras + 1 : barras);
    barras = 0;
    citado += c;
  }
  poe(2 * barras);
  return citado + L"\"";
}

class Arquivo {
 public:
  Arquivo(const fs::path& caminho, DWORD acesso, DWORD criacao) {
    SECURITY_ATTRIBUTES herdado{sizeof(herdado), nullptr, TRUE};
    _arquivo = CreateFileW(caminho.c_str(), acesso, FILE_SHARE_READ, &herdado, criacao,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
  }
  Arquivo(const Arquivo&) = delete;
  Arquivo& operator=(const Arquivo&) = delete;
  ~Arquivo() { CloseHandle(_arquivo); }
  HANDLE Alca() const { return _arquivo; }

 private:
  HANDLE _arquivo;
};

}  // namespace

int RodaPrograma(const std::string& programa, const std::vector<std::string>& argumentos,
                 const fs::path& entrada, const fs::path& saida, const fs::path& erros) {
  std::wstring comando = Cita(programa);
  for (const std::string& argumento : argumentos) comando += L" " + Cita(argumento);
  const Arquivo le(entrada, GENERIC_READ, OPEN_EXISTING);
  const Arquivo escreve(saida, GENERIC_WRITE, CREATE_ALWAYS);
  const Arquivo reclama(erros, GENERIC_WRITE, CREATE_ALWAYS);
  STARTUPINFOW inicio{};
  inicio.cb = sizeof(inicio);
  inicio.dwFlags = STARTF_USESTDHANDLES;
  inicio.hStdInput = le.Alca();
  inicio.hStdOutput = escreve.Alca();
  inicio.hStdError = reclama.Alca();
  PROCESS_INFORMATION processo{};
  if (CreateProcessW(nullptr, comando.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &inicio,
                     &processo) == 0) {
    return -1;
  }
  WaitForSingleObject(processo.hProcess, INFINITE);
  DWORD estado = 0;
  GetExitCodeProcess(processo.hProcess, &estado);
  CloseHandle(processo.hThread);
  CloseHandle(processo.hProcess);
  return static_cast<int>(estado);
}
