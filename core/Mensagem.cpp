#include "core/Mensagem.h"

#include "platform/Plataforma.h"

namespace kx {

void TrataErro(std::int32_t codigo, std::int32_t largura, std::int32_t tamanho, const char* texto,
               const char* fonte, std::int32_t linha, bool sinal) noexcept {
  void* biblioteca = plataforma::CarregaBiblioteca("KXMens");
  if (biblioteca == nullptr) return;
  if (void* entrada = plataforma::EntradaDaBiblioteca(biblioteca, "KXTrataErroExported")) {
    char modulo[plataforma::kTamanhoCaminho];
    plataforma::CaminhoDoModulo(modulo);
    try {
      reinterpret_cast<KXTrataErroEntrada*>(entrada)(codigo, largura, tamanho, texto, fonte, linha,
                                                     sinal, nullptr, modulo, nullptr);
    } catch (...) {
      // The copy that reports must complete, whatever the reporter does.
    }
  }
  plataforma::DescarregaBiblioteca(biblioteca);
}

}  // namespace kx
