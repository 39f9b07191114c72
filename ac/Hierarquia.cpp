#include "ac/Hierarquia.h"

#include <algorithm>
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

// The records by their key and by that of the level above. A record's number is one more than its
// place in PorChave.
struct Indice {
  explicit Indice(const Chaves& chaves);

  bool ChavesRepetidas() const;
  // Calls visita(i, pai) for each record with a parent, from the last to the first: i is its place
  // in PorNivelAnterior; pai, the number of the last record with that key, or 0 at the top.
  template <class Visita>
  void ParaCadaFilho(Visita visita) const;

  std::vector<Entrada> PorChave;
  std::vector<Entrada> PorNivelAnterior;
  std::vector<std::uint32_t> Numero;  // by position
};

Indice::Indice(const Chaves& chaves) : Numero(chaves.size()) {
  PorChave.reserve(chaves.size());
  PorNivelAnterior.reserve(chaves.size());
  for (std::uint32_t i = 0; i < chaves.size(); ++i) {
    PorChave.push_back({chaves[i].ChaveEste, i});
    PorNivelAnterior.push_back({chaves[i].ChaveNivelAnterior, i});
  }
  Ordena(PorChave);
  Ordena(PorNivelAnterior);
  for (std::uint32_t i = 0; i < PorChave.size(); ++i) Numero[PorChave[i].Posicao] = i + 1;
}

bool Indice::ChavesRepetidas() const {
  const auto mesma = [](const Entrada& a, const Entrada& b) { return a.Chave == b.Chave; };
  return std::adjacent_find(PorChave.begin(), PorChave.end(), mesma) != PorChave.end();
}

template <class Visita>
void Indice::ParaCadaFilho(Visita visita) const {
  auto pai = static_cast<std::uint32_t>(PorChave.size());
  for (auto i = static_cast<std::uint32_t>(PorNivelAnterior.size()); i-- > 0;) {
    const std::uint32_t chave = PorNivelAnterior[i].Chave;
    while (pai > 0 && PorChave[pai - 1].Chave > chave) --pai;
    if (chave == 0) {
      visita(i, 0);
    } else if (pai > 0 && PorChave[pai - 1].Chave == chave) {
      visita(i, pai);
    }
  }
}

Hierarquia SemLigacoes(const Indice& indice) {
  const std::size_t quantos = indice.PorChave.size() + 1;
  Hierarquia h{std::vector<std::uint32_t>(quantos), std::vector<std::uint32_t>(quantos),
               std::vector<std::uint32_t>(quantos)};
  for (std::size_t i = 1; i < quantos; ++i) h.Posicao[i] = indice.PorChave[i - 1].Posicao;
  return h;
}

void LigaNaFrente(Hierarquia& h, std::uint32_t filho, std::uint32_t pai) {
  h.ProximoIrmao[filho] = std::exchange(h.PrimeiroFilho[pai], filho);
}

// When no two records share a key: all children of a record can be attached from the moment it is,
// so they stand in source order, and nothing depends on when.
Hierarquia LigaTodos(const Indice& indice) {
  Hierarquia h = SemLigacoes(indice);
  indice.ParaCadaFilho([&](std::uint32_t i, std::uint32_t pai) {
    LigaNaFrente(h, indice.Numero[indice.PorNivelAnterior[i].Posicao], pai);
  });
  return h;
}

// Attaches the records one by one, in the order that the rules give.
class Montagem {
 public:
  Montagem(const Chaves& chaves, const Indice& indice)
      : _chaves(chaves),
        _indice(indice),
        _registros(chaves.size()),
        _grupos(chaves.size() + 1),
        _prontos(chaves.size()) {
    _nodes.reserve(chaves.size() + 1);
    _nodes.emplace_back();
    Agrupa();
  }

  Hierarquia Monta() {
    for (std::uint32_t i = 0; i < _chaves.size(); ++i) {
      if (_chaves[i].ChaveNivelAnterior == 0) Liga(i, 0, true);
    }
    while (!_prontos.Vazia()) {
      const std::uint32_t registro = _prontos.Tira();
      const Grupo& pais = _grupos[_registros[registro].GrupoDoPai];
      Liga(registro, pais.Alvo, !pais.NoIndice);
    }
    return Resultado();
  }

 private:
  // The records of one key are a group, which has the number of the last of them.
  struct Registro {
    std::uint32_t Grupo;
    std::uint32_t GrupoDoPai;  // 0 when its parent key is no record's
  };

  struct Grupo {
    std::uint32_t Alvo;    // node that takes the next child; 0 = no node yet
    std::uint32_t Espera;  // where the records that name the key begin in PorNivelAnterior
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

  void Agrupa() {
    const auto& porChave = _indice.PorChave;
    std::uint32_t grupo = 0;
    for (auto i = static_cast<std::uint32_t>(porChave.size()); i-- > 0;) {
      if (i + 1 == porChave.size() || porChave[i].Chave != porChave[i + 1].Chave) grupo = i + 1;
      _registros[porChave[i].Posicao].Grupo = grupo;
    }
    _indice.ParaCadaFilho([this](std::uint32_t i, std::uint32_t pai) {
      _registros[_indice.PorNivelAnterior[i].Posicao].GrupoDoPai = pai;
      _grupos[pai].Espera = i;
    });
  }

  void Liga(std::uint32_t registro, std::uint32_t pai, bool entraNoIndice) {
    const auto node = static_cast<std::uint32_t>(_nodes.size());
    _nodes.push_back({registro, pai});
    Grupo& grupo = _grupos[_registros[registro].Grupo];
    if (grupo.Alvo == 0) Acorda(grupo.Espera, _chaves[registro].ChaveEste);
    if (entraNoIndice) {
      grupo.Alvo = node;
      grupo.NoIndice = true;
    } else if (grupo.Alvo == 0 || (!grupo.NoIndice && NovoVemAntes(node, grupo.Alvo))) {
      grupo.Alvo = node;
    }
  }

  // The records that name the key can be attached from now on; key 0 is named by none.
  void Acorda(std::uint32_t desde, std::uint32_t chave) {
    const auto& espera = _indice.PorNivelAnterior;
    for (auto i = desde; chave != 0 && i < espera.size() && espera[i].Chave == chave; ++i) {
      _prontos.Poe(espera[i].Posicao);
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

  Hierarquia Resultado() const {
    Hierarquia h = SemLigacoes(_indice);
    for (std::size_t i = _nodes.size() - 1; i > 0; --i) {
      const std::uint32_t pai = _nodes[i].Pai;
      LigaNaFrente(h, _indice.Numero[_nodes[i].Registro],
                   pai == 0 ? 0 : _indice.Numero[_nodes[pai].Registro]);
    }
    return h;
  }

  const Chaves& _chaves;
  const Indice& _indice;
  std::vector<Registro> _registros;  // by position
  std::vector<Grupo> _grupos;
  std::vector<Node> _nodes;      // in the order in which they are attached; 0 is the root
  std::vector<Subida> _subidas;  // by node
  FilaOrdenada _prontos;         // records that can be attached, by position
};

}  // namespace

Hierarquia MontaHierarquia(const Chaves& chaves) {
  const Indice indice(chaves);
  return indice.ChavesRepetidas() ? Montagem(chaves, indice).Monta() : LigaTodos(indice);
}

}  // namespace kx
