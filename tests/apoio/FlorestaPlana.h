// The rules of the approval hierarchy transcribed one by one, at their own price: what the library
// does faster is held against them.
#pragma once

#include <list>
#include <map>
#include <string>
#include <vector>

#include "ac/DadosAC.h"

namespace apoio {

using ChavesAC = tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS;

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

// The same text of the library's own.
inline std::string TextoDaFloresta(const CKXDadosCM_ACTreeAutorizacaoCompra& node) {
  std::string texto;
  for (POSITION p = node.GetExNodes().GetHeadPosition(); p != nullptr;) {
    const CKXDadosCM_ACTreeAutorizacaoCompra& filho = node.GetExNodes().GetNext(p);
    texto += std::to_string(filho.GetrACSmall().ChaveEste) + "<" +
             std::to_string(filho.GetrACSmall().ChaveNivelAnterior);
    if (filho.GetQuantidadeNodes() > 0) texto += "(" + TextoDaFloresta(filho) + ")";
    if (p != nullptr) texto += " ";
  }
  return texto;
}

}  // namespace apoio
