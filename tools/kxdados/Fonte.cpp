#include "Fonte.h"

#include "Acervo.h"
#include "Imagens.h"

namespace kxdados {

std::unique_ptr<Fonte> AbreFonte(const std::string& caminho, const Filtro& filtro) {
  return EhAcervo(caminho) ? LeAcervo(caminho, filtro) : AbreImagens(caminho, filtro);
}

}  // namespace kxdados
