#include "core/Igualdade.h"

#include "core/TKXCMBaseParaDados.h"
#include "core/TextoFixo.h"

namespace kx {

bool CampoIgual(const KXCampo& campo, const void* a, const void* b) {
  const auto* textoA = static_cast<const char*>(a);
  const auto* textoB = static_cast<const char*>(b);
  if (campo.Tipo == KXTipoCampo::Texto) return std::strncmp(textoA, textoB, campo.Largura) == 0;
  if (campo.Tipo == KXTipoCampo::Historico) {
    return TKXCMBaseParaDados::ComparaComplementoHistorico(LeTextoFixo(textoA, campo.Largura),
                                                           LeTextoFixo(textoB, campo.Largura));
  }
  return std::memcmp(a, b, campo.Largura) == 0;
}

bool CamposIguais(const KXRegistroInfo& info, const void* a, const void* b) {
  const char* bytesA = static_cast<const char*>(a);
  const char* bytesB = static_cast<const char*>(b);
  for (const KXCampo& campo : info.Campos) {
    if (campo.Comparado && !CampoIgual(campo, bytesA + campo.Posicao, bytesB + campo.Posicao)) {
      return false;
    }
  }
  return true;
}

}  // namespace kx
