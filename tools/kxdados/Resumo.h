// What a document is known by.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/Metadados.h"

namespace kxdados {

// Empty where the record has no such thing, or holds nothing there.
struct Resumo {
  std::optional<std::string>
      Chave;  // access key, 44 characters; without one, the document's own key
  std::optional<std::string> Numero;
  std::optional<std::string> Serie;
  std::optional<std::string> Emissao;   // aaaa-mm-dd
  std::optional<std::string> Emitente;  // CNPJ or CPF, 14 digits, as the access key has it
  std::optional<std::int64_t> Total;    // in 1/10,000

  bool operator==(const Resumo&) const = default;
};

// Of the entry, the freight bill, the order, the request, the quotation and the contract; empty for
// all other records.
Resumo ResumoDe(const KXRegistroInfo& info, const void* registro);

// An access key as records hold it: of the 50 positions of a service invoice's, the first 45.
std::string ChaveGuardada(std::string chave);

}  // namespace kxdados
