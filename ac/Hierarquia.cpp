#include "ac/Hierarquia.h"

#include <array>
#include <bit>
#include <cstddef>
#include <utility>

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

struct Entrada {
  std::uint32_t Chave;
  std::uint32_t Posicao;
};

// Sorts by key, entries of one key staying in their order: one counting pass a byte.
void Ordena(std::vector<Entrada>& entradas) {
  std::vector<Entrada> outras(entradas.size());
  for (unsigned desloca = 0; desloca < 32; desloca += 8) {
    const auto digito = [desloca](const Entrada& e) { return (e.Chave >> desloca) & 0xFFU; };
    std::array<std::size_t, 257> inicio{};
    for (const Entrada& e : entradas) ++inicio[digito(e) + 1];
    if (!entradas.empty() && inicio[digito(entradas.front()) + 1] == entradas.size()) continue;
    for (std::size_t i = 1; i < inicio.size(); ++i) inicio[i] += inicio[i - 1];
    for (const Entrada& e : entradas) outras[inicio[digito(e)]++] = e;
    entradas.swap(outras);
  }
}

// What is touched together stands together: with a million records in any order the build is as
// slow as its cache misses.
class Montagem {
 public:
  explicit Montagem(const Chaves& chaves)
      : _chaves(chaves),
        _registros(chaves.size()),
        _noIndice(chaves.size()),
        _prontos(chaves.size()) {
    _nodes.reserve(chaves.size() + 1);
    _nodes.emplace_back();
    AgrupaPorChave();
  }

  std::vector<NodeDaHierarquia> Monta() {
    _chavesRepetidas ? LigaUmAUm() : LigaTodos();
    LigaIrmaos();
    return std::move(_nodes);
  }

 private:
  // The records of one key are a group, named by the first of them, which keeps what concerns all.
  struct Registro {
    std::uint32_t Grupo;
    std::uint32_t GrupoDoPai;  // of the parent key, when it is the key of some record
    std::uint32_t Alvo;        // of a group: node that takes the next child; 0 = no node yet
    std::uint32_t Espera;      // of a group: where the records that name its key begin in _espera
  };

  // The way up from a node: its depth, and an ancestor so far up that any other is few leaps away.
  struct Subida {
    std::uint32_t Nivel;
    std::uint32_t Salto;
  };

  // All children of a key that one record alone has can be attached from the moment that record is:
  // they stand in source order, and nothing depends on when. Records that the root does not reach
  // get links too.
  void LigaTodos() {
    for (std::uint32_t i = 0; i < _chaves.size(); ++i) {
      const bool topo = _chaves[i].ChaveNivelAnterior == 0;
      _nodes.push_back({i, topo ? 0 : _registros[i].GrupoDoPai + 1, 0, 0});
    }
  }

  void LigaUmAUm() {
    for (std::uint32_t i = 0; i < _chaves.size(); ++i) {
      if (_chaves[i].ChaveNivelAnterior == 0) Liga(i, 0, true);
    }
    while (!_prontos.Vazia()) {
      const std::uint32_t registro = _prontos.Tira();
      const std::uint32_t pais = _registros[registro].GrupoDoPai;
      Liga(registro, _registros[pais].Alvo, !_noIndice[pais]);
    }
  }

  void AgrupaPorChave() {
    std::vector<Entrada> porChave;
    porChave.reserve(_chaves.size());
    _espera.reserve(_chaves.size());
    for (std::uint32_t i = 0; i < _chaves.size(); ++i) {
      porChave.push_back({_chaves[i].ChaveEste, i});
      if (_chaves[i].ChaveNivelAnterior != 0) {
        _espera.push_back({_chaves[i].ChaveNivelAnterior, i});
      }
    }
    Ordena(porChave);
    Ordena(_espera);
    std::uint32_t espera = 0;
    std::uint32_t grupo = 0;
    for (std::size_t i = 0; i < porChave.size(); ++i) {
      const auto [chave, registro] = porChave[i];
      if (i == 0 || chave != porChave[i - 1].Chave) {
        grupo = registro;
        AbreGrupo(grupo, chave, espera);
      }
      _registros[registro].Grupo = grupo;
    }
  }

  // `espera` is how far the groups of smaller keys have come in _espera.
  void AbreGrupo(std::uint32_t grupo, std::uint32_t chave, std::uint32_t& espera) {
    while (espera < _espera.size() && _espera[espera].Chave < chave) ++espera;
    _registros[grupo].Espera = espera;
    for (; espera < _espera.size() && _espera[espera].Chave == chave; ++espera) {
      _registros[_espera[espera].Posicao].GrupoDoPai = grupo;
    }
  }

  void Liga(std::uint32_t registro, std::uint32_t pai, bool entraNoIndice) {
    const auto node = static_cast<std::uint32_t>(_nodes.size());
    _nodes.push_back({registro, pai, 0, 0});
    const std::uint32_t grupo = _registros[registro].Grupo;
    std::uint32_t& alvo = _registros[grupo].Alvo;
    if (alvo == 0) Acorda(_registros[grupo].Espera, _chaves[registro].ChaveEste);
    if (entraNoIndice) {
      alvo = node;
      _noIndice[grupo] = true;
    } else if (alvo == 0 || (!_noIndice[grupo] && NovoVemAntes(node, alvo))) {
      alvo = node;
    }
  }

  // The records that name the key can be attached from now on.
  void Acorda(std::uint32_t espera, std::uint32_t chave) {
    for (; espera < _espera.size() && _espera[espera].Chave == chave; ++espera) {
      _prontos.Poe(_espera[espera].Posicao);
    }
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

  void LigaIrmaos() {
    for (auto node = static_cast<std::uint32_t>(_nodes.size() - 1); node > 0; --node) {
      NodeDaHierarquia& este = _nodes[node];
      este.ProximoIrmao = std::exchange(_nodes[este.Pai].PrimeiroFilho, node);
    }
  }

  const Chaves& _chaves;
  std::vector<Registro> _registros;
  std::vector<bool> _noIndice;   // by group
  std::vector<Entrada> _espera;  // records with a parent key, by that key and in source order
  std::vector<NodeDaHierarquia> _nodes;
  std::vector<Subida> _subidas;  // by node
  FilaOrdenada _prontos;         // records that can be attached, by source order
};

}  // namespace

std::vector<NodeDaHierarquia> MontaHierarquia(const Chaves& chaves) {
  return Montagem(chaves).Monta();
}

}  // namespace kx
