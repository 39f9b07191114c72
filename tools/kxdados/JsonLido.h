// Records from JSON, the way back from Json.h.
#pragma once

#include <memory>
#include <memory_resource>
#include <string_view>
#include <utility>

#include "core/Metadados.h"

namespace kxdados {

// A record that was read from JSON, and the memory of it and of all that hangs from it.
class RegistroLido {
 public:
  // Of a record that lies in that memory, with all that hangs from it.
  RegistroLido(const KXRegistroInfo& info, const void* registro,
               std::unique_ptr<std::pmr::memory_resource> memoria)
      : _info(&info), _registro(registro), _memoria(std::move(memoria)) {}

  // The one that KXProcuraRegistro gives.
  const KXRegistroInfo& Info() const { return *_info; }
  const void* Registro() const { return _registro; }

 private:
  const KXRegistroInfo* _info;
  const void* _registro;
  std::unique_ptr<std::pmr::memory_resource> _memoria;
};

// The record that one line says, an object as JsonDeRegistro writes it: byte for byte the same but
// for pointers. Its members may stand in any order, what is left out is zero, and any field may be
// "hex:" and its bytes. Money has up to four decimals, a time any time zone. Whatever cannot be
// kept as it is written is refused: throws Falha, of which Elemento() is the path
// ("ListaItem[3].ValorIPI", "_registro", or "linha" as to the whole).
RegistroLido RegistroDeJson(std::string_view linha);

}  // namespace kxdados
