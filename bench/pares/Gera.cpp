// Writes what the peers of the benchmark need to carry a purchase order, from the records'
// metadata, so that all carry the same fields: the schemas ordem.proto, ordem.fbs and ordem.capnp;
// and Plano.h, with plain structs of the same fields (namespace plano) and the functions between
// them, our records and each peer's messages.
//
//   gera PASTA
#include <cctype>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "compras/KXDadosCompras.h"

namespace {

// Letters and digits in lower case: a name in all four languages.
std::string Minusculo(std::string_view nome) {
  std::string saida;
  for (const char c : nome) {
    if (c != '_') saida += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return saida;
}

std::string Maiusculo(std::string_view nome) {
  std::string saida = Minusculo(nome);
  saida[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(saida[0])));
  return saida;
}

std::string Tipo(const KXRegistroInfo& registro) {
  return Maiusculo(std::string_view(registro.Nome).substr(sizeof("tagREG_") - 1));
}

enum class Especie { Inteiro, Texto, Bytes, Contado, Lista };

struct Campo {
  Especie De;
  const KXCampo* Linha;
  std::string Nome;  // in the peers' languages
};

Especie EspecieDe(const KXCampo& linha) {
  if (linha.Papel == KXPapel::Lista) return Especie::Lista;
  if (linha.Papel == KXPapel::Contado) return Especie::Contado;
  if (linha.Tipo == KXTipoCampo::Texto || linha.Tipo == KXTipoCampo::Historico) {
    return Especie::Texto;
  }
  const bool inteiro =
      linha.Largura == 1 || linha.Largura == 2 || linha.Largura == 4 || linha.Largura == 8;
  return inteiro ? Especie::Inteiro : Especie::Bytes;
}

std::vector<Campo> Campos(const KXRegistroInfo& registro) {
  std::vector<Campo> campos;
  for (const KXCampo& linha : registro.Campos) {
    if (linha.Papel == KXPapel::Parte || linha.Papel == KXPapel::Zero ||
        linha.Papel == KXPapel::Conta) {
      continue;
    }
    campos.push_back({EspecieDe(linha), &linha, Minusculo(linha.Nome)});
  }
  return campos;
}

// The record and those below it, elements before owners, each once.
void Junta(const KXRegistroInfo& registro, std::vector<const KXRegistroInfo*>& todos) {
  for (const KXCampo& linha : registro.Campos) {
    if (linha.Papel == KXPapel::Lista) Junta(*linha.Elemento, todos);
  }
  for (const KXRegistroInfo* outro : todos) {
    if (outro == &registro) return;
  }
  todos.push_back(&registro);
}

// One language: how it spells a record's opening, each field, and the end.
struct Linguagem {
  const char* Arquivo;
  const char* Cabecalho;
  const char* Abre;   // followed by the type's name and " {"
  bool PorTipoAntes;  // "type name", else "name: type"
  const char* Prefixo;
  int PrimeiroNumero;  // fields are numbered from here; -1: they are not
  const char* (*TipoDe)(const Campo& campo);
  const char* ListaAntes;
  const char* ListaDepois;
};

const char* TipoProto(const Campo& campo) {
  if (campo.De != Especie::Inteiro) return "bytes";
  if (campo.Linha->Largura == 8) return "fixed64";
  return campo.Linha->Tipo == KXTipoCampo::Data ? "fixed32" : "uint32";
}

const char* TipoFbs(const Campo& campo) {
  if (campo.De != Especie::Inteiro) return "string";
  const int largura = campo.Linha->Largura;
  return largura == 8 ? "ulong" : largura == 4 ? "uint" : largura == 2 ? "ushort" : "ubyte";
}

const char* TipoCapnp(const Campo& campo) {
  if (campo.De != Especie::Inteiro) return "Data";
  const int largura = campo.Linha->Largura;
  return largura == 8 ? "UInt64" : largura == 4 ? "UInt32" : largura == 2 ? "UInt16" : "UInt8";
}

constexpr Linguagem kProto{"ordem.proto",
                           "syntax = \"proto3\";\npackage pb;\n",
                           "message ",
                           true,
                           "",
                           1,
                           TipoProto,
                           "repeated ",
                           ""};
constexpr Linguagem kFbs{"ordem.fbs", "namespace fb;\n", "table ", false, ": ",
                         -1,          TipoFbs,           "[",      "]"};
constexpr Linguagem kCapnp{
    "ordem.capnp",
    "@0xbf5147cbbecf40c1;\nusing Cxx = import \"/capnp/c++.capnp\";\n$Cxx.namespace(\"capn\");\n",
    "struct ",
    false,
    " :",
    0,
    TipoCapnp,
    "List(",
    ")"};

std::string TipoNaLinguagem(const Linguagem& lingua, const Campo& campo) {
  if (campo.De != Especie::Lista) return lingua.TipoDe(campo);
  return lingua.ListaAntes + Tipo(*campo.Linha->Elemento) + lingua.ListaDepois;
}

void Esquema(const Linguagem& lingua, const std::string& pasta,
             const std::vector<const KXRegistroInfo*>& registros) {
  std::ofstream saida(pasta + "/" + lingua.Arquivo);
  saida << lingua.Cabecalho;
  for (const KXRegistroInfo* registro : registros) {
    saida << lingua.Abre << Tipo(*registro) << " {\n";
    int numero = lingua.PrimeiroNumero;
    for (const Campo& campo : Campos(*registro)) {
      const std::string tipo = TipoNaLinguagem(lingua, campo);
      const std::string ordem = numero < 0 ? "" : std::to_string(numero++);
      if (lingua.PorTipoAntes) {
        saida << "  " << tipo << " " << campo.Nome << " = " << ordem << ";\n";
      } else {
        const std::string marca = ordem.empty() ? "" : " @" + ordem;
        saida << "  " << campo.Nome << marca << lingua.Prefixo << tipo << ";\n";
      }
    }
    saida << "}\n";
  }
  if (lingua.TipoDe == TipoFbs) saida << "root_type " << Tipo(*registros.back()) << ";\n";
}

std::string TipoPlano(const Campo& campo) {
  switch (campo.De) {
    case Especie::Inteiro:
      return "std::uint" + std::to_string(campo.Linha->Largura * 8) + "_t";
    case Especie::Lista:
      return "std::vector<" + Tipo(*campo.Linha->Elemento) + ">";
    default:
      return "std::string";
  }
}

// One function from the first parameter to the second, and what it says for each field: a call of a
// name in bench/pares/Conversoes.h, or of the peer's accessors.
void Funcao(std::ostream& saida, const char* nome, const std::string& de, const std::string& para,
            const std::vector<Campo>& campos, std::string (*linha)(const Campo&)) {
  saida << "inline void " << nome << "(" << de << ", " << para << ") {\n";
  for (const Campo& campo : campos) saida << "  " << linha(campo) << "\n";
  saida << "}\n";
}

std::string DoRegistro(const Campo& c) {
  if (c.De == Especie::Lista) {
    const std::string lista = std::string(c.Linha->Nome).substr(sizeof("Lista") - 1);
    return "DeLista(r.Lista" + lista + ", r.Qtd" + lista + ", p." + c.Nome + ");";
  }
  return "DeCampo(r." + std::string(c.Linha->Nome) + ", p." + c.Nome + ");";
}

std::string ParaRegistro(const Campo& c) {
  if (c.De == Especie::Lista) {
    const std::string lista = std::string(c.Linha->Nome).substr(sizeof("Lista") - 1);
    return "ParaArray(p." + c.Nome + ", r.Lista" + lista + ", r.Qtd" + lista + ");";
  }
  return "ParaCampo(p." + c.Nome + ", r." + std::string(c.Linha->Nome) + ");";
}

std::string ParaProto(const Campo& c) {
  if (c.De == Especie::Lista) {
    return "for (const auto& e : p." + c.Nome + ") ParaProto(e, *m.add_" + c.Nome + "());";
  }
  return "m.set_" + c.Nome + "(p." + c.Nome + ");";
}

std::string DeProto(const Campo& c) {
  if (c.De == Especie::Lista) {
    return "for (const auto& e : m." + c.Nome + "()) DeProto(e, p." + c.Nome + ".emplace_back());";
  }
  return "Atribui(m." + c.Nome + "(), p." + c.Nome + ");";
}

std::string ParaFlat(const Campo& c) {
  if (c.De == Especie::Lista) {
    const std::string tipo = "fb::" + Tipo(*c.Linha->Elemento) + "T";
    return "for (const auto& e : p." + c.Nome + ") ParaFlat(e, *m." + c.Nome +
           ".emplace_back(std::make_unique<" + tipo + ">()));";
  }
  return "m." + c.Nome + " = p." + c.Nome + ";";
}

std::string DeFlat(const Campo& c) {
  if (c.De == Especie::Lista) {
    return "for (const auto& e : m." + c.Nome + ") DeFlat(*e, p." + c.Nome + ".emplace_back());";
  }
  return "p." + c.Nome + " = m." + c.Nome + ";";
}

std::string ParaCapnp(const Campo& c) {
  const std::string nome = Maiusculo(c.Nome);
  if (c.De == Especie::Lista) {
    return "ParaLista(p." + c.Nome + ", m.init" + nome + "(Quantos(p." + c.Nome + ")));";
  }
  return "m.set" + nome + "(" +
         (c.De == Especie::Inteiro ? "p." + c.Nome : "Dados(p." + c.Nome + ")") + ");";
}

std::string DeCapnp(const Campo& c) {
  const std::string nome = Maiusculo(c.Nome);
  if (c.De == Especie::Lista) return "DaLista(m.get" + nome + "(), p." + c.Nome + ");";
  return "Atribui(m.get" + nome + "(), p." + c.Nome + ");";
}

void Planos(const std::string& pasta, const std::vector<const KXRegistroInfo*>& registros) {
  std::ofstream saida(pasta + "/Plano.h");
  saida << "#pragma once\n#include \"bench/pares/Conversoes.h\"\n#include \"ordem.capnp.h\"\n"
           "#include \"ordem.pb.h\"\n#include \"ordem_generated.h\"\nnamespace plano {\n";
  for (const KXRegistroInfo* registro : registros) {
    const std::string tipo = Tipo(*registro);
    const std::vector<Campo> campos = Campos(*registro);
    saida << "struct " << tipo << " {\n";
    for (const Campo& campo : campos)
      saida << "  " << TipoPlano(campo) << " " << campo.Nome << "{};\n";
    saida << "  bool operator==(const " << tipo << "&) const = default;\n"
          << "  template <class A> void serialize(A& a) {\n";
    for (const Campo& campo : campos) saida << "    a(" << campo.Nome << ");\n";
    saida << "  }\n};\n";
    const std::string reg = registro->Nome;
    const std::string doPlano = "const " + tipo + "& p";
    const std::string paraPlano = tipo + "& p";
    Funcao(saida, "DeRegistro", "const " + reg + "& r", paraPlano, campos, DoRegistro);
    Funcao(saida, "ParaRegistro", doPlano, reg + "& r", campos, ParaRegistro);
    Funcao(saida, "ParaProto", doPlano, "pb::" + tipo + "& m", campos, ParaProto);
    Funcao(saida, "DeProto", "const pb::" + tipo + "& m", paraPlano, campos, DeProto);
    Funcao(saida, "ParaFlat", doPlano, "fb::" + tipo + "T& m", campos, ParaFlat);
    Funcao(saida, "DeFlat", "const fb::" + tipo + "T& m", paraPlano, campos, DeFlat);
    Funcao(saida, "ParaCapnp", doPlano, "capn::" + tipo + "::Builder m", campos, ParaCapnp);
    Funcao(saida, "DeCapnp", "capn::" + tipo + "::Reader m", paraPlano, campos, DeCapnp);
  }
  saida << "}  // namespace plano\n";
}

}  // namespace

int main(int argc, char** argv) {
  const KXRegistroInfo* const ordem = KXProcuraRegistro("tagREG_ORDEMPS");
  if (argc != 2 || ordem == nullptr) {
    std::fputs("gera PASTA\n", stderr);
    return 2;
  }
  std::vector<const KXRegistroInfo*> registros;
  Junta(*ordem, registros);
  const std::string pasta = argv[1];
  for (const Linguagem& lingua : {kProto, kFbs, kCapnp}) Esquema(lingua, pasta, registros);
  Planos(pasta, registros);
  return 0;
}
