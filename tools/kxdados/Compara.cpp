#include <algorithm>
#include <iostream>
#include <new>

#include "Acervo.h"
#include "Arquivo.h"
#include "Classes.h"
#include "Falha.h"
#include "Imagens.h"
#include "Json.h"
#include "Mostra.h"
#include "Progresso.h"

namespace kxdados {

namespace {

// The file as a database; images that stand outside of one go into one that ends with the program.
Banco Acervo(const std::string& caminho, const Filtro& filtro) {
  if (EhAcervo(caminho)) return AbreAcervo(caminho);
  const auto repetido = [](const std::string& /*origem*/, const Falha& /*falha*/) {
    throw Falha("imagem", "há mais de um documento com a mesma chave");
  };
  Gravador gravador("", false, repetido);
  const auto fonte = AbreImagens(caminho, filtro);
  while (const auto lido = fonte->Proximo()) gravador.Grava(*lido, caminho);
  return std::move(gravador).Entrega();
}

// What is wrong with a document, and in which file.
class FalhaDoDocumento : public Falha {
 public:
  FalhaDoDocumento(std::string origem, const std::string& documento, const Falha& falha)
      : Falha(documento + ": " + falha.Elemento(), falha.what()), Origem(std::move(origem)) {}
  const std::string Origem;
};

// One of the two files: its documents in the order of what they are called.
class Lado {
 public:
  Lado(const std::string& caminho, const Filtro& filtro)
      : Origem(NomeDe(caminho)),
        _banco(Acervo(caminho, filtro)),
        _lista(_banco,
               "SELECT id, registro || ' ' || coalesce(chave, 'número ' || coalesce(numero, '') || "
               "' série ' || coalesce(serie, '')) AS nome FROM documento "
               "WHERE (?1 IS NULL OR chave = ?1) AND (?2 IS NULL OR numero = ?2) "
               "ORDER BY nome, id"),
        _imagem(_banco,
                std::string("SELECT ") + kColunasDaImagem + " FROM documento WHERE id = ?1") {
    if (!filtro.Chave.empty()) _lista.Liga(1, filtro.Chave);
    if (!filtro.Numero.empty()) _lista.Liga(2, filtro.Numero);
    Quantos = Conta();
    if (Quantos == 0 && !filtro.Vazio()) throw Falha("documento", "não há nenhum");
    Avanca();
  }

  const std::string Origem;
  std::int64_t Quantos = 0;

  // The document at hand; past the last one the name is empty.
  const std::string& Nome() const { return _nome; }
  bool Acabou() const { return _nome.empty(); }

  void Avanca() {
    const bool ha = _lista.Passo();
    _id = ha ? _lista.Inteiro(0) : 0;
    _nome = ha ? _lista.Texto(1) : std::string_view();
  }

  // Lives until the next call.
  Lido Abre() {
    _imagem.Recomeca();
    if (!_imagem.Liga(1, _id).Passo()) throw Falha(_nome, "foi retirado do acervo");
    try {
      _bytes = ImagemDaLinha(_imagem, 0);
      return AbreLido(_bytes, true);
    } catch (const Falha& falha) {
      throw FalhaDoDocumento(Origem, _nome, falha);
    }
  }

 private:
  std::int64_t Conta() {
    std::int64_t quantos = 0;
    while (_lista.Passo()) ++quantos;
    _lista.Reinicia();
    return quantos;
  }

  Banco _banco;
  Instrucao _lista;
  Instrucao _imagem;
  std::int64_t _id = 0;
  std::string _nome;
  std::vector<std::byte> _bytes;
};

class Comparacao {
 public:
  Comparacao(Lado& antes, Lado& depois, bool json)
      : _antes(antes),
        _depois(depois),
        _json(json),
        _so(antes.Quantos == 1 && depois.Quantos == 1) {}

  // Whether nothing differs. One document is compared with one, whatever they are called.
  bool Executa() {
    if (_so) return Par();
    bool iguais = true;
    while (!_antes.Acabou() || !_depois.Acabou()) iguais = Passo() && iguais;
    return iguais;
  }

 private:
  bool Passo() {
    if (_depois.Acabou() || (!_antes.Acabou() && _antes.Nome() < _depois.Nome())) {
      return Sozinho(_antes, kx::TipoDeDiferenca::Retirado);
    }
    if (_antes.Acabou() || _depois.Nome() < _antes.Nome()) {
      return Sozinho(_depois, kx::TipoDeDiferenca::Acrescentado);
    }
    const bool iguais = Par();
    _antes.Avanca();
    _depois.Avanca();
    return iguais;
  }

  bool Sozinho(Lado& lado, kx::TipoDeDiferenca tipo) {
    Escreve(kx::Diferenca{{}, tipo, {}, {}, true}, lado.Nome());
    lado.Avanca();
    return false;
  }

  bool Par() {
    const Lido a = _antes.Abre();
    const Lido b = _depois.Abre();
    if (a.Info != b.Info) {
      throw Falha("imagem", std::string("é de ") + b.Info->Nome + ", e não de " + a.Info->Nome);
    }
    const Classe* const classe = ClasseDe(*a.Info);
    if (classe == nullptr) throw Falha("imagem", "nenhuma classe guarda esse registro");
    const auto diferencas = classe->Diferencas(a.Registro, b.Registro);
    for (const kx::Diferenca& diferenca : diferencas) Escreve(diferenca, _antes.Nome());
    return std::none_of(diferencas.begin(), diferencas.end(),
                        [](const kx::Diferenca& diferenca) { return diferenca.Comparado; });
  }

  // The document's name goes before the path, unless there is one document alone.
  void Escreve(kx::Diferenca diferenca, const std::string& documento) const {
    if (_json) {
      std::cout << JsonDeDiferenca(diferenca, _so ? std::string() : documento) << '\n';
      return;
    }
    if (!_so) {
      diferenca.Caminho = documento + (diferenca.Caminho.empty() ? "" : ": ") + diferenca.Caminho;
    }
    std::cout << diferenca << '\n';
  }

  Lado& _antes;
  Lado& _depois;
  const bool _json;
  const bool _so;
};

// What was said of the first file, and what of the second; one word serves for both.
std::string Dito(const std::vector<std::string>& palavras, std::size_t qual) {
  return palavras.empty() ? std::string() : palavras[std::min(qual, palavras.size() - 1)];
}

}  // namespace

int Compara(const OpcoesCompara& opcoes) {
  constexpr int kImpossivel = 2;
  std::string origem = NomeDe(opcoes.Caminhos.front());
  try {
    Lado antes(opcoes.Caminhos.front(), {Dito(opcoes.Chaves, 0), Dito(opcoes.Numeros, 0)});
    origem = NomeDe(opcoes.Caminhos.back());
    Lado depois(opcoes.Caminhos.back(), {Dito(opcoes.Chaves, 1), Dito(opcoes.Numeros, 1)});
    return Comparacao(antes, depois, opcoes.Json).Executa() ? 0 : 1;
  } catch (const FalhaDoDocumento& falha) {
    EscreveErro(falha.Origem, falha);
  } catch (const Falha& falha) {
    EscreveErro(origem, falha);
  } catch (const FalhaDoBanco& falha) {
    EscreveErro(origem, Falha("acervo", falha.what()));
  } catch (const std::bad_alloc&) {
    EscreveErro(origem, Falha("", "memória insuficiente"));
  } catch (const std::exception& erro) {
    EscreveErro(origem, Falha("erro interno", erro.what()));
  }
  return kImpossivel;
}

}  // namespace kxdados
