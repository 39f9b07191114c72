#include "Importa.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <limits>
#include <optional>
#include <sstream>
#include <string_view>
#include <system_error>

#include "Arquivo.h"
#include "ImportaCTe.h"
#include "ImportaNFSe.h"
#include "ImportaNFe.h"
#include "Progresso.h"
#include "Relatorio.h"
#include "Sistema.h"
#include "core/RegistroDe.h"

namespace kxdados {

namespace {

namespace fs = std::filesystem;
using Entrada = CKXDadosCM_RERegistroEntrada;
using Transporte = CKXDadosCM_CTConhecimentoTransporte;

constexpr std::uint64_t kMaximo16 = std::numeric_limits<std::uint16_t>::max();
constexpr std::uint64_t kMaximo31 = std::numeric_limits<std::int32_t>::max();
constexpr std::uint64_t kMaximo32 = std::numeric_limits<std::uint32_t>::max();

template <class Objeto, auto Poe, class T>
void PoeChave(Objeto& objeto, std::uint64_t valor) {
  (objeto.*Poe)(static_cast<T>(valor));
}

template <class Objeto, auto Poe, class T>
void PoeNaCondicao(Objeto& objeto, std::uint64_t valor) {
  (objeto.GetCondicaoPagamento().*Poe)(static_cast<T>(valor));
}

using Condicao = CKXDadosCM_CondicaoPagamento;
using i32 = std::int32_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

constexpr std::array kOpcoes = {
    OpcaoChave{"--fornecedor", "fornecedor", kMaximo31,
               PoeChave<Entrada, &Entrada::SetPonteiroFornecedor, i32>, nullptr},
    OpcaoChave{"--filial", "filial", kMaximo16, PoeChave<Entrada, &Entrada::SetPonteiroFilial, u16>,
               PoeChave<Transporte, &Transporte::SetPonteiroFilial, u16>},
    OpcaoChave{"--comprador", "comprador", kMaximo32,
               PoeChave<Entrada, &Entrada::SetPonteiroComprador, u32>, nullptr},
    OpcaoChave{"--tipo-documento", "tipo de documento", kMaximo16,
               PoeChave<Entrada, &Entrada::SetPonteiroTipoDocumento, u16>,
               PoeChave<Transporte, &Transporte::SetPonteiroTipoDocumento, u16>},
    OpcaoChave{"--transportadora", "transportadora", kMaximo31,
               PoeChave<Entrada, &Entrada::SetPonteiroTransportadora, i32>,
               PoeChave<Transporte, &Transporte::SetPonteiroTransportadora, i32>},
    OpcaoChave{"--operacao", "operação de compra", kMaximo31,
               PoeChave<Entrada, &Entrada::SetPonteiroOperacao, i32>,
               PoeChave<Transporte, &Transporte::SetPonteiroOperacao, i32>},
    OpcaoChave{"--departamento", "departamento", kMaximo31,
               PoeChave<Entrada, &Entrada::SetPonteiroDepartamento, i32>, nullptr},
    OpcaoChave{"--requisitante", "requisitante", kMaximo31,
               PoeChave<Entrada, &Entrada::SetPonteiroRequisitante, i32>, nullptr},
    OpcaoChave{"--classificacao", "classificação", kMaximo31,
               PoeChave<Entrada, &Entrada::SetPonteiroClassificacao, i32>,
               PoeChave<Transporte, &Transporte::SetPonteiroClassificacao, i32>},
    OpcaoChave{"--historico", "histórico", kMaximo16,
               PoeChave<Entrada, &Entrada::SetPonteiroHistorico, u16>,
               PoeChave<Transporte, &Transporte::SetPonteiroHistorico, u16>},
    OpcaoChave{"--municipio", "município", kMaximo16,
               PoeChave<Entrada, &Entrada::SetPonteiroMunicipio, u16>,
               PoeChave<Transporte, &Transporte::SetPonteiroMunicipio, u16>},
    OpcaoChave{"--municipio-destino", "município de destino", kMaximo16,
               PoeChave<Entrada, &Entrada::SetPonteiroMunicipioDestino, u16>,
               PoeChave<Transporte, &Transporte::SetPonteiroMunicipioDestino, u16>},
    OpcaoChave{"--condicao-pagamento", "condição de pagamento", kMaximo16,
               PoeNaCondicao<Entrada, &Condicao::SetPonteiroCondicaoPagamento, u16>,
               PoeNaCondicao<Transporte, &Condicao::SetPonteiroCondicaoPagamento, u16>},
    OpcaoChave{"--tipo-cobranca", "tipo de cobrança", kMaximo16,
               PoeNaCondicao<Entrada, &Condicao::SetPonteiroTipoCobranca, u16>,
               PoeNaCondicao<Transporte, &Condicao::SetPonteiroTipoCobranca, u16>},
    OpcaoChave{"--nsu", "número sequencial (NSU) do documento",
               std::numeric_limits<std::uint64_t>::max(),
               PoeChave<Entrada, &Entrada::SetNSU, std::uint64_t>, nullptr},
};

// What an element that holds a whole document is called in messages; null for any other element.
const char* EspecieDe(std::string_view elemento) {
  if (elemento == "NFe") return "nota";
  if (elemento == "NFSe") return "nota de serviço";
  if (elemento == "CTe" || elemento == "CTeSimp" || elemento == "CTeOS") return "conhecimento";
  return nullptr;
}

// The documents at most `niveis` below `no`: by themselves, with their protocol (nfeProc, cteProc,
// cteSimpProc, cteOSProc) or in a batch (enviNFe, enviCTe).
void JuntaDocumentos(pugi::xml_node no, int niveis, std::vector<pugi::xml_node>& documentos) {
  if (EspecieDe(NomeLocal(no)) != nullptr) {
    documentos.push_back(no);
  } else if (niveis > 0) {
    for (const pugi::xml_node filho : no.children()) {
      JuntaDocumentos(filho, niveis - 1, documentos);
    }
  }
}

const char* PorQueNaoEhDocumento(std::string_view raiz) {
  if (raiz == "DPS") {
    return "é uma declaração de serviço, ainda não uma nota: não tem número nem valor líquido";
  }
  const bool deServico =
      raiz.find("NFSe") != std::string_view::npos || raiz.find("Nfse") != std::string_view::npos;
  return deServico ? "é nota de serviço de outro leiaute, e não do nacional"
                   : "não é nota fiscal nem conhecimento de transporte eletrônico";
}

std::vector<pugi::xml_node> DocumentosDoArquivo(const pugi::xml_document& arquivo) {
  constexpr int kNiveis = 3;
  std::vector<pugi::xml_node> documentos;
  JuntaDocumentos(arquivo, kNiveis, documentos);
  if (documentos.empty()) {
    const std::string_view raiz = NomeLocal(arquivo.document_element());
    throw Falha(std::string(raiz), PorQueNaoEhDocumento(raiz));
  }
  return documentos;
}

// The object of each kind of document.
Entrada& ObjetoDe(Nota& nota) { return nota.Entrada; }
Entrada& ObjetoDe(NotaDeServico& nota) { return nota.Entrada; }
Transporte& ObjetoDe(Conhecimento& conhecimento) { return conhecimento.Objeto; }

void Poe(const OpcaoChave& opcao, std::uint64_t valor, Entrada& entrada) {
  opcao.PoeNaEntrada(entrada, valor);
}

void Poe(const OpcaoChave& opcao, std::uint64_t valor, Transporte& transporte) {
  if (opcao.PoeNoConhecimento != nullptr) opcao.PoeNoConhecimento(transporte, valor);
}

class Importacao {
 public:
  explicit Importacao(const OpcoesImporta& opcoes) : _opcoes(opcoes) {
    if (!opcoes.Grava.Acervo.empty()) _destino.emplace(opcoes.Grava);
  }

  // What is left when the archive fails or the user asks to end is not done.
  int Executa() {
    if (_opcoes.Caminhos.empty()) _arquivos.push_back({"-", false});
    for (const std::string& caminho : _opcoes.Caminhos) Junta(caminho);
    std::optional<Interrupcao> interrupcao;
    if (_destino) interrupcao.emplace();
    try {
      // Reports go on while they are written: only bookings need to be told of.
      std::optional<Progresso> progresso;
      if (_destino) progresso.emplace(static_cast<std::int64_t>(_arquivos.size()));
      for (const auto& [caminho, daPasta] : _arquivos) {
        if (Interrupcao::Pedida()) break;
        daPasta ? ArquivoDaPasta(caminho) : Arquivo(caminho);
        if (progresso) progresso->Avanca();
      }
      progresso.reset();
      if (_destino && !_destino->Conclui()) _falhou = true;
    } catch (const FalhaDoBanco& falha) {
      _destino->Falhou(falha);
      return 1;
    }
    return _falhou || Interrupcao::Pedida() ? 1 : 0;
  }

 private:
  struct AImportar {
    std::string Caminho;
    bool DaPasta;
  };

  void Erro(const std::string& origem, const Falha& falha) {
    EscreveErro(origem, falha);
    _falhou = true;
  }

  void Junta(const std::string& caminho) {
    std::error_code ignorado;
    if (fs::is_directory(Caminho(caminho), ignorado)) {
      Pasta(caminho);
    } else {
      _arquivos.push_back({caminho, false});
    }
  }

  void Pasta(const std::string& pasta) {
    std::error_code erro;
    std::vector<std::string> arquivos;
    for (fs::directory_iterator i(Caminho(pasta), erro), fim; !erro && i != fim;
         i.increment(erro)) {
      std::string extensao = Texto(i->path().extension());
      std::transform(extensao.begin(), extensao.end(), extensao.begin(),
                     [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
      std::error_code ignorado;
      if (extensao == ".xml" && !i->is_directory(ignorado)) arquivos.push_back(Texto(i->path()));
    }
    if (erro) return Erro(pasta, Falha("pasta", "não pode ser lida"));
    if (arquivos.empty()) return Erro(pasta, Falha("pasta", "não há nela nenhum arquivo .xml"));
    std::sort(arquivos.begin(), arquivos.end());
    for (std::string& arquivo : arquivos) _arquivos.push_back({std::move(arquivo), true});
  }

  // Nobody asked by name for a pipe or a device, which may never end.
  void ArquivoDaPasta(const std::string& arquivo) {
    std::error_code ignorado;
    const fs::file_status estado = fs::status(arquivo, ignorado);
    if (fs::exists(estado) && !fs::is_regular_file(estado)) {
      return Erro(arquivo, Falha("arquivo", "não é um arquivo comum"));
    }
    Arquivo(arquivo);
  }

  void Arquivo(const std::string& caminho) {
    const std::string origem = NomeDe(caminho);
    try {
      pugi::xml_document documento;
      const std::string bytes = LeArquivo(caminho, _opcoes.MaximoMiB, " (--maximo admite mais)");
      if (Interrupcao::Pedida()) return;  // who knows whether that was all
      AbreXML(bytes, documento);
      const auto documentos = DocumentosDoArquivo(documento);
      for (std::size_t i = 0; i < documentos.size(); ++i) {
        const std::string_view elemento = NomeLocal(documentos[i]);
        const std::string qual = documentos.size() == 1 ? std::string()
                                                        : std::string(" (") + EspecieDe(elemento) +
                                                              " " + std::to_string(i + 1) + ")";
        ImportaUm(origem + qual, elemento, documentos[i]);
      }
    } catch (const Falha& falha) {
      Erro(origem, falha);
    }
  }

  void ImportaUm(const std::string& origem, std::string_view elemento, pugi::xml_node no) try {
    if (elemento == "NFe") {
      Conta(origem, ImportaNFe(no));
    } else if (elemento == "NFSe") {
      Conta(origem, ImportaNFSe(no));
    } else {
      Conta(origem, ImportaCTe(no));
    }
  } catch (const Falha& falha) {
    Erro(origem, falha);
  }

  void Conta(const std::string& origem, auto documento) {
    auto& objeto = ObjetoDe(documento);
    for (const auto& [opcao, valor] : _opcoes.Chaves) Poe(*opcao, valor, objeto);
    _destino ? Arquiva(origem, objeto) : Relata(origem, documento, objeto);
    for (const Falha& falha : documento.Chaves) Erro(origem, falha);
  }

  template <class Objeto>
  void Arquiva(const std::string& origem, const Objeto& objeto) {
    const kx::RegistroDe registro(objeto);
    ConfereVolta(origem, Objeto(registro.GetPtr()) == objeto);
    _destino->Grava({&KXMetadados<typename Objeto::Registro>::kInfo, registro.GetPtr()}, origem);
  }

  void Relata(const std::string& origem, const auto& documento, const auto& objeto) {
    const Viagem viagem = Viaja(objeto, _opcoes.Campos);
    std::ostringstream relatorio;
    relatorio.exceptions(std::ios::badbit);  // memory that runs out must not cut the report short
    EscreveRelatorio(relatorio, origem, documento, viagem);
    std::cout << relatorio.str() << '\n';
    ConfereVolta(origem, viagem.Igual);
  }

  void ConfereVolta(const std::string& origem, bool igual) {
    if (!igual) Erro(origem, Falha("registro", "a ida e volta perdeu dados"));
  }

  const OpcoesImporta& _opcoes;
  std::vector<AImportar> _arquivos;
  std::optional<Destino> _destino;
  bool _falhou = false;
};

}  // namespace

std::span<const OpcaoChave> OpcoesChave() noexcept { return kOpcoes; }

int Importa(const OpcoesImporta& opcoes) try {
  return Importacao(opcoes).Executa();
} catch (const FalhaDoBanco& falha) {
  EscreveErro(opcoes.Grava.Acervo, Falha("acervo", falha.what()));
  return 1;
}

}  // namespace kxdados
