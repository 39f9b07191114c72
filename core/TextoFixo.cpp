#include "core/TextoFixo.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/Bloco.h"
#include "core/Mensagem.h"

namespace kx {

void CopiaTextoFixo(char* destino, std::size_t largura, const char* texto, int tamanho,
                    const char* fonte, int linha) noexcept {
  if (largura == 0) return;
  const std::size_t comprimento = static_cast<unsigned>(tamanho);
  if (comprimento > largura) {
    TrataErro(kCodigoTextoLongo, static_cast<std::int32_t>(largura), tamanho, "-1", fonte, linha,
              true);
  }
  // The zeros come last: the text may lie inside the field.
  std::size_t escritos = std::min(comprimento, largura - 1);
  if (CopiaBloco(destino, texto, escritos, fonte, linha) == nullptr) escritos = 0;
  PreencheBloco(destino + escritos, 0, largura - escritos, fonte, linha);
}

CString LeTextoFixo(const char* campo, std::size_t largura) {
  const void* fim = std::memchr(campo, '\0', largura);
  const std::size_t tamanho =
      fim != nullptr ? static_cast<std::size_t>(static_cast<const char*>(fim) - campo) : largura;
  return CString(std::string_view(campo, tamanho));
}

}  // namespace kx
