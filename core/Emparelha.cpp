#include "core/Emparelha.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "core/Checksum.h"
#include "core/Igualdade.h"

namespace kx {

namespace {

// Elements that have less than this of their filled fields in common are other elements.
constexpr double kMesmo = 0.5;
// Up to so many pairs, each is looked at.
constexpr std::size_t kPoucos = 400;
// So many fields are tried as keys.
constexpr std::size_t kChaves = 4;

using Pares = std::vector<Par>;

// A stretch of both collections, each from its first to before its end.
struct Vao {
  std::size_t A;
  std::size_t FimA;
  std::size_t B;
  std::size_t FimB;
};

struct Chave {
  std::uint32_t Resumo;
  std::size_t Onde;
  auto operator<=>(const Chave&) const = default;
};

// Of pairs in the order of A, as many as also are in the order of B.
Pares EmOrdem(const Pares& pares) {
  std::vector<std::size_t> ultimos;  // of the sequences of each length, the one that ends lowest
  std::vector<std::size_t> anterior(pares.size());
  for (std::size_t i = 0; i < pares.size(); ++i) {
    const auto lugar =
        std::lower_bound(ultimos.begin(), ultimos.end(), pares[i].B,
                         [&](std::size_t ultimo, std::size_t b) { return pares[ultimo].B < b; });
    anterior[i] = lugar == ultimos.begin() ? i : *(lugar - 1);
    if (lugar == ultimos.end()) {
      ultimos.push_back(i);
    } else {
      *lugar = i;
    }
  }
  Pares escolhidos(ultimos.size());
  if (ultimos.empty()) return escolhidos;
  std::size_t i = ultimos.back();
  for (std::size_t n = escolhidos.size(); n-- > 0; i = anterior[i]) escolhidos[n] = pares[i];
  return escolhidos;
}

// The first of a key with the first of the same in the other, the second with the second... Where
// `unicas`, only keys that each side has once.
Pares PorChave(std::vector<Chave> a, std::vector<Chave> b, bool unicas) {
  std::sort(a.begin(), a.end());
  std::sort(b.begin(), b.end());
  Pares pares;
  auto daqui = b.begin();
  for (auto i = a.begin(); i != a.end();) {
    const auto fim =
        std::find_if(i, a.end(), [&](const Chave& c) { return c.Resumo != i->Resumo; });
    daqui = std::find_if(daqui, b.end(), [&](const Chave& c) { return c.Resumo >= i->Resumo; });
    const auto ate =
        std::find_if(daqui, b.end(), [&](const Chave& c) { return c.Resumo != i->Resumo; });
    const bool vale = !unicas || (fim - i == 1 && ate - daqui == 1);
    for (; vale && i != fim && daqui != ate; ++i, ++daqui) pares.push_back({i->Onde, daqui->Onde});
    i = fim;
    daqui = ate;
  }
  std::sort(pares.begin(), pares.end(), [](const Par& x, const Par& y) { return x.A < y.A; });
  return EmOrdem(pares);
}

class Emparelhador {
 public:
  Emparelhador(const Colecao& a, const Colecao& b, const KXRegistroInfo* info)
      : _a(a), _b(b), _info(info) {
    if (info == nullptr) return;
    LinhaVisivel visivel;
    for (const KXCampo& campo : info->Campos) {
      if (visivel(campo)) _campos.push_back(&campo);
    }
  }

  Pares Todos() {
    Entre({0, _a.Resumos.size(), 0, _b.Resumos.size()},
          PorChave(Chaves(_a.Resumos), Chaves(_b.Resumos), false),
          [this](const Vao& vao) { Semelhantes(vao); });
    return std::move(_pares);
  }

 private:
  static std::vector<Chave> Chaves(const std::vector<std::uint32_t>& resumos) {
    std::vector<Chave> chaves;
    chaves.reserve(resumos.size());
    for (std::size_t i = 0; i < resumos.size(); ++i) chaves.push_back({resumos[i], i});
    return chaves;
  }

  // The pairs, and before, between and behind them what the function finds.
  void Entre(Vao vao, const Pares& pares, auto acha) {
    for (const Par& par : pares) {
      acha(Vao{vao.A, par.A, vao.B, par.B});
      _pares.push_back(par);
      vao.A = par.A + 1;
      vao.B = par.B + 1;
    }
    acha(vao);
  }

  // None of these is equal to one of the others.
  void Semelhantes(const Vao& vao) {
    const std::size_t a = vao.FimA - vao.A;
    const std::size_t b = vao.FimB - vao.B;
    if (_info == nullptr || (a == 1 && b == 1)) {
      const Pares pares = NaOrdem(vao);
      _pares.insert(_pares.end(), pares.begin(), pares.end());
    } else if (a * b <= kPoucos) {
      UmPorUm(vao);
    } else {
      PeloMelhorCampo(vao);
    }
  }

  static Pares NaOrdem(const Vao& vao) {
    Pares pares;
    for (Par par{vao.A, vao.B}; par.A < vao.FimA && par.B < vao.FimB; ++par.A, ++par.B) {
      pares.push_back(par);
    }
    return pares;
  }

  // The alignment of the greatest likeness, by the best of every two beginnings.
  void UmPorUm(const Vao& vao) {
    const std::size_t a = vao.FimA - vao.A;
    const std::size_t b = vao.FimB - vao.B;
    const std::size_t largura = b + 1;
    std::vector<double> valor((a + 1) * largura, 0);  // of what is left from there
    std::vector<double> semelhanca(a * largura, 0);
    for (std::size_t i = a; i-- > 0;) {
      for (std::size_t j = b; j-- > 0;) {
        const double esta = semelhanca[i * largura + j] = Semelhanca({vao.A + i, vao.B + j});
        const double sem = std::max(valor[(i + 1) * largura + j], valor[i * largura + j + 1]);
        const double com = esta < kMesmo ? 0 : esta + valor[(i + 1) * largura + j + 1];
        valor[i * largura + j] = std::max(sem, com);
      }
    }
    for (std::size_t i = 0, j = 0; i < a && j < b;) {
      const double esta = semelhanca[i * largura + j];
      const double aqui = valor[i * largura + j];
      if (esta >= kMesmo && aqui <= esta + valor[(i + 1) * largura + j + 1]) {
        _pares.push_back({vao.A + i++, vao.B + j++});
      } else if (aqui <= valor[(i + 1) * largura + j]) {
        ++i;
      } else {
        ++j;
      }
    }
  }

  // As one looks for a line that was changed: by the field that tells the others apart.
  void PeloMelhorCampo(const Vao& vao) {
    std::vector<Pares> tentativas{NaOrdem(vao)};
    for (const KXCampo* campo : _campos) {
      tentativas.push_back(
          PorChave(Chaves(_a, vao.A, vao.FimA, *campo), Chaves(_b, vao.B, vao.FimB, *campo), true));
    }
    const auto depois = tentativas.begin() + 1;
    const auto quantas = std::min<std::ptrdiff_t>(kChaves, tentativas.end() - depois);
    std::partial_sort(depois, depois + quantas, tentativas.end(),
                      [](const Pares& x, const Pares& y) { return x.size() > y.size(); });
    Pares melhores;
    double melhor = -1;
    for (Pares& pares : std::span(tentativas).first(static_cast<std::size_t>(quantas) + 1)) {
      const double total = SoSemelhantes(pares);
      if (total > melhor) melhores = std::move(pares);
      melhor = std::max(melhor, total);
    }
    Entre(vao, melhores, [this](const Vao& dentro) {
      if ((dentro.FimA - dentro.A) * (dentro.FimB - dentro.B) <= kPoucos) UmPorUm(dentro);
    });
  }

  // Leaves out what is not alike, and tells how much the others are.
  double SoSemelhantes(Pares& pares) const {
    double total = 0;
    std::erase_if(pares, [&](const Par& par) {
      const double esta = Semelhanca(par);
      total += esta < kMesmo ? 0 : esta;
      return esta < kMesmo;
    });
    return total;
  }

  // Of the elements in whose records the field is not empty.
  static std::vector<Chave> Chaves(const Colecao& colecao, std::size_t de, std::size_t ate,
                                   const KXCampo& campo) {
    std::vector<Chave> chaves;
    for (std::size_t i = de; i < ate; ++i) {
      const char* const bytes = Campo(colecao, i, campo);
      if (TudoZero(bytes, campo.Largura)) continue;
      chaves.push_back({CalculaChecksum(bytes, campo.Largura), i});
    }
    return chaves;
  }

  // Of the fields that either has, those that both have alike; 1 when neither has any.
  double Semelhanca(const Par& par) const {
    int iguais = 0;
    int outros = 0;
    for (const KXCampo* campo : _campos) {
      const char* const a = Campo(_a, par.A, *campo);
      if (std::memcmp(a, Campo(_b, par.B, *campo), campo->Largura) != 0) {
        ++outros;
      } else if (!TudoZero(a, campo->Largura)) {
        ++iguais;
      }
    }
    return iguais + outros == 0 ? 1 : double(iguais) / (iguais + outros);
  }

  static const char* Campo(const Colecao& colecao, std::size_t i, const KXCampo& campo) {
    return static_cast<const char*>(colecao.Registros[i]) + campo.Posicao;
  }

  const Colecao& _a;
  const Colecao& _b;
  const KXRegistroInfo* _info;
  std::vector<const KXCampo*> _campos;  // that people see
  Pares _pares;
};

}  // namespace

std::vector<Par> Emparelha(const Colecao& a, const Colecao& b, const KXRegistroInfo* info) {
  return Emparelhador(a, b, info).Todos();
}

}  // namespace kx
