// Which element goes to which field: tables of rules, and what applies them.
#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <string>

#include "ImportaNFe.h"
#include "LeitorXML.h"

namespace kxdados {

template <class Objeto>
struct RegraDinheiro {
  const char* Elemento;
  Objeto& (Objeto::*Poe)(const CY&);
};

// A child that is absent or empty leaves its field alone.
template <class Objeto, std::size_t N>
void Aplica(const RegraDinheiro<Objeto> (&regras)[N], pugi::xml_node pai, Objeto& objeto) {
  for (const auto& regra : regras) {
    if (Filho(pai, regra.Elemento)) (objeto.*regra.Poe)(Dinheiro(pai, regra.Elemento));
  }
}

template <class Objeto>
struct RegraTexto {
  const char* Elemento;
  const char* Campo;
  Objeto& (Objeto::*Poe)(const CString&);
  CString (Objeto::*Le)() const;
};

void AvisaCorte(Nota& nota, pugi::xml_node pai, const char* elemento, const char* campo,
                int caracteres, int couberam);

// A text that its field cuts is told in Nota::Avisos.
template <class Objeto, std::size_t N>
void Aplica(const RegraTexto<Objeto> (&regras)[N], pugi::xml_node pai, Objeto& objeto, Nota& nota) {
  for (const auto& regra : regras) {
    const CString texto = Texto(pai, regra.Elemento);
    (objeto.*regra.Poe)(texto);
    const CString guardado = (objeto.*regra.Le)();
    if (guardado != texto) {
      AvisaCorte(nota, pai, regra.Elemento, regra.Campo, texto.GetLength(), guardado.GetLength());
    }
  }
}

// The key, or no key and an entry in Nota::Chaves.
_KX_NFE_ps LeChave(const std::string& texto, const std::string& elemento, Nota& nota);

// Adds an item of the invoice (element det) to the entry.
void ImportaItem(pugi::xml_node det, Nota& nota);

}  // namespace kxdados
