// From the electronic invoice (NF-e, layouts 1.10 to 4.00) to the goods-receipt entry.
//
// Keys of other tables stay 0: what they stand for is known to the receiver alone. So do codes of
// the server. Values are those of the invoice; nothing is recomputed.
#pragma once

#include <map>
#include <pugixml.hpp>
#include <string>

#include "Regras.h"
#include "re/DadosRE.h"

namespace kxdados {

// An imported invoice.
struct Nota : Documento {
  CKXDadosCM_RERegistroEntrada Entrada;
  std::map<std::string, CY, std::less<>> Declarados;  // totals as stated, by element
  CY ForaDoTotal{};  // product lines that do not make up the total (indTot 0)
};

// From the element NFe. Raises Falha when something required is missing or a value cannot be held.
// A wrong access key alone does not: it is left empty and told in Documento::Chaves.
Nota ImportaNFe(pugi::xml_node nfe);

// Adds an item of the invoice (element det) to the entry.
void ImportaItem(pugi::xml_node det, Nota& nota);

}  // namespace kxdados
