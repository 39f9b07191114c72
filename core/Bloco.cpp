#include "core/Bloco.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "core/Mensagem.h"

namespace kx {

void RelataFalhaBloco(std::size_t n, const char* fonte, int linha) noexcept {
  constexpr std::size_t kMaximo = std::numeric_limits<std::int32_t>::max();
  const auto largura = static_cast<std::int32_t>(std::min(n, kMaximo));
  TrataErro(kCodigoFalhaBloco, largura, 0, "-1", fonte, linha, true);
}

}  // namespace kx
