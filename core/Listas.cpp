#include "core/Listas.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace kx {
namespace {

// Measured under the guard; what was measured is there to be copied.
CString LeAte(std::size_t limite, const char* texto, std::size_t largura, const char* fonte,
              int linha) {
  if (texto == nullptr) return {};
  std::size_t caracteres = 0;
  if (!plataforma::MedeProtegido(texto, limite, caracteres)) {
    RelataFalhaBloco(largura, fonte, linha);
    return {};
  }
  return std::string_view(texto, caracteres);
}

}  // namespace

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
  return LeAte(std::numeric_limits<std::ptrdiff_t>::max(), texto, 0, fonte, linha);
}

CString LeTexto(const char* texto, std::size_t tamanho, const char* fonte, int linha) {
  return tamanho == 0 ? CString() : LeAte(tamanho, texto, tamanho, fonte, linha);
}

}  // namespace kx
