// A message library: the application provides it, and the data objects report to it.
#include <cstdint>
#include <iostream>

#include "platform/Exporta.h"

#define EXPORTA extern "C" KX_API

namespace {
int relatos = 0;
}

// How many reports came: this example's own.
EXPORTA int RelatosRecebidos();
int RelatosRecebidos() { return relatos; }

// core/Mensagem.h says what each parameter is. Reports come from any thread.
EXPORTA void KXTrataErroExported(std::int32_t codigo, std::int32_t largura, std::int32_t tamanho,
                                 const char* texto, const char* fonte, std::int32_t linha,
                                 bool sinal, void* reservado, const char* modulo, void* opcional);
void KXTrataErroExported(std::int32_t codigo, std::int32_t largura, std::int32_t tamanho,
                         const char* /*texto*/, const char* fonte, std::int32_t linha,
                         bool /*sinal*/, void* /*reservado*/, const char* /*modulo*/,
                         void* /*opcional*/) {
  ++relatos;
  std::cout << codigo << ": " << fonte << ", linha " << linha << ": campo ou bloco de " << largura
            << " bytes, texto de " << tamanho << " caracteres\n";
}
