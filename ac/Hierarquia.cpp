#include "ac/Hierarquia.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <numeric>
#include <utility>

#include "platform/Plataforma.h"

namespace kx {
namespace {

using Chaves = std::vector<tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS>;

// A set of numbers below a limit that gives back the smallest: a bit for each number, and above
// them, level by level, a bit for each word that is not zero. Both operations touch one word a
// level, and the lowest level of a million numbers is 128 KB.
class FilaOrdenada {
 public:
  explicit FilaOrdenada(std::size_t limite) {
    do {
      limite = limite / kBits + 1;
      _niveis.emplace_back(limite);
    } while (limite > 1);
  }

  bool Vazia() const { return _niveis.back().front() == 0; }

  void Poe(std::uint32_t numero) {
    for (std::vector<std::uint64_t>& nivel : _niveis) {
      std::uint64_t& palavra = nivel[numero / kBits];
      const bool tinha = palavra != 0;
      palavra |= std::uint64_t{1} << (numero % kBits);
      if (tinha) return;
      numero /= kBits;
    }
  }

  std::uint32_t Tira() {
    std::uint32_t numero = 0;
    for (auto nivel = _niveis.rbegin(); nivel != _niveis.rend(); ++nivel) {
      numero = numero * kBits + static_cast<std::uint32_t>(std::countr_zero((*nivel)[numero]));
    }
    std::uint32_t resto = numero;
    for (std::vector<std::uint64_t>& nivel : _niveis) {
      std::uint64_t& palavra = nivel[resto / kBits];
      palavra &= palavra - 1;
      if (palavra != 0) break;
      resto /= kBits;
    }
    return numero;
  }

 private:
  static constexpr std::uint32_t kBits = 64;
  std::vector<std::vector<std::uint64_t>> _niveis;
};

// How far ahead memory is asked for.
constexpr std::size_t kAdiante = 24;

struct Entrada {
  std::uint32_t Chave;
  std::uint32_t Posicao;
};

// Sorts by key, entries of one key staying in their order: a counting pass for every eleven bits in
// use. Where an entry goes is asked for in advance, which takes a third off a large sort.
void Ordena(std::vector<Entrada>& entradas) {
  constexpr unsigned kBits = 11;
  constexpr std::uint32_t kMascara = (1U << kBits) - 1;
  std::vector<Entrada> outras(entradas.size());
  for (unsigned desloca = 0; desloca < 32; desloca += kBits) {
    const auto digito = [desloca](const Entrada& e) { return (e.Chave >> desloca) & kMascara; };
    std::array<std::uint32_t, kMascara + 2> inicio{};
    for (const Entrada& e : entradas) ++inicio[digito(e) + 1];
    std::partial_sum(inicio.begin(), inicio.end(), inicio.begin());
    for (std::size_t i = 0; i < entradas.size(); ++i) {
      if (i + kAdiante < entradas.size()) {
        plataforma::Antecipa(&outras[inicio[digito(entradas[i + kAdiante])]]);
      }
      outras[inicio[digito(entradas[i])]++] = entradas[i];
    }
    entradas.swap(outras);
  }
}

template <class Campo>
std::vector<Entrada> Ordenadas(const Chaves& chaves, Campo campo) {
  std::vector<Entrada> entradas;
  entradas.reserve(chaves.size());
  for (std::uint32_t i = 0; i < chaves.size(); ++i) entradas.push_back({campo(chaves[i]), i});
  Ordena(entradas);
  return entradas;
}

// The same records with their keys renumbered from 1, in the order of the keys. Key 0 stays; the
// parent keys that are no record's become one that is none either.
Chaves Renumeradas(const Chaves& chaves) {
  Chaves densas(chaves.size());
  const auto porChave = Ordenadas(chaves, [](const auto& c) { return c.ChaveEste; });
  const auto porNivel = Ordenadas(chaves, [](const auto& c) { return c.ChaveNivelAnterior; });
  const auto ninguem = static_cast<std::uint32_t>(chaves.size() + 1);
  std::uint32_t chave = 0;
  std::uint32_t numero = 0;
  std::size_t nivel = 0;
  const auto numeraNiveisAte = [&](std::uint64_t limite, std::uint32_t valor) {
    for (; nivel < porNivel.size() && porNivel[nivel].Chave < limite; ++nivel) {
      densas[porNivel[nivel].Posicao].ChaveNivelAnterior = valor;
    }
  };
  numeraNiveisAte(1, 0);
  for (const Entrada& e : porChave) {
    if (e.Chave != chave) {
      chave = e.Chave;
      ++numero;
      numeraNiveisAte(chave, ninguem);
      numeraNiveisAte(std::uint64_t{chave} + 1, numero);
    }
    densas[e.Posicao].ChaveEste = numero;
  }
  numeraNiveisAte(std::uint64_t{1} << 32, ninguem);
  return densas;
}

std::uint32_t MaiorChave(const Chaves& chaves) {
  std::uint32_t maior = 0;
  for (const auto& registro : chaves) maior = std::max(maior, registro.ChaveEste);
  return maior;
}

// Children by parent: those of number n are Filhos[Inicio[n]] to Filhos[Inicio[n + 1] - 1].
struct Ramos {
  std::vector<std::uint32_t> Inicio;
  std::vector<std::uint32_t> Filhos;
};

// Groups `quantos` children below parents whose numbers are less than `pais`: pai(i) is the parent
// of child i, filho(i) what is kept of it. Children of other parents are left out.
template <class Pai, class Filho>
Ramos Agrupa(std::size_t quantos, std::size_t pais, Pai pai, Filho filho) {
  Ramos ramos{std::vector<std::uint32_t>(pais + 2), {}};
  const auto paraCada = [&](std::uint32_t* contas, auto faz) {
    for (std::size_t i = 0; i < quantos; ++i) {
      if (i + kAdiante < quantos && pai(i + kAdiante) < pais) {
        plataforma::Antecipa(&contas[pai(i + kAdiante)]);
      }
      if (pai(i) < pais) faz(i, contas[pai(i)]);
    }
  };
  // The counts stand two places ahead, and each child moves its parent's up: in the end they have
  // moved to their own place.
  paraCada(ramos.Inicio.data() + 2, [](std::size_t, std::uint32_t& conta) { ++conta; });
  std::partial_sum(ramos.Inicio.begin(), ramos.Inicio.end(), ramos.Inicio.begin());
  ramos.Filhos.resize(ramos.Inicio.back());
  paraCada(ramos.Inicio.data() + 1,
           [&](std::size_t i, std::uint32_t& proximo) { ramos.Filhos[proximo++] = filho(i); });
  return ramos;
}

// What number 0, the root, reaches. Branches are left as soon as their last child is taken, so a
// chain has one open branch, however long it is.
template <class Posicao>
std::vector<Lugar> EmPreOrdem(const Ramos& ramos, Posicao posicao) {
  std::vector<Lugar> lugares;
  lugares.reserve(ramos.Filhos.size());
  struct Ramo {
    std::uint32_t Inicio;
    std::uint32_t Fim;
  };
  std::vector<Ramo> abertos;
  const auto abre = [&](std::uint32_t numero) {
    const Ramo ramo{ramos.Inicio[numero], ramos.Inicio[numero + 1]};
    if (ramo.Inicio == ramo.Fim) return false;
    abertos.push_back(ramo);
    return true;
  };
  abre(0);
  while (!abertos.empty()) {
    Ramo& ramo = abertos.back();
    const std::uint32_t numero = ramos.Filhos[ramo.Inicio++];
    const bool temIrmao = ramo.Inicio != ramo.Fim;
    if (!temIrmao) abertos.pop_back();
    const bool temFilhos = numero != 0 && abre(numero);
    lugares.push_back({posicao(numero), temFilhos, temIrmao});
  }
  return lugares;
}

constexpr std::uint32_t kSemPosicao = ~std::uint32_t{0};

// Where the record of each key is; empty when two records share a key.
std::vector<std::uint32_t> PosicoesSemRepetir(const Chaves& chaves, std::size_t limite) {
  std::vector<std::uint32_t> posicoes(limite, kSemPosicao);
  for (std::size_t i = 0; i < chaves.size(); ++i) {
    if (i + kAdiante < chaves.size()) {
      plataforma::Antecipa(&posicoes[chaves[i + kAdiante].ChaveEste]);
    }
    std::uint32_t& posicao = posicoes[chaves[i].ChaveEste];
    if (posicao != kSemPosicao) return {};
    posicao = static_cast<std::uint32_t>(i);
  }
  return posicoes;
}

// Attaches the records one by one, in the order that the rules give.
class Montagem {
 public:
  Montagem(const Chaves& chaves, std::size_t limite)
      : _chaves(chaves),
        _esperas(Agrupa(
            chaves.size(), limite, [&](std::size_t i) { return chaves[i].ChaveNivelAnterior; },
            [](std::size_t i) { return static_cast<std::uint32_t>(i); })),
        _grupos(limite),
        _prontos(chaves.size()) {
    _nodes.reserve(chaves.size() + 1);
    _nodes.push_back({});
  }

  std::vector<Lugar> Monta() {
    for (std::uint32_t i = 0; i < _chaves.size(); ++i) {
      if (_chaves[i].ChaveNivelAnterior == 0) Liga(i, 0, true);
    }
    while (!_prontos.Vazia()) {
      const std::uint32_t registro = _prontos.Tira();
      const Grupo& pais = _grupos[_chaves[registro].ChaveNivelAnterior];
      Liga(registro, pais.Alvo, !pais.NoIndice);
    }
    const auto ramos = Agrupa(
        _nodes.size() - 1, _nodes.size(), [this](std::size_t i) { return _nodes[i + 1].Pai; },
        [](std::size_t i) { return static_cast<std::uint32_t>(i + 1); });
    return EmPreOrdem(ramos, [this](std::uint32_t node) { return _nodes[node].Registro; });
  }

 private:
  // The nodes of one key.
  struct Grupo {
    std::uint32_t Alvo;  // the one that takes the next child; 0 = no node yet
    bool NoIndice;
  };

  struct Node {
    std::uint32_t Registro;
    std::uint32_t Pai;
  };

  // The way up from a node: its depth, and an ancestor so far up that any other is few leaps away.
  struct Subida {
    std::uint32_t Nivel;
    std::uint32_t Salto;
  };

  void Liga(std::uint32_t registro, std::uint32_t pai, bool entraNoIndice) {
    const auto node = static_cast<std::uint32_t>(_nodes.size());
    _nodes.push_back({registro, pai});
    const std::uint32_t chave = _chaves[registro].ChaveEste;
    Grupo& grupo = _grupos[chave];
    if (grupo.Alvo == 0) Acorda(chave);
    if (entraNoIndice) {
      grupo = {node, true};
    } else if (grupo.Alvo == 0 || (!grupo.NoIndice && NovoVemAntes(node, grupo.Alvo))) {
      grupo.Alvo = node;
    }
  }

  // The records that name the key can be attached from now on; key 0 is named by none.
  void Acorda(std::uint32_t chave) {
    if (chave == 0) return;
    const std::uint32_t fim = _esperas.Inicio[chave + 1];
    for (auto i = _esperas.Inicio[chave]; i < fim; ++i) _prontos.Poe(_esperas.Filhos[i]);
  }

  // Two leaps of equal length join into one that is a step longer than both: the lengths are those
  // of the digits of a skew binary number, and any level is a logarithm of leaps away. Most builds
  // never compare two nodes, so the leaps are made when they are first needed.
  void CompletaSubidas() {
    if (_subidas.empty()) _subidas.push_back({0, 0});
    while (_subidas.size() < _nodes.size()) {
      const std::uint32_t pai = _nodes[_subidas.size()].Pai;
      const Subida& de = _subidas[pai];
      const Subida& meio = _subidas[de.Salto];
      const Subida& longe = _subidas[meio.Salto];
      const bool junta = de.Nivel - meio.Nivel == meio.Nivel - longe.Nivel;
      _subidas.push_back({de.Nivel + 1, junta ? meio.Salto : pai});
    }
  }

  std::uint32_t AncestralNoNivel(std::uint32_t node, std::uint32_t nivel) const {
    while (_subidas[node].Nivel > nivel) {
      const std::uint32_t salto = _subidas[node].Salto;
      node = _subidas[salto].Nivel >= nivel ? salto : _nodes[node].Pai;
    }
    return node;
  }

  // Whether the newest node comes before another in pre-order. Nothing is below it yet; and of
  // siblings the one attached first comes first.
  bool NovoVemAntes(std::uint32_t novo, std::uint32_t outro) {
    CompletaSubidas();
    std::uint32_t a = AncestralNoNivel(novo, _subidas[outro].Nivel);
    std::uint32_t b = AncestralNoNivel(outro, _subidas[a].Nivel);
    while (_nodes[a].Pai != _nodes[b].Pai) {
      const bool salta = _subidas[a].Salto != _subidas[b].Salto;
      a = salta ? _subidas[a].Salto : _nodes[a].Pai;
      b = salta ? _subidas[b].Salto : _nodes[b].Pai;
    }
    return a < b;
  }

  const Chaves& _chaves;
  Ramos _esperas;                // by key, the records that name it
  std::vector<Grupo> _grupos;    // by key
  std::vector<Node> _nodes;      // in the order in which they are attached; 0 is the root
  std::vector<Subida> _subidas;  // by node
  FilaOrdenada _prontos;         // records that can be attached, by position
};

// The keys are those of tables, so they are not to be much larger than the number of records. What
// is kept by key is found in the same memory whatever the order of the source, since related rules
// tend to have keys that are near each other.
//
// When no two records share a key, all children of a record can be attached from the moment it is:
// they stand in source order, and nothing depends on when.
std::vector<Lugar> MontaDensas(const Chaves& chaves, std::size_t limite) {
  const std::vector<std::uint32_t> posicoes = PosicoesSemRepetir(chaves, limite);
  if (posicoes.empty()) return Montagem(chaves, limite).Monta();
  const auto ramos = Agrupa(
      chaves.size(), limite, [&](std::size_t i) { return chaves[i].ChaveNivelAnterior; },
      [&](std::size_t i) { return chaves[i].ChaveEste; });
  return EmPreOrdem(ramos, [&](std::uint32_t chave) { return posicoes[chave]; });
}

}  // namespace

std::vector<Lugar> MontaHierarquia(const Chaves& chaves) {
  constexpr std::size_t kFolga = 4;
  const std::size_t limite = std::size_t{MaiorChave(chaves)} + 1;
  if (limite <= kFolga * chaves.size()) return MontaDensas(chaves, limite);
  return MontaDensas(Renumeradas(chaves), chaves.size() + 1);
}

}  // namespace kx
