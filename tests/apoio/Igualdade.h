// What the record tables say that equality sees, by name, for tests that pin it.
#pragma once

#include <set>
#include <string>

#include "core/Metadados.h"

namespace apoio {

using Nomes = std::set<std::string>;

inline bool TemAcessor(const KXCampo& campo) {
  return campo.Papel == KXPapel::Campo || campo.Papel == KXPapel::Parte;
}

// Whether the first byte of the row is compared: a part is also when the whole of its field is.
inline bool EhComparado(const KXRegistroInfo& info, const KXCampo& campo) {
  for (const KXCampo& outro : info.Campos) {
    const bool cobre =
        outro.Posicao <= campo.Posicao && campo.Posicao < outro.Posicao + outro.Largura;
    if (cobre && outro.Comparado) return true;
  }
  return false;
}

// The fields with accessors that equality leaves out.
inline Nomes ForaDaIgualdade(const KXRegistroInfo& info) {
  Nomes nomes;
  for (const KXCampo& campo : info.Campos) {
    if (TemAcessor(campo) && !EhComparado(info, campo)) nomes.insert(campo.Nome);
  }
  return nomes;
}

}  // namespace apoio
