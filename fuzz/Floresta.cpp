// The hierarchy of approval rules, its build and its searches, against their plain transcription.
#include <vector>

#include "fuzz/Fuzz.h"
#include "tests/apoio/FlorestaPlana.h"

namespace {

using Arvore = CKXDadosCM_ACTreeAutorizacaoCompra;
using apoio::ChavesAC;
using apoio::FlorestaPlana;
using apoio::TextoDaFloresta;
using fuzz::Bytes;

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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  Bytes bytes(dados, tamanho);
  const Sorteio sorteio{(2U << bytes.Ate(7)) - 1U, bytes.Byte() % 2 == 0 ? 1U : 0x01234567U};
  const std::uint8_t passo = bytes.Byte();
  const std::uint32_t a = sorteio.Chave(bytes);
  const std::uint32_t b = sorteio.Chave(bytes);
  const std::vector<ChavesAC> registros = LeRegistros(bytes, sorteio);

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
  const Arvore movida(std::move(copia));
  KX_EXIGE(movida == raiz);
  raiz.AdicionaExNodes(raiz);
  KX_EXIGE(movida != raiz);
  return 0;
}
