#include "core/Bloco.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "core/Mensagem.h"
#include "platform/Plataforma.h"

namespace kx {
namespace {

void RelataFalha(std::size_t n, const char* fonte, int linha) noexcept {
  constexpr std::size_t kMaximo = std::numeric_limits<std::int32_t>::max();
  const auto largura = static_cast<std::int32_t>(std::min(n, kMaximo));
  TrataErro(kCodigoFalhaBloco, largura, 0, "-1", fonte, linha, true);
}

}  // namespace

void* CopiaBloco(void* destino, const void* origem, std::size_t n, const char* fonte,
                 int linha) noexcept {
  void* const copia = plataforma::CopiaProtegida(destino, origem, n);
  if (copia == nullptr && n != 0) RelataFalha(n, fonte, linha);
  return copia;
}

void* PreencheBloco(void* destino, int valor, std::size_t n, const char* fonte,
                    int linha) noexcept {
  void* const cheio = plataforma::PreencheProtegido(destino, valor, n);
  if (cheio == nullptr && n != 0) RelataFalha(n, fonte, linha);
  return cheio;
}

}  // namespace kx
