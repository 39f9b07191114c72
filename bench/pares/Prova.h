// The proof that a format carries the whole order: one in which every field and every reserve is in
// use, with each kind of child, goes through it and comes back the same, byte for byte.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <random>

#include "Plano.h"
#include "bench/OrdemDeMedida.h"

namespace prova {

// Random bytes, none of them zero, but for what follows a text's terminator.
inline void Sorteia(const KXCampo& campo, char* bytes, std::mt19937& sorteio) {
  for (std::size_t i = 0; i < campo.Largura; ++i) {
    bytes[i] = static_cast<char>(sorteio() % 255 + 1);
  }
  if (campo.Tipo == KXTipoCampo::Texto || campo.Tipo == KXTipoCampo::Historico) {
    const std::size_t tamanho = sorteio() % campo.Largura;
    std::memset(bytes + tamanho, 0, campo.Largura - tamanho);
  }
}

inline KXStringPS Texto(std::mt19937& sorteio) {
  const auto tamanho = static_cast<std::uint32_t>(sorteio() % 100 + 2);
  KXStringPS texto{tamanho, 0, new char[tamanho]{}};
  std::memset(texto.Texto, 'a', tamanho - 1);
  return texto;
}

inline void Enche(const KXRegistroInfo& info, char* registro, std::mt19937& sorteio) {
  for (const KXCampo& linha : info.Campos) {
    char* const bytes = registro + linha.Posicao;
    if (linha.Papel == KXPapel::Lista) {
      for (char* filho : Filhos(info, linha, registro)) Enche(*linha.Elemento, filho, sorteio);
    } else if (linha.Papel == KXPapel::Contado) {
      const KXStringPS texto = Texto(sorteio);
      std::memcpy(bytes, &texto, sizeof(texto));
    } else if (linha.Papel != KXPapel::Conta && linha.Papel != KXPapel::Parte) {
      Sorteia(linha, bytes, sorteio);
    }
  }
}

// An order received from the server, with what is never sent: cancellations.
inline std::unique_ptr<Registro> OrdemCheia() {
  constexpr std::uint16_t kQuantos = 2;
  auto ordem = std::make_unique<Registro>(Ordem(kQuantos));
  ordem->Reg.QtdParcela = kQuantos;
  ordem->Reg.ListaParcela = new tagREG_FATURA_COMPRAPS[kQuantos]{};
  ordem->Reg.QtdCancelamento = kQuantos;
  ordem->Reg.ListaCancelamento = new tagREG_CANCELAMENTO_ORDEM_COMPRAPS[kQuantos]{};
  std::mt19937 sorteio(1);
  Enche(KXMetadados<tagREG_ORDEMPS>::kInfo, ordem->Dados(), sorteio);
  return ordem;
}

inline bool MesmoTexto(const char* a, const char* b) {
  KXStringPS textoA;
  KXStringPS textoB;
  std::memcpy(&textoA, a, sizeof(textoA));
  std::memcpy(&textoB, b, sizeof(textoB));
  return textoA.Tamanho == textoB.Tamanho &&
         std::memcmp(textoA.Texto, textoB.Texto, textoA.Tamanho) == 0;
}

// Every row of both records, pointers apart, and of those that hang from them.
inline bool Mesmos(const KXRegistroInfo& info, const char* a, const char* b) {
  for (const KXCampo& linha : info.Campos) {
    const char* const campoA = a + linha.Posicao;
    const char* const campoB = b + linha.Posicao;
    if (linha.Papel == KXPapel::Lista) {
      const auto filhosA = Filhos(info, linha, a);
      const auto filhosB = Filhos(info, linha, b);
      const auto mesmos = [&linha](const char* filhoA, const char* filhoB) {
        return Mesmos(*linha.Elemento, filhoA, filhoB);
      };
      if (filhosA.empty() ||
          !std::equal(filhosA.begin(), filhosA.end(), filhosB.begin(), filhosB.end(), mesmos)) {
        return false;
      }
    } else if (linha.Papel == KXPapel::Contado) {
      if (!MesmoTexto(campoA, campoB)) return false;
    } else if (std::memcmp(campoA, campoB, linha.Largura) != 0) {
      return false;
    }
  }
  return true;
}

// False when the format F loses something.
template <class F>
bool Devolve() {
  const std::unique_ptr<Registro> enviada = OrdemCheia();
  plano::Ordemps ordem;
  DeRegistro(enviada->Reg, ordem);
  typename F::Objeto objeto;
  F::Faz(ordem, objeto);

  typename F::Objeto lido;
  if (!F::Decodifica(F::Codifica(objeto), lido) || !F::Iguais(objeto, lido)) return false;
  plano::Ordemps devolvida;
  F::Desfaz(lido, devolvida);
  Registro recebida{CKXDadosCM_OrdemCompra()};
  recebida.Reg = tagREG_ORDEMPS{};
  ParaRegistro(devolvida, recebida.Reg);
  return Mesmos(KXMetadados<tagREG_ORDEMPS>::kInfo, enviada->Dados(), recebida.Dados());
}

}  // namespace prova
