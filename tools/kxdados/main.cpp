// kxdados: imports electronic invoices as goods-receipt entries and electronic freight bills as
// freight bills, keeps records in archives, shows and compares them, and shows their layout.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Grava.h"
#include "Importa.h"
#include "Leiaute.h"
#include "Mostra.h"
#include "Referencia.h"
#include "Sistema.h"
#include "compras/KXDadosCompras.h"

namespace {

constexpr int kErro = 1;
constexpr int kErroDeUso = 2;
constexpr std::uint64_t kMaximoMiB = 1U << 20;

// What the user typed about the keys, in the order of OpcoesChave.
using Digitados = std::vector<std::string>;

CLI::Validator NumeroAte(std::uint64_t maximo) {
  const auto confere = [maximo](const std::string& texto) -> std::string {
    std::uint64_t valor = 0;
    const char* fim = texto.data() + texto.size();
    const auto lido = std::from_chars(texto.data(), fim, valor);
    if (lido.ec == std::errc() && lido.ptr == fim && valor <= maximo) return {};
    return "não é um número de 0 a " + std::to_string(maximo) + ": " + texto;
  };
  return {confere, ""};
}

// What SQLite would take for a database that ends with the program.
CLI::Validator ArquivoQueFica() {
  const auto confere = [](const std::string& texto) -> std::string {
    if (!texto.empty() && texto != ":memory:") return {};
    return "não é o nome de um arquivo: \"" + texto + '"';
  };
  return {confere, ""};
}

void Traduz(CLI::App& app) {
  app.set_help_flag("-h,--help,--ajuda", "Mostra esta ajuda e termina")->group("Opções");
  app.option_defaults()->group("Opções");
  const auto formato = std::dynamic_pointer_cast<CLI::Formatter>(app.get_formatter());
  formato->label("Usage", "Uso");
  formato->label("OPTIONS", "OPÇÕES");
  formato->label("Positionals", "Argumentos");
  formato->label("SUBCOMMAND", "COMANDO");
  formato->label("Excludes", "sem");
  formato->column_width(34);
}

CLI::App* Comando(CLI::App& app, const char* nome, const char* ajuda, const char* fim) {
  CLI::App* comando = app.add_subcommand(nome, ajuda);
  comando->group("Comandos");
  comando->get_help_ptr()->group("Opções");
  comando->footer(fim);
  return comando;
}

void PoeSubstitui(CLI::App& comando, bool& substitui) {
  comando.add_flag("--substitui", substitui,
                   "Troca o documento do acervo que tem a mesma chave e outro conteúdo");
}

CLI::App* MontaImporta(CLI::App& app, kxdados::OpcoesImporta& opcoes, Digitados& digitados) {
  CLI::App* comando = Comando(
      app, "importa",
      "Importa notas fiscais (NF-e 1.10 a 4.00), notas de serviço (NFS-e nacional 1.00 e 1.01) e "
      "conhecimentos de transporte (CT-e e CT-e OS 3.00 e 4.00)",
      "As chaves são das tabelas do sistema e valem para todos os documentos importados que as\n"
      "tenham. Termina com 1 se algum documento teve erro; os demais são importados.");
  comando
      ->add_option("CAMINHO", opcoes.Caminhos,
                   "Arquivos, pastas (todos os .xml) ou - (entrada padrão)")
      ->type_name("");
  comando->add_flag("--campos", opcoes.Campos, "Mostra todos os campos que não estão vazios");
  comando
      ->add_option("--maximo", opcoes.MaximoMiB,
                   "Tamanho máximo de um arquivo, em MiB: " + std::to_string(opcoes.MaximoMiB) +
                       ", se não se diz outro")
      ->check(NumeroAte(kMaximoMiB))
      ->type_name("N");
  comando
      ->add_option("--grava", opcoes.Grava.Acervo,
                   "Em vez de relatar, grava os documentos no acervo, que é criado se não existe")
      ->check(ArquivoQueFica())
      ->type_name("ACERVO");
  PoeSubstitui(*comando, opcoes.Grava.Substitui);
  const auto chaves = kxdados::OpcoesChave();
  digitados.resize(chaves.size());
  for (std::size_t i = 0; i < chaves.size(); ++i) {
    comando->add_option(chaves[i].Nome, digitados[i], "Chave: " + std::string(chaves[i].Ajuda))
        ->check(NumeroAte(chaves[i].Maximo))
        ->type_name("N")
        ->group("Chaves");
  }
  return comando;
}

CLI::Validator Pasta() {
  const auto confere = [](const std::string& texto) -> std::string {
    std::error_code ignorado;
    if (std::filesystem::is_directory(kxdados::Caminho(texto), ignorado)) return {};
    return "não é uma pasta: " + texto;
  };
  return {confere, ""};
}

CLI::App* MontaLeiaute(CLI::App& app, std::string& registro, std::string& pasta) {
  CLI::App* comando = Comando(app, "leiaute", "Mostra o leiaute dos registros", "");
  auto* nome =
      comando
          ->add_option("REGISTRO", registro, "Nome do registro; sem ele, lista todos os registros")
          ->type_name("");
  comando->add_option("--tudo", pasta, "Grava na PASTA uma página de cada registro, em Markdown")
      ->type_name("PASTA")
      ->check(Pasta())
      ->excludes(nome);
  return comando;
}

CLI::App* MontaMostra(CLI::App& app, kxdados::OpcoesMostra& opcoes) {
  CLI::App* comando =
      Comando(app, "mostra", "Mostra documentos de acervos e de arquivos de imagens",
              "Termina com 1 se algum documento não pôde ser mostrado; os demais são mostrados.");
  comando
      ->add_option("ARQUIVO", opcoes.Caminhos,
                   "Acervos, arquivos com uma imagem ou mais, ou - (imagens, entrada padrão)")
      ->type_name("");
  auto* json = comando->add_flag("--json", opcoes.Json, "Um objeto JSON por linha");
  comando->add_flag("--imagem", opcoes.Imagem, "Os bytes das imagens, e nada mais")->excludes(json);
  comando->add_option("--chave", opcoes.Quais.Chave, "Somente o documento com a chave")
      ->transform(kxdados::ChaveGuardada)
      ->type_name("CHAVE");
  comando->add_option("--numero", opcoes.Quais.Numero, "Somente os documentos com o número")
      ->type_name("NÚMERO");
  return comando;
}

CLI::App* MontaCompara(CLI::App& app, kxdados::OpcoesCompara& opcoes) {
  CLI::App* comando =
      Comando(app, "compara", "Diz o que mudou de um acervo ou uma imagem para outra",
              "De um documento em cada arquivo, compara esses dois; de mais, os que têm a mesma "
              "chave.\nTermina com 0 se são iguais, com 1 se não são, com 2 se não se comparam.");
  comando
      ->add_option("ARQUIVO", opcoes.Caminhos,
                   "Dois acervos ou arquivos de imagens, antes e depois; um - é a entrada padrão. "
                   "Um só, com duas chaves ou números, compara esses dois documentos dele")
      ->type_name("")
      ->required()
      ->expected(1, 2);
  comando->add_flag("--json", opcoes.Json, "Um objeto JSON por diferença e linha");
  comando->add_option("--chave", opcoes.Chaves, "Chave do documento, em ambos; ou de cada um")
      ->transform(kxdados::ChaveGuardada)
      ->type_name("CHAVE")
      ->expected(1, 2);
  comando->add_option("--numero", opcoes.Numeros, "Número do documento, em ambos; ou de cada um")
      ->type_name("NÚMERO")
      ->expected(1, 2);
  return comando;
}

CLI::App* MontaGrava(CLI::App& app, kxdados::OpcoesGrava& opcoes) {
  CLI::App* comando =
      Comando(app, "grava", "Grava num acervo documentos em JSON, da entrada padrão",
              "Um documento por linha, como mostra --json os escreve. Termina com 1 se algum foi\n"
              "recusado; os demais são gravados.");
  comando->add_option("ACERVO", opcoes.Acervo, "Arquivo do acervo; se não existe, é criado")
      ->check(ArquivoQueFica())
      ->type_name("")
      ->required();
  PoeSubstitui(*comando, opcoes.Substitui);
  return comando;
}

CLI::App* MontaConfere(CLI::App& app, std::string& acervo) {
  CLI::App* comando =
      Comando(app, "confere", "Confere um acervo: o banco de dados, as imagens e o que diz delas",
              "Termina com 1 se algo está errado.");
  comando->add_option("ACERVO", acervo, "Arquivo do acervo")->type_name("")->required();
  return comando;
}

// What follows the message of the parser: the argument that it is about.
std::string Argumento(const CLI::ParseError& erro) {
  const std::string_view texto = erro.what();
  const std::size_t dois = texto.find(": ");
  return std::string(dois == std::string_view::npos ? texto : texto.substr(dois + 2));
}

std::string Motivo(const CLI::ParseError& erro) {
  switch (static_cast<CLI::ExitCodes>(erro.get_exit_code())) {
    case CLI::ExitCodes::ExtrasError:
      return "argumento desconhecido: " + Argumento(erro);
    case CLI::ExitCodes::ValidationError:
      return erro.what();
    case CLI::ExitCodes::RequiredError:
      return std::string_view(erro.what()).find("subcommand") != std::string_view::npos
                 ? "comando ausente ou desconhecido"
                 : "falta um argumento";
    case CLI::ExitCodes::ExcludesError:
      return "opções que não se usam juntas: " + std::string(erro.what());
    default:
      return "falta o valor de uma opção, ou há valores demais";
  }
}

int Termina(const CLI::App& app, const CLI::ParseError& erro) {
  if (erro.get_exit_code() == 0) return app.exit(erro, std::cout, std::cerr);
  std::cerr << "kxdados: uso: " << Motivo(erro) << " (veja kxdados --help)\n";
  return kErroDeUso;
}

// Without arguments a terminal would be waited for.
bool FaltaEntrada(const std::vector<std::string>& caminhos) {
  if (!caminhos.empty() || !kxdados::EntradaEhTerminal()) return false;
  std::cerr << "kxdados: uso: informe um arquivo, uma pasta ou - (veja kxdados --help)\n";
  return true;
}

int ExecutaMostra(const kxdados::OpcoesMostra& opcoes) {
  return FaltaEntrada(opcoes.Caminhos) ? kErroDeUso : kxdados::Mostra(opcoes);
}

int ExecutaCompara(const kxdados::OpcoesCompara& opcoes) {
  if (opcoes.Caminhos.size() == 2 || opcoes.Chaves.size() == 2 || opcoes.Numeros.size() == 2) {
    const int status = kxdados::Compara(opcoes);
    return std::cout.flush() ? status : kErroDeUso;
  }
  std::cerr << "kxdados: uso: falta o outro arquivo, ou a outra chave (veja kxdados --help)\n";
  return kErroDeUso;
}

int ExecutaImporta(kxdados::OpcoesImporta& opcoes, const Digitados& digitados) {
  if (FaltaEntrada(opcoes.Caminhos)) return kErroDeUso;
  const auto chaves = kxdados::OpcoesChave();
  for (std::size_t i = 0; i < chaves.size(); ++i) {
    if (!digitados[i].empty()) opcoes.Chaves.emplace_back(&chaves[i], std::stoull(digitados[i]));
  }
  return kxdados::Importa(opcoes);
}

int ExecutaLeiaute(const std::string& registro, const std::string& pasta) {
  if (!pasta.empty()) return kxdados::EscreveReferencia(pasta) ? 0 : kErro;
  if (registro.empty()) {
    kxdados::ListaRegistros(std::cout);
    return 0;
  }
  return kxdados::EscreveLeiaute(std::cout, std::cerr, registro) ? 0 : kErro;
}

int Executa(int argc, char** argv) {
  const kxdados::FluxosPadrao fluxos;
  CLI::App app("Ferramenta dos dados de compras");
  app.name("kxdados");
  app.set_version_flag("--versao", std::string("kxdados ") + KXDadosComprasVersao(),
                       "Mostra a versão e termina")
      ->group("Opções");
  app.require_subcommand(1);
  app.allow_windows_style_options(false);  // what begins with a slash is a path, on every system
  Traduz(app);
  kxdados::OpcoesImporta opcoes;
  Digitados digitados;
  std::string registro;
  std::string pasta;
  const CLI::App* importa = MontaImporta(app, opcoes, digitados);
  kxdados::OpcoesMostra aMostrar;
  kxdados::OpcoesCompara aComparar;
  kxdados::OpcoesGrava aGravar;
  std::string aConferir;
  MontaLeiaute(app, registro, pasta);
  const CLI::App* mostra = MontaMostra(app, aMostrar);
  const CLI::App* compara = MontaCompara(app, aComparar);
  const CLI::App* grava = MontaGrava(app, aGravar);
  const CLI::App* confere = MontaConfere(app, aConferir);
  std::vector<std::string> argumentos = kxdados::Argumentos(argc, argv);
  std::reverse(argumentos.begin(), argumentos.end());  // as the parser takes them
  try {
    app.parse(std::move(argumentos));
  } catch (const CLI::ParseError& erro) {
    return Termina(app, erro);
  }
  if (importa->parsed()) return ExecutaImporta(opcoes, digitados);
  if (mostra->parsed()) return ExecutaMostra(aMostrar);
  if (compara->parsed()) return ExecutaCompara(aComparar);
  if (grava->parsed()) return kxdados::Grava(aGravar);
  return confere->parsed() ? kxdados::ConfereAcervo(aConferir) : ExecutaLeiaute(registro, pasta);
}

// What could not be written is not done.
int Conclui(int status) {
  if (std::cout.flush()) return status;
  std::cerr << "kxdados: a saída não pôde ser gravada\n";
  return std::max(status, kErro);
}

}  // namespace

int main(int argc, char** argv) try {
  return Conclui(Executa(argc, argv));
} catch (const std::bad_alloc&) {
  std::cerr << "kxdados: memória insuficiente\n";
  return kErro;
} catch (const std::exception& erro) {
  std::cerr << "kxdados: erro interno: " << erro.what() << '\n';
  return kErro;
}
