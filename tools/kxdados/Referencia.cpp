#include "Referencia.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string_view>
#include <system_error>

#include "Classes.h"
#include "Leiaute.h"
#include "Sistema.h"
#include "compras/KXDadosCompras.h"

namespace kxdados {

namespace {

namespace fs = std::filesystem;

constexpr const char* kPasta = "registros/";
constexpr const char* kIndice = "leiautes.md";

std::string Codigo(const std::string& texto) { return '`' + texto + '`'; }

std::vector<Classe> ClassesDe(const KXRegistroInfo& info) {
  std::vector<Classe> classes = Classes();
  std::erase_if(classes, [&info](const Classe& classe) {
    return std::string_view(classe.Registro->Nome) != info.Nome;
  });
  return classes;
}

// The link stands between the folders of two pages.
std::string Ligacao(const char* registro, const char* pasta = "") {
  const std::string nome = registro;
  if (KXProcuraRegistro(nome) == nullptr) return Codigo(nome);
  return '[' + Codigo(nome) + "](" + pasta + nome + ".md)";
}

// The type that accessors take; empty when the field has none.
std::string TipoDoAcessor(const KXCampo& campo) {
  if (campo.Papel != KXPapel::Campo && campo.Papel != KXPapel::Parte) return {};
  switch (campo.Tipo) {
    case KXTipoCampo::Texto:
    case KXTipoCampo::Historico:
      return "CString";
    case KXTipoCampo::SemSinal8:
    case KXTipoCampo::SemSinal16:
    case KXTipoCampo::SemSinal32:
    case KXTipoCampo::SemSinal64:
    case KXTipoCampo::ComSinal32:
    case KXTipoCampo::ComSinal64:
      return "std::" + TipoDoCampo(campo) + "_t";
    default:
      return TipoDoCampo(campo);
  }
}

std::string Acessores(const KXCampo& campo) {
  const std::string tipo = TipoDoAcessor(campo);
  if (tipo.empty()) return {};
  return Codigo(std::string("Get") + campo.Nome) + ", " + Codigo(std::string("Set") + campo.Nome) +
         ": " + Codigo(tipo);
}

std::string Tipo(const KXCampo& campo) {
  if (campo.Elemento == nullptr) return Codigo(TipoDoCampo(campo));
  return Ligacao(campo.Elemento->Nome) + " array";
}

std::string Significado(const KXCampo& campo) {
  const std::string significado = campo.Significado;
  switch (campo.Papel) {
    case KXPapel::Parte:
      return significado + "; part of the field above";
    case KXPapel::Interno:
      return significado + "; kept by another object";
    case KXPapel::Contado:
      return significado + "; counted text";
    case KXPapel::Corrido:
      return significado + "; characters of a counted text";
    case KXPapel::Terminado:
      return significado + "; characters up to a terminating zero";
    default:
      return campo.Tipo == KXTipoCampo::Historico
                 ? significado + "; compared by its first three lines"
                 : significado;
  }
}

void EscreveDonos(std::ostream& pagina, const KXRegistroInfo& info) {
  const char* separador = "\nElement of ";
  for (const KXRegistroInfo* dono : KXRegistros()) {
    for (const KXCampo& campo : dono->Campos) {
      if (campo.Elemento == nullptr || std::string_view(campo.Elemento->Nome) != info.Nome)
        continue;
      pagina << separador << Codigo(campo.Nome) << " in " << Ligacao(dono->Nome);
      separador = ", ";
    }
  }
  if (*separador == ',') pagina << ".\n";
}

void EscreveClasse(std::ostream& pagina, const Classe& classe) {
  pagina << "\n- " << Codigo(classe.Nome) << ", `#include \"" << classe.Cabecalho << "\"`";
  if (!classe.Guarda) {
    pagina << ": converts it, and gives no accessors to it.";
  } else if (classe.PorValor) {
    pagina << ": `T Get…() const`, `" << classe.Nome << "& Set…(const T&)`.";
  } else {
    pagina << ": `const T& Get…() const`, `T& Get…()`, `" << classe.Nome << "& Set…(const T&)`.";
  }
}

void EscreveClasses(std::ostream& pagina, const KXRegistroInfo& info) {
  const std::vector<Classe> classes = ClassesDe(info);
  if (classes.empty()) {
    pagina << "\nNo class stores it: it is used as it is.\n";
    return;
  }
  pagina << "\nClasses, and how their accessors take a field of type `T`:\n";
  for (const Classe& classe : classes) EscreveClasse(pagina, classe);
  pagina << '\n';
  const bool textos = std::any_of(info.Campos.begin(), info.Campos.end(), [](const KXCampo& campo) {
    return TipoDoAcessor(campo) == "CString";
  });
  if (textos && classes.front().Guarda) {
    pagina << "\nTexts: `CString Get…() const`, `Set…(const CString&)`, which reports a text that "
              "does not fit.\n";
  }
}

bool TemAcessores(const KXRegistroInfo& info) {
  const std::vector<Classe> classes = ClassesDe(info);
  return std::any_of(classes.begin(), classes.end(),
                     [](const Classe& classe) { return classe.Guarda; });
}

void EscreveCampos(std::ostream& pagina, const KXRegistroInfo& info) {
  const bool acessores = TemAcessores(info);
  pagina << "\n| offset | width | type | name | compared |" << (acessores ? " accessors |" : "")
         << " meaning |\n|---:|---:|---|---|---:|" << (acessores ? "---|" : "") << "---|\n";
  for (const KXCampo& campo : info.Campos) {
    pagina << "| " << campo.Posicao << " | " << campo.Largura << " | " << Tipo(campo) << " | "
           << Codigo(campo.Nome) << " | " << (campo.Comparado ? "yes" : "") << " | ";
    if (acessores) pagina << Acessores(campo) << " | ";
    pagina << Significado(campo) << " |\n";
  }
}

std::string Pagina(const KXRegistroInfo& info) {
  std::ostringstream pagina;
  pagina << "# " << info.Nome << "\n\n"
         << info.Significado << "; " << info.Tamanho << " bytes. [How to read this page](../"
         << kIndice << ")\n";
  EscreveDonos(pagina, info);
  EscreveClasses(pagina, info);
  EscreveCampos(pagina, info);
  return pagina.str();
}

void EscreveLinhaDoIndice(std::ostream& indice, const KXRegistroInfo& info) {
  indice << "| " << Ligacao(info.Nome, kPasta) << " | " << info.Tamanho << " | ";
  const char* separador = "";
  for (const Classe& classe : ClassesDe(info)) {
    indice << separador << Codigo(classe.Nome);
    separador = ", ";
  }
  indice << " | " << info.Significado << " |\n";
}

constexpr const char* kComoLer =
    R"(# Record layouts

A page for each record, written by `kxdados leiaute --tudo docs`; do not edit.

Offsets and widths are in bytes, little-endian. `CY` is money, quantity or rate in 1/10,000.
`char[N]` is a Latin-1 text of at most N-1 characters, zero-filled. Dates, keys and counted texts
are the types of `kxldados/Tipos.h`. An array is a pointer to its first element; its `Qtd…` field
counts them.

`compared` says whether equality sees the field. Reserved bytes are carried unchanged; those that mean `zero` do not travel.

Arrays and counted texts have no accessors of the table: the class holds them as collections
(`core/Colecao.h`) and members (`core/Membro.h`).

| record | bytes | classes | what it is |
|---|---:|---|---|
)";

std::string Indice() {
  std::ostringstream indice;
  indice << kComoLer;
  for (const KXRegistroInfo* info : KXRegistros()) EscreveLinhaDoIndice(indice, *info);
  return indice.str();
}

bool Grava(const fs::path& caminho, const std::string& texto) {
  std::ofstream arquivo(caminho, std::ios::binary);
  arquivo << texto << std::flush;
  if (!arquivo) std::cerr << "kxdados: " << caminho.string() << ": não foi possível gravar\n";
  return arquivo.good();
}

}  // namespace

std::vector<std::pair<std::string, std::string>> Paginas() {
  std::vector<std::pair<std::string, std::string>> paginas{{kIndice, Indice()}};
  for (const KXRegistroInfo* info : KXRegistros()) {
    paginas.emplace_back(std::string(kPasta) + info->Nome + ".md", Pagina(*info));
  }
  return paginas;
}

bool EscreveReferencia(const std::string& pasta) {
  std::error_code falha;  // shown by the first page, which cannot be written then
  fs::create_directories(Caminho(pasta) / kPasta, falha);
  const auto paginas = Paginas();
  return std::all_of(paginas.begin(), paginas.end(), [&pasta](const auto& pagina) {
    return Grava(Caminho(pasta) / pagina.first, pagina.second);
  });
}

}  // namespace kxdados
