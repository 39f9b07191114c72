#include "core/Listas.h"

#include <algorithm>
#include <cstring>
#include <string>

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

CString LeTexto(const KXStringPS& origem, const char* fonte, int linha) {
  return LeTexto(origem.Texto, origem.Tamanho, fonte, linha);
}

CString LeTexto(const char* texto, std::size_t tamanho, const char* fonte, int linha) {
  if (texto == nullptr || tamanho == 0) return {};
  std::string caracteres(tamanho, '\0');
  if (CopiaBloco(caracteres.data(), texto, caracteres.size(), fonte, linha) == nullptr) return {};
  return CString(std::string_view(caracteres.c_str()));
}

}  // namespace kx
