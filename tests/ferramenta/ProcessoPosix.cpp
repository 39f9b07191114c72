#include <sys/wait.h>

#include <cstdlib>

#include "Processo.h"

namespace {

std::string Cita(const std::string& argumento) { return "'" + argumento + "'"; }

}  // namespace

int RodaPrograma(const std::string& programa, const std::vector<std::string>& argumentos,
                 const std::filesystem::path& entrada, const std::filesystem::path& saida,
                 const std::filesystem::path& erros) {
  std::string comando = Cita(programa);
  for (const std::string& argumento : argumentos) comando += " " + Cita(argumento);
  comando +=
      " <" + Cita(entrada.string()) + " >" + Cita(saida.string()) + " 2>" + Cita(erros.string());
  const int estado = std::system(comando.c_str());
  return WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
}
