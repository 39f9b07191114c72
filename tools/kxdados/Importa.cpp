#include "Importa.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <sstream>
#include <system_error>

#include "ImportaNFe.h"
#include "Relatorio.h"

namespace kxdados {

namespace {

namespace fs = std::filesystem;
using Entrada = CKXDadosCM_RERegistroEntrada;

constexpr std::uint64_t kMaximo16 = std::numeric_limits<std::uint16_t>::max();
constexpr std::uint64_t kMaximo31 = std::numeric_limits<std::int32_t>::max();
constexpr std::uint64_t kMaximo32 = std::numeric_limits<std::uint32_t>::max();
constexpr const char* kEntradaPadrao = "(entrada padrão)";

template <auto Poe, class T>
void PoeChave(Entrada& entrada, std::uint64_t valor) {
  (entrada.*Poe)(static_cast<T>(valor));
}

template <auto Poe, class T>
void PoeNaCondicao(Entrada& entrada, std::uint64_t valor) {
  (entrada.GetCondicaoPagamento().*Poe)(static_cast<T>(valor));
}

using Condicao = CKXDadosCM_CondicaoPagamento;
using i32 = std::int32_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

constexpr std::array kOpcoes = {
    OpcaoChave{"--fornecedor", "fornecedor", kMaximo31,
               PoeChave<&Entrada::SetPonteiroFornecedor, i32>},
    OpcaoChave{"--filial", "filial", kMaximo16, PoeChave<&Entrada::SetPonteiroFilial, u16>},
    OpcaoChave{"--comprador", "comprador", kMaximo32,
               PoeChave<&Entrada::SetPonteiroComprador, u32>},
    OpcaoChave{"--tipo-documento", "tipo de documento", kMaximo16,
               PoeChave<&Entrada::SetPonteiroTipoDocumento, u16>},
    OpcaoChave{"--transportadora", "transportadora", kMaximo31,
               PoeChave<&Entrada::SetPonteiroTransportadora, i32>},
    OpcaoChave{"--operacao", "operação de compra", kMaximo31,
               PoeChave<&Entrada::SetPonteiroOperacao, i32>},
    OpcaoChave{"--departamento", "departamento", kMaximo31,
               PoeChave<&Entrada::SetPonteiroDepartamento, i32>},
    OpcaoChave{"--requisitante", "requisitante", kMaximo31,
               PoeChave<&Entrada::SetPonteiroRequisitante, i32>},
    OpcaoChave{"--classificacao", "classificação", kMaximo31,
               PoeChave<&Entrada::SetPonteiroClassificacao, i32>},
    OpcaoChave{"--historico", "histórico", kMaximo16,
               PoeChave<&Entrada::SetPonteiroHistorico, u16>},
    OpcaoChave{"--municipio", "município", kMaximo16,
               PoeChave<&Entrada::SetPonteiroMunicipio, u16>},
    OpcaoChave{"--condicao-pagamento", "condição de pagamento", kMaximo16,
               PoeNaCondicao<&Condicao::SetPonteiroCondicaoPagamento, u16>},
    OpcaoChave{"--tipo-cobranca", "tipo de cobrança", kMaximo16,
               PoeNaCondicao<&Condicao::SetPonteiroTipoCobranca, u16>},
    OpcaoChave{"--nsu", "número sequencial (NSU) do documento",
               std::numeric_limits<std::uint64_t>::max(),
               PoeChave<&Entrada::SetNSU, std::uint64_t>},
};

class Importacao {
 public:
  explicit Importacao(const OpcoesImporta& opcoes) : _opcoes(opcoes) {}

  int Executa() {
    if (_opcoes.Caminhos.empty()) Arquivo("-");
    for (const std::string& caminho : _opcoes.Caminhos) {
      std::error_code ignorado;
      if (fs::is_directory(caminho, ignorado)) {
        Pasta(caminho);
      } else {
        Arquivo(caminho);
      }
    }
    return _falhou ? 1 : 0;
  }

 private:
  void Erro(const std::string& origem, const Falha& falha) {
    std::cout.flush();
    std::cerr << origem << ": " << falha.Elemento() << ": " << falha.what() << '\n';
    _falhou = true;
  }

  void Pasta(const std::string& pasta) {
    std::error_code erro;
    std::vector<std::string> arquivos;
    for (fs::directory_iterator i(pasta, erro), fim; !erro && i != fim; i.increment(erro)) {
      std::string extensao = i->path().extension().string();
      std::transform(extensao.begin(), extensao.end(), extensao.begin(),
                     [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
      std::error_code ignorado;
      if (extensao == ".xml" && !i->is_directory(ignorado)) arquivos.push_back(i->path().string());
    }
    if (erro) return Erro(pasta, Falha("pasta", "não pode ser lida"));
    if (arquivos.empty()) return Erro(pasta, Falha("pasta", "não há nela nenhum arquivo .xml"));
    std::sort(arquivos.begin(), arquivos.end());
    for (const std::string& arquivo : arquivos) Arquivo(arquivo);
  }

  static std::string Le(std::istream& entrada) {
    std::string bytes{std::istreambuf_iterator<char>(entrada), std::istreambuf_iterator<char>()};
    if (entrada.bad()) throw Falha("arquivo", "não pode ser lido");
    return bytes;
  }

  static std::string Le(const std::string& caminho) {
    if (caminho == "-") return Le(std::cin);
    std::ifstream arquivo(caminho, std::ios::binary);
    if (!arquivo) {
      throw Falha("arquivo", errno == ENOENT ? "não existe" : "não pode ser aberto");
    }
    return Le(arquivo);
  }

  void Arquivo(const std::string& caminho) {
    const std::string origem = caminho == "-" ? kEntradaPadrao : caminho;
    try {
      pugi::xml_document documento;
      AbreXML(Le(caminho), documento);
      const auto notas = NotasDoDocumento(documento);
      for (std::size_t i = 0; i < notas.size(); ++i) {
        const bool varias = notas.size() > 1;
        Importa(origem + (varias ? " (nota " + std::to_string(i + 1) + ")" : ""), notas[i]);
      }
    } catch (const Falha& falha) {
      Erro(origem, falha);
    }
  }

  // One invoice; what is wrong with it does not touch the others.
  void Importa(const std::string& origem, pugi::xml_node nfe) {
    try {
      Nota nota = ImportaNFe(nfe);
      for (const auto& [opcao, valor] : _opcoes.Chaves) opcao->Poe(nota.Entrada, valor);
      const Viagem viagem = Viaja(nota.Entrada, _opcoes.Campos);
      std::ostringstream relatorio;
      EscreveRelatorio(relatorio, origem, nota, viagem);
      std::cout << relatorio.str() << '\n';
      for (const Falha& falha : nota.Chaves) Erro(origem, falha);
      if (!viagem.Igual) Erro(origem, Falha("registro", "a ida e volta perdeu dados"));
    } catch (const Falha& falha) {
      Erro(origem, falha);
    }
  }

  const OpcoesImporta& _opcoes;
  bool _falhou = false;
};

}  // namespace

std::span<const OpcaoChave> OpcoesChave() noexcept { return kOpcoes; }

int Importa(const OpcoesImporta& opcoes) { return Importacao(opcoes).Executa(); }

}  // namespace kxdados
