// What the imports of all kinds of document share: which element goes to which field, as tables of
// rules, and what applies them.
#pragma once

#include <cstddef>
#include <limits>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "LeitorXML.h"
#include "Totais.h"
#include "core/Financeiro.h"

namespace kxdados {

// What is told about an imported document that its object does not hold. Texts are UTF-8.
struct Documento {
  std::string Emitente;
  std::vector<std::string> Avisos;  // what did not fit whole
  std::vector<Falha> Chaves;        // access keys that are wrong, and were left empty
  std::vector<Total> Totais;        // beside what the document states, where that is read with it
  Caminhos Lugares;                 // of what is told above
};

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

void AvisaCorte(Documento& documento, pugi::xml_node pai, const char* elemento, const char* campo,
                int caracteres, int couberam);

// A text that its field cuts is told in Documento::Avisos.
template <class Objeto, std::size_t N>
void Aplica(const RegraTexto<Objeto> (&regras)[N], pugi::xml_node pai, Objeto& objeto,
            Documento& documento) {
  for (const auto& regra : regras) {
    const CString texto = Texto(pai, regra.Elemento);
    (objeto.*regra.Poe)(texto);
    const CString guardado = (objeto.*regra.Le)();
    if (guardado != texto) {
      AvisaCorte(documento, pai, regra.Elemento, regra.Campo, texto.GetLength(),
                 guardado.GetLength());
    }
  }
}

// A remark of an entry. The object would keep a longer one, but it would not travel.
CString Observacao(pugi::xml_node pai, const char* elemento, const char* campo,
                   Documento& documento);

// The key that an element holds, or no key and an entry in Documento::Chaves.
_KX_NFE_ps LeChave(pugi::xml_node no, Documento& documento);

// The document's own key: that of its identifier ("NFe" and 44 characters) or, without one, of the
// protocol beside the document.
_KX_NFE_ps LeChavePropria(pugi::xml_node inf, const char* prefixo, const char* protocolo,
                          Documento& documento);

// A number that is part of a key.
CString TextoDeNumero(int valor);

// The name of the issuer, element emit.
void ImportaEmitente(pugi::xml_node inf, Documento& documento);

// The installments, elements dup. Number, due date and value may each be missing, as the layouts of
// the CT-e allow.
void ImportaParcelas(pugi::xml_node cobr, CKXDadosCM_CondicaoPagamento& condicao,
                     Documento& documento);

// Counts travel in 16 bits.
template <class T>
void ExigeQueCaiba(const CKXVector<T>& lista, const char* elemento) {
  if (lista.size() > std::numeric_limits<std::uint16_t>::max()) {
    throw Falha(elemento, "mais de 65.535 elementos");
  }
}

}  // namespace kxdados
