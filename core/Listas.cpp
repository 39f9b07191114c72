#include "core/Listas.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace kx {
namespace {

// Measured under the guard; what was measured is there to be copied.
CString LeAte(std::size_t limite, const char* texto, std::size_t largura, const Posicao& posicao) {
  if (texto == nullptr) return {};
  std::size_t caracteres = 0;
  if (!plataforma::MedeProtegido(texto, limite, caracteres)) {
    RelataFalhaBloco(largura, posicao.Fonte, posicao.Linha);
    return {};
  }
  return std::string_view(texto, caracteres);
}

}  // namespace

void EscreveContado(const CString& texto, KXStringPS& destino, Alocador alocador,
                    std::size_t maximo) {
  destino = {};
  const std::size_t tamanho = std::min(texto.Vista().size(), maximo);
  if (tamanho == 0) return;
  destino.Texto = AlocaArray<char>(alocador, tamanho + 1);
  std::memcpy(destino.Texto, texto.GetString(), tamanho);
  destino.Texto[tamanho] = '\0';
  destino.Tamanho = static_cast<std::uint32_t>(tamanho + 1);
}

void EscreveCorrido(const CString& texto, char*& destino, std::uint16_t& tamanho,
                    Alocador alocador) {
  constexpr std::size_t kMaximo = std::numeric_limits<std::uint16_t>::max() - 1U;
  destino = nullptr;
  tamanho = 0;
  KXStringPS contado;
  EscreveContado(texto, contado, alocador, kMaximo);
  destino = contado.Texto;
  tamanho = static_cast<std::uint16_t>(contado.Tamanho);
}

void EscreveTerminado(const CString& texto, char*& destino, Alocador alocador) {
  destino = nullptr;
  KXStringPS contado;
  EscreveContado(texto, contado, alocador, kSemLimite);
  destino = contado.Texto;
}

CString LeContado(const KXStringPS& origem, const Posicao& posicao) {
  return LeCorrido(origem.Texto, origem.Tamanho, posicao);
}

CString LeCorrido(const char* texto, std::size_t tamanho, const Posicao& posicao) {
  return tamanho == 0 ? CString() : LeAte(tamanho, texto, tamanho, posicao);
}

CString LeTerminado(const char* texto, const Posicao& posicao) {
  return LeAte(std::numeric_limits<std::ptrdiff_t>::max(), texto, 0, posicao);
}

std::size_t ElementosLegiveis(const void* array, std::size_t quantos, std::size_t largura,
                              const Posicao& posicao) {
  if (plataforma::Legivel(array, quantos * largura)) return quantos;
  const auto* const elementos = static_cast<const char*>(array);
  std::size_t legiveis = 0;
  while (legiveis < quantos && plataforma::Legivel(elementos + legiveis * largura, largura)) {
    ++legiveis;
  }
  RelataFalhaBloco(largura, posicao.Fonte, posicao.Linha);
  return legiveis;
}

}  // namespace kx
