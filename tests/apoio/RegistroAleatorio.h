// Records of any type with random contents, from their metadata alone: the sweeps over all tables
// use them. Arrays and texts come from the task allocator unless another is asked for.
#pragma once

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

#include "core/Listas.h"
#include "core/Metadados.h"

namespace apoio {

using Gerador = std::mt19937;

inline unsigned Sorteia(Gerador& gerador, unsigned ate) {
  return static_cast<unsigned>(gerador() % (ate + 1));
}

inline std::string TextoAleatorio(Gerador& gerador, std::size_t maximo) {
  std::string texto(Sorteia(gerador, static_cast<unsigned>(maximo)), '\0');
  for (char& c : texto) c = static_cast<char>(1 + Sorteia(gerador, 254));
  return texto;
}

// The bytes that do not travel.
inline void ZeraOQueNaoViaja(const KXRegistroInfo& info, unsigned char* bytes) {
  for (const KXCampo& campo : info.Campos) {
    if (campo.Papel == KXPapel::Zero) std::memset(bytes + campo.Posicao, 0, campo.Largura);
    if (campo.Tipo == KXTipoCampo::DataHora32) {  // the date alone
      std::memset(bytes + campo.Posicao + sizeof(REG_KXDMA), 0, campo.Largura - sizeof(REG_KXDMA));
    }
  }
}

inline const KXCampo& CampoDe(const KXRegistroInfo& info, const std::string& nome) {
  for (const KXCampo& campo : info.Campos) {
    if (nome == campo.Nome) return campo;
  }
  throw std::out_of_range("sem campo " + nome);
}

// The row of the count that belongs to a list row.
inline const KXCampo& ContaDe(const KXRegistroInfo& info, const KXCampo& lista) {
  return CampoDe(info, std::string("Qtd") + (lista.Nome + std::strlen("Lista")));
}

inline const KXCampo& TamanhoDe(const KXRegistroInfo& info, const KXCampo& corrido) {
  return CampoDe(info, std::string("Tamanho") + (corrido.Nome + std::strlen("Texto")));
}

inline bool EhTextoFixo(const KXCampo& campo) {
  return campo.Tipo == KXTipoCampo::Texto || campo.Tipo == KXTipoCampo::Historico;
}

inline void PreencheTexto(Gerador& gerador, KXStringPS& destino, kx::Alocador alocador) {
  const std::string texto = TextoAleatorio(gerador, 40);
  kx::EscreveContado(CString(std::string_view(texto)), destino, alocador, kx::kSemLimite);
}

// Fills every byte of the record, and up to `filhos` elements in every child array.
inline void Preenche(Gerador& gerador, const KXRegistroInfo& info, void* registro, unsigned filhos,
                     kx::Alocador alocador = kx::Alocador::Tarefa) {
  auto* bytes = static_cast<unsigned char*>(registro);
  for (std::uint32_t i = 0; i < info.Tamanho; ++i) {
    bytes[i] = static_cast<unsigned char>(Sorteia(gerador, 255));
  }
  for (const KXCampo& campo : info.Campos) {
    unsigned char* inicio = bytes + campo.Posicao;
    if (campo.Papel == KXPapel::Contado) {
      PreencheTexto(gerador, *reinterpret_cast<KXStringPS*>(inicio), alocador);
    } else if (campo.Papel == KXPapel::Lista) {
      const auto quantos = static_cast<std::uint16_t>(Sorteia(gerador, filhos));
      unsigned char* array = nullptr;
      if (quantos > 0) {
        array =
            kx::AlocaArray<unsigned char>(alocador, std::size_t{quantos} * campo.Elemento->Tamanho);
      }
      for (std::size_t i = 0; i < quantos; ++i) {
        Preenche(gerador, *campo.Elemento, array + i * campo.Elemento->Tamanho, filhos, alocador);
      }
      std::memcpy(inicio, &array, sizeof(array));
      std::memcpy(bytes + ContaDe(info, campo).Posicao, &quantos, sizeof(quantos));
    } else if (campo.Papel == KXPapel::Corrido) {
      const std::string texto = TextoAleatorio(gerador, 40);
      kx::EscreveCorrido(CString(std::string_view(texto)), *reinterpret_cast<char**>(inicio),
                         *reinterpret_cast<std::uint16_t*>(bytes + TamanhoDe(info, campo).Posicao),
                         alocador);
    } else if (campo.Papel == KXPapel::Terminado) {
      const std::string texto = TextoAleatorio(gerador, 40);
      kx::EscreveTerminado(CString(std::string_view(texto)), *reinterpret_cast<char**>(inicio),
                           alocador);
    } else if (EhTextoFixo(campo)) {
      const std::string texto = TextoAleatorio(gerador, campo.Largura - 1U);
      std::memset(inicio, 0, campo.Largura);
      // NOLINTNEXTLINE(bugprone-not-null-terminated-result): the field holds zeros already
      std::memcpy(inicio, texto.data(), texto.size());
    }
  }
  ZeraOQueNaoViaja(info, bytes);
}

// Where two records, their arrays and texts differ first; empty when they are the same byte for
// byte, pointers aside.
inline std::string Diferenca(const KXRegistroInfo& info, const void* a, const void* b) {
  const auto* bytesA = static_cast<const unsigned char*>(a);
  const auto* bytesB = static_cast<const unsigned char*>(b);
  for (const KXCampo& campo : info.Campos) {
    const unsigned char* campoA = bytesA + campo.Posicao;
    const unsigned char* campoB = bytesB + campo.Posicao;
    std::string onde = std::string(info.Nome) + "." + campo.Nome;
    if (campo.Papel == KXPapel::Lista) {
      std::uint16_t quantos = 0;
      std::memcpy(&quantos, bytesA + ContaDe(info, campo).Posicao, sizeof(quantos));
      const unsigned char* arrayA = nullptr;
      const unsigned char* arrayB = nullptr;
      std::memcpy(&arrayA, campoA, sizeof(arrayA));
      std::memcpy(&arrayB, campoB, sizeof(arrayB));
      if ((arrayA == nullptr) != (arrayB == nullptr)) return onde;
      for (std::size_t i = 0; i < quantos; ++i) {
        const std::size_t posicao = i * campo.Elemento->Tamanho;
        const std::string dentro = Diferenca(*campo.Elemento, arrayA + posicao, arrayB + posicao);
        if (!dentro.empty()) return onde.append(" / ").append(dentro);
      }
    } else if (campo.Papel == KXPapel::Contado) {
      const auto& textoA = *reinterpret_cast<const KXStringPS*>(campoA);
      const auto& textoB = *reinterpret_cast<const KXStringPS*>(campoB);
      if (textoA.Tamanho != textoB.Tamanho ||
          (textoA.Texto == nullptr) != (textoB.Texto == nullptr) ||
          (textoA.Texto != nullptr &&
           std::memcmp(textoA.Texto, textoB.Texto, textoA.Tamanho) != 0)) {
        return onde;
      }
    } else if (campo.Papel == KXPapel::Corrido || campo.Papel == KXPapel::Terminado) {
      const char* textoA = *reinterpret_cast<char* const*>(campoA);
      const char* textoB = *reinterpret_cast<char* const*>(campoB);
      if ((textoA == nullptr) != (textoB == nullptr) ||
          (textoA != nullptr && std::strcmp(textoA, textoB) != 0)) {
        return onde;
      }
    } else if (std::memcmp(campoA, campoB, campo.Largura) != 0) {
      return onde;
    }
  }
  return {};
}

// The first count, size, pointer or text of the record that a release left; empty when none is.
inline std::string OQueFicou(const KXRegistroInfo& info, const void* registro) {
  for (const KXCampo& campo : info.Campos) {
    if (campo.Papel < KXPapel::Contado) continue;  // the roles after it own memory or measure it
    const auto* inicio = static_cast<const unsigned char*>(registro) + campo.Posicao;
    if (std::any_of(inicio, inicio + campo.Largura, [](unsigned char c) { return c != 0; })) {
      return campo.Nome;
    }
  }
  return {};
}

// A record with random contents that releases what it owns.
template <class REG>
class RegistroAleatorio {
 public:
  // A record with what is received and never sent, an order's cancellations, does not come back the
  // same; it has them only when asked to.
  explicit RegistroAleatorio(unsigned semente, bool comCancelamentos = false,
                             kx::Alocador alocador = kx::Alocador::Tarefa) {
    Gerador gerador(semente);
    Preenche(gerador, KXMetadados<REG>::kInfo, &Reg, 3, alocador);
    if constexpr (requires { Reg.ListaCancelamento; }) {
      if (comCancelamentos) return;
      kx::Liberador{alocador}.Lista(Reg.ListaCancelamento, Reg.QtdCancelamento);
    }
  }
  RegistroAleatorio(const RegistroAleatorio&) = delete;
  RegistroAleatorio& operator=(const RegistroAleatorio&) = delete;
  ~RegistroAleatorio() { kx::LiberaRegistro(&Reg, kx::Alocador::Tarefa); }

  REG Reg;
};

// A record that a conversion fills; it releases what it owns.
template <class REG>
class RegistroEscrito {
 public:
  RegistroEscrito() { std::memset(&Reg, 0xAB, sizeof(Reg)); }
  RegistroEscrito(const RegistroEscrito&) = delete;
  RegistroEscrito& operator=(const RegistroEscrito&) = delete;
  ~RegistroEscrito() { kx::LiberaRegistro(&Reg, kx::Alocador::Tarefa); }

  REG Reg;
};

}  // namespace apoio
