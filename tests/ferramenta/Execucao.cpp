#include "Execucao.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include "Processo.h"

namespace fs = std::filesystem;

namespace {

fs::path PastaNova() {
  std::random_device sorte;
  for (;;) {
    fs::path pasta = fs::temp_directory_path() / ("kxdados-" + std::to_string(sorte()));
    if (fs::create_directory(pasta)) return pasta;
  }
}

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
  const fs::path caminho = _pasta / "notas" / std::u8string(nome.begin(), nome.end());
  std::ofstream(caminho, std::ios::binary) << bytes;
  const std::u8string texto = caminho.u8string();
  return {texto.begin(), texto.end()};
}

Execucao FerramentaTeste::Executa(const std::vector<std::string>& argumentos,
                                  const std::string& entrada) {
  std::ofstream(_pasta / "entrada", std::ios::binary) << entrada;
  const int status =
      RodaPrograma(KXDADOS_BIN, argumentos, _pasta / "entrada", _pasta / "saida", _pasta / "erros");
  return {status, LeArquivo(_pasta / "saida"), LeArquivo(_pasta / "erros")};
}

std::string NotaDeExemplo(const std::string& nome) {
  return LeArquivo(fs::path(KX_RAIZ) / "examples/notas" / nome);
}

std::string Troca(std::string texto, const std::string& velho, const std::string& novo) {
  const std::size_t posicao = texto.find(velho);
  if (posicao == std::string::npos) throw std::runtime_error("not in the example: " + velho);
  return texto.replace(posicao, velho.size(), novo);
}

std::size_t Ocorrencias(const std::string& texto, const std::string& trecho) {
  std::size_t quantas = 0;
  for (std::size_t i = texto.find(trecho); i != std::string::npos; i = texto.find(trecho, i + 1)) {
    ++quantas;
  }
  return quantas;
}
