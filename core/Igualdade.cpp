#include "core/Igualdade.h"

#include "core/TKXCMBaseParaDados.h"
#include "core/TextoFixo.h"

namespace kx {
namespace {

bool CampoIgual(const KXCampo& campo, const char* a, const char* b) {
  if (campo.Tipo == KXTipoCampo::Texto) return std::strncmp(a, b, campo.Largura) == 0;
  if (campo.Tipo == KXTipoCampo::Historico) {
    return TKXCMBaseParaDados::ComparaComplementoHistorico(LeTextoFixo(a, campo.Largura),
                                                           LeTextoFixo(b, campo.Largura));
  }
  return std::memcmp(a, b, campo.Largura) == 0;
}

}  // namespace

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
