#include "core/Listas.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace kx {

void EscreveTexto(const CString& texto, KXStringPS* destino, Alocador alocador,
                  std::size_t maximo) {
  *destino = {};
  const std::size_t tamanho = std::min(texto.Vista().size(), maximo);
  if (tamanho == 0) return;
  destino->Texto = AlocaArray<char>(alocador, tamanho + 1);
  std::memcpy(destino->Texto, texto.GetString(), tamanho);
  destino->Texto[tamanho] = '\0';
  destino->Tamanho = static_cast<std::uint32_t>(tamanho + 1);
}

void EscreveTexto(const CString& texto, char*& destino, std::uint16_t& tamanho, Alocador alocador) {
  constexpr std::size_t kMaximo = std::numeric_limits<std::uint16_t>::max() - 1U;
  destino = nullptr;
  tamanho = 0;
  KXStringPS contado;
  EscreveTexto(texto, &contado, alocador, kMaximo);
  destino = contado.Texto;
  tamanho = static_cast<std::uint16_t>(contado.Tamanho);
}

void EscreveTexto(const CString& texto, char*& destino, Alocador alocador) {
  destino = nullptr;
  KXStringPS contado;
  EscreveTexto(texto, &contado, alocador, kSemLimite);
  destino = contado.Texto;
}

CString LeTexto(const KXStringPS& origem, const char* fonte, int linha) {
  return LeTexto(origem.Texto, origem.Tamanho, fonte, linha);
}

CString LeTexto(const char* texto, const char* fonte, int linha) {
  if (texto == nullptr) return {};
  std::size_t tamanho = 0;
  if (!plataforma::MedeProtegido(texto, tamanho)) {
    RelataFalhaBloco(0, fonte, linha);
    return {};
  }
  return LeTexto(texto, tamanho, fonte, linha);
}

CString LeTexto(const char* texto, std::size_t tamanho, const char* fonte, int linha) {
  if (texto == nullptr) return {};
  // In pieces that end where a page may end: neither the memory taken nor the bytes touched go
  // beyond the terminator, whatever size the record claims.
  constexpr std::size_t kPagina = 4096;
  char pedaco[kPagina];
  CString lido;
  for (std::size_t feitos = 0; feitos < tamanho;) {
    const char* proximo = texto + feitos;
    const std::size_t quantos =
        std::min(tamanho - feitos, kPagina - reinterpret_cast<std::uintptr_t>(proximo) % kPagina);
    if (CopiaBloco(pedaco, proximo, quantos, fonte, linha) == nullptr) return {};
    const std::string_view uteis(pedaco, strnlen(pedaco, quantos));
    if (feitos == 0) {
      lido = CString(uteis);  // most texts end here, with one allocation
    } else {
      lido += CString(uteis);
    }
    if (uteis.size() < quantos) break;
    feitos += quantos;
  }
  return lido;
}

}  // namespace kx
