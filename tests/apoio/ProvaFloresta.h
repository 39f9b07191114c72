// The hierarchy of approval rules, its build and its searches, against their plain transcription.
#pragma once

#include <string>
#include <vector>

#include "ac/DadosAC.h"
#include "tests/apoio/Bytes.h"

namespace apoio {

using ChavesAC = tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS;

// The forest of the records, and searches for two keys; every `passo`-th node has a certain item.
// What does not hold is thrown (KX_EXIGE).
void ProvaFloresta(const std::vector<ChavesAC>& registros, std::uint32_t a, std::uint32_t b,
                   std::uint8_t passo);
// The same of what the bytes say.
void ProvaFloresta(Bytes bytes);

// "key<level above" of each child, its own children in parentheses.
std::string TextoDaFloresta(const CKXDadosCM_ACTreeAutorizacaoCompra& node);

}  // namespace apoio
