#include "Execucao.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

fs::path PastaNova() {
  std::string modelo = (fs::temp_directory_path() / "kxdados-XXXXXX").string();
  if (mkdtemp(modelo.data()) == nullptr) throw std::runtime_error("mkdtemp");
  return modelo;
}

std::string Cita(const std::string& argumento) { return "'" + argumento + "'"; }

}  // namespace

std::string LeArquivo(const fs::path& caminho) {
  std::ifstream arquivo(caminho, std::ios::binary);
  if (!arquivo) throw std::runtime_error("cannot read " + caminho.string());
  return {std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>()};
}

FerramentaTeste::FerramentaTeste() : _pasta(PastaNova()) { fs::create_directory(_pasta / "notas"); }

FerramentaTeste::~FerramentaTeste() {
  std::error_code ignorado;
  fs::remove_all(_pasta, ignorado);
}

std::string FerramentaTeste::Escreve(const std::string& nome, const std::string& bytes) {
  const fs::path caminho = _pasta / "notas" / nome;
  std::ofstream(caminho, std::ios::binary) << bytes;
  return caminho.string();
}

Execucao FerramentaTeste::Executa(const std::vector<std::string>& argumentos,
                                  const std::string& entrada) {
  std::ofstream(_pasta / "entrada", std::ios::binary) << entrada;
  std::string comando = Cita(KXDADOS_BIN);
  for (const std::string& argumento : argumentos) comando += " " + Cita(argumento);
  comando += " <" + Cita((_pasta / "entrada").string()) + " >" + Cita((_pasta / "saida").string()) +
             " 2>" + Cita((_pasta / "erros").string());
  const int estado = std::system(comando.c_str());
  return {WIFEXITED(estado) ? WEXITSTATUS(estado) : -1, LeArquivo(_pasta / "saida"),
          LeArquivo(_pasta / "erros")};
}

std::string NotaDeExemplo(const std::string& nome) {
  return LeArquivo(fs::path(KX_RAIZ) / "examples/notas" / nome);
}

std::string Troca(std::string texto, const std::string& velho, const std::string& novo) {
  const std::size_t posicao = texto.find(velho);
  if (posicao == std::string::npos) throw std::runtime_error("not in the example: " + velho);
  return texto.replace(posicao, velho.size(), novo);
}
