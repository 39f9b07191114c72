// From the electronic freight bill (CT-e, layouts 3.00 and 4.00, the simplified one and that of
// other services, CT-e OS, included) to the freight bill of purchasing.
//
// Keys of other tables stay 0: what they stand for is known to the receiver alone. So do codes of
// the server. Values are those of the CT-e; nothing is recomputed.
#pragma once

#include <pugixml.hpp>

#include "Regras.h"
#include "ct/DadosCT.h"

namespace kxdados {

// An imported freight bill.
struct Conhecimento : Documento {
  CKXDadosCM_CTConhecimentoTransporte Objeto;
};

// From the element CTe, CTeSimp or CTeOS. Raises Falha when something required is missing or a
// value cannot be held. A wrong access key alone does not: it is left empty and told in
// Documento::Chaves.
Conhecimento ImportaCTe(pugi::xml_node cte);

}  // namespace kxdados
