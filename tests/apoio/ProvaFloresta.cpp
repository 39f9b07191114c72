#include "tests/apoio/ProvaFloresta.h"

#include <list>
#include <map>
#include <utility>

namespace apoio {

namespace {

using Arvore = CKXDadosCM_ACTreeAutorizacaoCompra;

// The rules of the hierarchy transcribed one by one, at their own price.
struct FlorestaPlana {
  ChavesAC Registro{};
  HTREEITEM Item = nullptr;
  std::list<FlorestaPlana> Filhos;

  FlorestaPlana* Adiciona(const ChavesAC& novo) {
    for (FlorestaPlana& filho : Filhos) {
      if (filho.Registro.ChaveEste == novo.ChaveNivelAnterior) return filho.Pendura(novo);
      if (FlorestaPlana* const achado = filho.Adiciona(novo)) return achado;
    }
    return nullptr;
  }

  void Monta(const std::vector<ChavesAC>& registros) {
    std::map<std::uint32_t, FlorestaPlana*> indice;
    std::list<ChavesAC> pendentes;
    for (const ChavesAC& chaves : registros) {
      if (chaves.ChaveNivelAnterior == 0) {
        indice[chaves.ChaveEste] = Pendura(chaves);
      } else {
        pendentes.push_back(chaves);
      }
    }
    for (auto p = pendentes.begin(); p != pendentes.end();) {
      const auto pai = indice.find(p->ChaveNivelAnterior);
      if (pai != indice.end()) {
        pai->second->Pendura(*p);
      } else if (FlorestaPlana* const novo = Adiciona(*p)) {
        indice[p->ChaveEste] = novo;
      } else {
        ++p;
        continue;
      }
      pendentes.erase(p);
      p = pendentes.begin();
    }
  }

  HTREEITEM AchaItem(std::uint32_t chave) const {
    if (Registro.ChaveEste == chave) return Item;
    for (const FlorestaPlana& filho : Filhos) {
      if (const HTREEITEM achado = filho.AchaItem(chave)) return achado;
    }
    return nullptr;
  }

  std::uint32_t AchaChave(HTREEITEM item) const {
    if (Item == item) return Registro.ChaveEste;
    for (const FlorestaPlana& filho : Filhos) {
      if (const std::uint32_t achada = filho.AchaChave(item)) return achada;
    }
    return 0;
  }

  bool EhReferenciaCiclica(std::uint32_t chave, std::uint32_t procurada) const {
    if (chave == Registro.ChaveEste) chave = 0;
    if (chave == 0 && procurada == Registro.ChaveEste) return true;
    for (const FlorestaPlana& filho : Filhos) {
      if (filho.EhReferenciaCiclica(chave, procurada)) return true;
    }
    return false;
  }

  // The keys of the subtrees whose first node names the key as its level above; all those below
  // this node when `todas`.
  void Localiza(std::uint32_t chave, bool todas, std::vector<unsigned long>& chaves) const {
    for (const FlorestaPlana& filho : Filhos) {
      const bool entra = todas || filho.Registro.ChaveNivelAnterior == chave;
      if (entra) chaves.push_back(filho.Registro.ChaveEste);
      filho.Localiza(chave, entra, chaves);
    }
  }

  bool Deleta(std::uint32_t chave) {
    for (auto filho = Filhos.begin(); filho != Filhos.end(); ++filho) {
      if (filho->Registro.ChaveEste == chave) {
        Filhos.erase(filho);
        return true;
      }
      if (filho->Deleta(chave)) return true;
    }
    return false;
  }

  // "level:key" of each node below, in pre-order.
  std::string Niveis(std::size_t nivel = 0) const {
    std::string texto;
    for (const FlorestaPlana& filho : Filhos) {
      texto += std::to_string(nivel) + ":" + std::to_string(filho.Registro.ChaveEste) + " " +
               filho.Niveis(nivel + 1);
    }
    return texto;
  }

  // "key<level above" of each child, its own children in parentheses.
  std::string Texto() const {
    std::string texto;
    for (const FlorestaPlana& filho : Filhos) {
      if (!texto.empty()) texto += " ";
      texto += std::to_string(filho.Registro.ChaveEste) + "<" +
               std::to_string(filho.Registro.ChaveNivelAnterior);
      if (!filho.Filhos.empty()) texto += "(" + filho.Texto() + ")";
    }
    return texto;
  }

 private:
  FlorestaPlana* Pendura(const ChavesAC& chaves) {
    return &Filhos.emplace_back(FlorestaPlana{chaves, nullptr, {}});
  }
};

// Small keys, so that duplicates, cycles and orphans happen; large ones differ in all their bytes.
struct Sorteio {
  std::uint32_t Mascara;
  std::uint32_t Escala;

  std::uint32_t Chave(Bytes& bytes) const { return (bytes.Byte() & Mascara) * Escala; }
};

std::vector<ChavesAC> LeRegistros(Bytes& bytes, const Sorteio& sorteio) {
  constexpr std::size_t kMaximo = 120;  // the plain build costs the cube of it
  std::vector<ChavesAC> registros;
  while (!bytes.Acabou() && registros.size() < kMaximo) {
    const std::uint32_t chave = sorteio.Chave(bytes);
    registros.push_back({chave, sorteio.Chave(bytes)});
  }
  return registros;
}

Arvore Monta(const std::vector<ChavesAC>& registros) {
  Arvore::ListaDeChaves lista;
  for (const ChavesAC& chaves : registros) lista.AddTail(chaves);
  Arvore raiz;
  raiz.CopiarDe(lista);
  return raiz;
}

// The same from the list of rules, each node with its own.
Arvore MontaDeRegras(const std::vector<ChavesAC>& registros) {
  std::vector<tagREG_CM_AUTORIZACAO_CMSAUTPS> regras(registros.size());
  for (std::size_t i = 0; i < registros.size(); ++i) {
    regras[i].ChaveEste = registros[i].ChaveEste;
    regras[i].ChaveNivelAnterior = registros[i].ChaveNivelAnterior;
  }
  const tagREG_CM_LE_LISTA_AC_CMSAUTPS lista{static_cast<int>(regras.size()), {}, regras.data()};
  Arvore raiz;
  raiz.CopiarDe(&lista);
  return raiz;
}

void ExigeRegraPropria(const Arvore& node) {
  for (POSITION p = node.GetExNodes().GetHeadPosition(); p != nullptr;) {
    const Arvore& filho = node.GetExNodes().GetNext(p);
    KX_EXIGE(filho.GetQuantidadeAC() == 1);
    KX_EXIGE(filho.GetAC(0).GetChaveEste() == filho.GetrACSmall().ChaveEste);
    ExigeRegraPropria(filho);
  }
}

// A handle is a number, which nobody follows.
HTREEITEM Item(std::uintptr_t numero) {
  return reinterpret_cast<HTREEITEM>(numero * 16);  // NOLINT(performance-no-int-to-ptr)
}

// Few items for many nodes, and none for some of them; the same in both.
void PoeItens(Arvore& node, FlorestaPlana& plana, std::uint8_t passo, unsigned& ordem) {
  const std::uintptr_t numero = (ordem++ * passo) % 8;
  plana.Item = Item(numero);
  node.SethTI(plana.Item);
  POSITION p = node.GetExNodes().GetHeadPosition();
  for (FlorestaPlana& filho : plana.Filhos) {
    PoeItens(node.GetExNodes().GetNext(p), filho, passo, ordem);
  }
}

void ExigeBuscas(const Arvore& raiz, const FlorestaPlana& plana, std::uint32_t a, std::uint32_t b) {
  KX_EXIGE(raiz.AchaItemArvore(a) == plana.AchaItem(a));
  const HTREEITEM item = Item(1 + b % 7);
  KX_EXIGE(raiz.AchaPonteiroArvore(item) == plana.AchaChave(item));
  KX_EXIGE(raiz.EhReferenciaCiclica(a, b) == plana.EhReferenciaCiclica(a, b));

  CArray<unsigned long> chaves;
  raiz.LocalizaChaveTodosNosFilhos(a, chaves);
  std::vector<unsigned long> esperadas{a};
  plana.Localiza(a, false, esperadas);
  KX_EXIGE(chaves.GetSize() == static_cast<std::ptrdiff_t>(esperadas.size()));
  for (std::size_t i = 0; i < esperadas.size(); ++i) {
    KX_EXIGE(chaves[static_cast<std::ptrdiff_t>(i)] == esperadas[i]);
  }
}

}  // namespace

std::string TextoDaFloresta(const Arvore& node) {
  std::string texto;
  for (POSITION p = node.GetExNodes().GetHeadPosition(); p != nullptr;) {
    const Arvore& filho = node.GetExNodes().GetNext(p);
    texto += std::to_string(filho.GetrACSmall().ChaveEste) + "<" +
             std::to_string(filho.GetrACSmall().ChaveNivelAnterior);
    if (filho.GetQuantidadeNodes() > 0) texto += "(" + TextoDaFloresta(filho) + ")";
    if (p != nullptr) texto += " ";
  }
  return texto;
}

void ProvaFloresta(const std::vector<ChavesAC>& registros, std::uint32_t a, std::uint32_t b,
                   std::uint8_t passo) {
  FlorestaPlana plana;
  plana.Monta(registros);
  Arvore raiz = Monta(registros);
  KX_EXIGE(TextoDaFloresta(raiz) == plana.Texto(), TextoDaFloresta(raiz) + "\n" + plana.Texto());
  const Arvore deRegras = MontaDeRegras(registros);
  KX_EXIGE(TextoDaFloresta(deRegras) == plana.Texto(), TextoDaFloresta(deRegras));
  ExigeRegraPropria(deRegras);

  const bool entrou = raiz.AdicionaNode(ChavesAC{a, b}) != nullptr;
  KX_EXIGE(entrou == (plana.Adiciona({a, b}) != nullptr));
  KX_EXIGE(TextoDaFloresta(raiz) == plana.Texto(), TextoDaFloresta(raiz) + "\n" + plana.Texto());

  unsigned ordem = 0;
  PoeItens(raiz, plana, passo, ordem);
  ExigeBuscas(raiz, plana, a, b);
  ExigeBuscas(raiz, plana, b, a);

  Arvore copia(raiz);
  KX_EXIGE(copia == raiz);
  Arvore movida(std::move(copia));
  KX_EXIGE(movida == raiz);
  raiz.AdicionaExNodes(raiz);
  KX_EXIGE(movida != raiz);

  std::string niveis;
  for (auto [node, nivel] : std::as_const(movida).Percorre()) {
    niveis += std::to_string(nivel) + ":" + std::to_string(node.GetrACSmall().ChaveEste) + " ";
  }
  KX_EXIGE(niveis == plana.Niveis(), niveis);
  const bool saiu = plana.Deleta(b);
  const Arvore* const achado = movida.AchaNode(b);
  KX_EXIGE(saiu == (achado != nullptr) && (!saiu || achado->GetrACSmall().ChaveEste == b));
  KX_EXIGE(movida.DeletarNode(b) == saiu);
  KX_EXIGE(TextoDaFloresta(movida) == plana.Texto(), TextoDaFloresta(movida));
}

void ProvaFloresta(Bytes bytes) {
  const Sorteio sorteio{(2U << bytes.Ate(7)) - 1U, bytes.Byte() % 2 == 0 ? 1U : 0x01234567U};
  const std::uint8_t passo = bytes.Byte();
  const std::uint32_t a = sorteio.Chave(bytes);
  const std::uint32_t b = sorteio.Chave(bytes);
  const std::vector<ChavesAC> registros = LeRegistros(bytes, sorteio);
  ProvaFloresta(registros, a, b, passo);
}

}  // namespace apoio
