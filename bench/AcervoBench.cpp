// The tool at work on many invoices: from their files into an archive, shown from it as JSON, and
// booked again from those lines. In real time, as much of it is waiting for the disk.
#include <benchmark/benchmark.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "kxldados/ChaveNFe.h"
#include "tools/kxdados/Importa.h"
#include "tools/kxdados/Mostra.h"

namespace {

namespace fs = std::filesystem;

// Standard input and output are strings of ours while it lives.
class Correntes {
 public:
  explicit Correntes(const std::string& entrada = {}) : _entrada(entrada) {}
  Correntes(const Correntes&) = delete;
  Correntes& operator=(const Correntes&) = delete;
  ~Correntes() {
    std::cin.rdbuf(_cin);
    std::cout.rdbuf(_cout);
    std::cin.clear();
  }
  std::string Saida() const { return _saida.str(); }

 private:
  std::stringbuf _entrada;
  std::stringbuf _saida;
  std::streambuf* const _cin = std::cin.rdbuf(&_entrada);
  std::streambuf* const _cout = std::cout.rdbuf(&_saida);
};

std::string Conteudo(const fs::path& caminho) {
  std::ifstream arquivo(caminho, std::ios::binary);
  return {std::istreambuf_iterator<char>(arquivo), {}};
}

// The invoice's key with another numeric code, and the check digit that belongs to it.
std::string OutraChave(std::string chave, std::size_t codigo) {
  constexpr std::size_t kCodigo = 35;
  constexpr std::size_t kDigitos = 8;
  const std::string digitos = std::to_string(codigo);
  chave.replace(kCodigo, kDigitos, std::string(kDigitos - digitos.size(), '0') + digitos);
  _KX_NFE_ps aceita{};
  for (chave.back() = '0'; kx::ChaveDeTexto(chave, aceita) != kx::ErroChave::Nenhum;)
    ++chave.back();
  return chave;
}

void TrocaTudo(std::string& texto, const std::string& velho, const std::string& novo) {
  for (std::size_t i = 0; (i = texto.find(velho, i)) != std::string::npos; i += novo.size()) {
    texto.replace(i, velho.size(), novo);
  }
}

// Before the key of an invoice of goods.
constexpr std::string_view kId = "Id=\"NFe";

// A folder of its own with the sample invoices, each under many keys; removed at the end.
class Pasta {
 public:
  explicit Pasta(std::size_t quantas) {
    fs::create_directory(Raiz);
    std::vector<std::string> modelos;
    for (const auto& nota : fs::directory_iterator(KX_NOTAS)) {
      std::string texto = Conteudo(nota.path());
      if (texto.find(kId) != std::string::npos) modelos.push_back(std::move(texto));
    }
    for (std::size_t i = 0; i < quantas; ++i) {
      std::string nota = modelos[i % modelos.size()];
      const std::string chave = nota.substr(nota.find(kId) + kId.size(), 44);
      TrocaTudo(nota, chave, OutraChave(chave, i));
      Notas.push_back((Raiz / (std::to_string(i) + ".xml")).string());
      std::ofstream(Notas.back(), std::ios::binary) << nota;
    }
  }
  Pasta(const Pasta&) = delete;
  Pasta& operator=(const Pasta&) = delete;
  ~Pasta() { fs::remove_all(Raiz); }

  // No archive there, not even what an earlier one left beside it.
  std::string AcervoNovo() const {
    const std::string caminho = (Raiz / "acervo.db").string();
    for (const char* sufixo : {"", "-wal", "-shm"}) fs::remove(caminho + sufixo);
    return caminho;
  }

  const fs::path Raiz =
      fs::temp_directory_path() / ("kxbench." + std::to_string(std::time(nullptr)));
  std::vector<std::string> Notas;
};

const Pasta& NotasDe(benchmark::State& estado) {
  static const Pasta pasta(static_cast<std::size_t>(estado.range(0)));
  return pasta;
}

// Whether all were booked; else the benchmark fails.
bool Conta(benchmark::State& estado, const Correntes& correntes) {
  const std::string gravados = "gravados " + std::to_string(estado.range(0)) + ',';
  if (correntes.Saida().find(gravados) != std::string::npos) return true;
  estado.SkipWithError("not all were booked");
  return false;
}

void Importa(const Pasta& pasta, const std::string& acervo) {
  kxdados::OpcoesImporta opcoes;
  opcoes.Caminhos = pasta.Notas;
  opcoes.Grava.Acervo = acervo;
  kxdados::Importa(opcoes);
}

// The archive's documents as the tool writes them.
const std::string& Linhas(benchmark::State& estado) {
  static const std::string linhas = [&estado] {
    const Correntes correntes;
    const Pasta& pasta = NotasDe(estado);
    const std::string acervo = (pasta.Raiz / "linhas.db").string();
    Importa(pasta, acervo);
    kxdados::OpcoesMostra opcoes{{acervo}, {}, true, false};
    const Correntes mostradas;
    kxdados::Mostra(opcoes);
    return mostradas.Saida();
  }();
  return linhas;
}

void AcervoImporta(benchmark::State& estado) {
  const Pasta& pasta = NotasDe(estado);
  for (auto _ : estado) {
    estado.PauseTiming();
    const Correntes correntes;
    const std::string acervo = pasta.AcervoNovo();
    estado.ResumeTiming();
    Importa(pasta, acervo);
    if (!Conta(estado, correntes)) return;
  }
}

void AcervoImportaPugixml(benchmark::State& estado) {
  const Pasta& pasta = NotasDe(estado);
  for (auto _ : estado) {
    for (const std::string& nota : pasta.Notas) {
      pugi::xml_document documento;
      benchmark::DoNotOptimize(documento.load_file(nota.c_str()).status);
    }
  }
}

void AcervoMostra(benchmark::State& estado) {
  const std::string& linhas = Linhas(estado);
  kxdados::OpcoesMostra opcoes{{(NotasDe(estado).Raiz / "linhas.db").string()}, {}, true, false};
  for (auto _ : estado) {
    const Correntes correntes;
    kxdados::Mostra(opcoes);
    estado.PauseTiming();
    if (correntes.Saida() != linhas) estado.SkipWithError("other lines");
    estado.ResumeTiming();
  }
}

void AcervoMostraNlohmann(benchmark::State& estado) {
  std::vector<nlohmann::ordered_json> objetos;
  std::istringstream linhas(Linhas(estado));
  for (std::string linha; std::getline(linhas, linha);) {
    objetos.push_back(nlohmann::ordered_json::parse(linha));
  }
  for (auto _ : estado) {
    const Correntes correntes;
    for (const auto& objeto : objetos) std::cout << objeto.dump() << '\n';
  }
}

void AcervoGrava(benchmark::State& estado) {
  const std::string& linhas = Linhas(estado);
  for (auto _ : estado) {
    estado.PauseTiming();
    const Correntes correntes(linhas);
    const std::string acervo = NotasDe(estado).AcervoNovo();
    estado.ResumeTiming();
    kxdados::Grava({acervo, false});
    if (!Conta(estado, correntes)) return;
  }
}

void AcervoGravaNlohmann(benchmark::State& estado) {
  const std::string& linhas = Linhas(estado);
  for (auto _ : estado) {
    const Correntes correntes(linhas);
    for (std::string linha; std::getline(std::cin, linha);) {
      const auto objeto = nlohmann::json::parse(linha);
      benchmark::DoNotOptimize(&objeto);
    }
  }
}

void Muitas(benchmark::internal::Benchmark* medida) {
  medida->Arg(3000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
}

}  // namespace

BENCHMARK(AcervoImporta)->Apply(Muitas);
BENCHMARK(AcervoImportaPugixml)->Apply(Muitas);
BENCHMARK(AcervoMostra)->Apply(Muitas);
BENCHMARK(AcervoMostraNlohmann)->Apply(Muitas);
BENCHMARK(AcervoGrava)->Apply(Muitas);
BENCHMARK(AcervoGravaNlohmann)->Apply(Muitas);
