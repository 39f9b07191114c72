#include "KXMensFalsa.h"

#include <mutex>
#include <stdexcept>

#include "platform/Exporta.h"

#define EXPORTA extern "C" KX_API

EXPORTA KXMensEstado KXMensFalsaEstado;
KXMensEstado KXMensFalsaEstado;

EXPORTA void KXTrataErroExported(std::int32_t codigo, std::int32_t largura, std::int32_t tamanho,
                                 const char* texto, const char* fonte, std::int32_t linha,
                                 bool sinal, void* reservado, const char* modulo, void* opcional) {
  static std::mutex tranca;  // reports come from any thread
  const std::lock_guard guarda(tranca);
  if (KXMensFalsaEstado.Descarta) return;
  const bool nulos = reservado == nullptr && opcional == nullptr;
  KXMensFalsaEstado.Relatos.push_back(
      {codigo, largura, tamanho, texto, fonte, linha, sinal, nulos, modulo});
  if (KXMensFalsaEstado.Lanca) throw std::runtime_error("KXMens");
}
