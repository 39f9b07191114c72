// From the electronic invoice (NF-e, layouts 1.10 to 4.00) to the goods-receipt entry.
//
// Keys of other tables stay 0: what they stand for is known to the receiver alone. So do codes of
// the server. Values are those of the invoice; nothing is recomputed.
#pragma once

#include <map>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "LeitorXML.h"
#include "re/DadosRE.h"

namespace kxdados {

// An imported invoice: the entry, and what is told about it that the entry does not hold. Texts are
// UTF-8.
struct Nota {
  CKXDadosCM_RERegistroEntrada Entrada;
  std::string Emitente;
  std::map<std::string, CY, std::less<>> Declarados;  // totals as stated, by element
  CY ForaDoTotal{};                 // product lines that do not make up the total (indTot 0)
  std::vector<std::string> Avisos;  // what did not fit whole
  std::vector<Falha> Chaves;        // access keys that are wrong, and were left empty
};

// The invoices (elements NFe) of a document; raises Falha when there is none.
std::vector<pugi::xml_node> NotasDoDocumento(const pugi::xml_document& documento);

// Raises Falha when something required is missing or a value cannot be held. A wrong access key
// alone does not: it is left empty and told in Nota::Chaves.
Nota ImportaNFe(pugi::xml_node nfe);

}  // namespace kxdados
