// Entry of the library: its version, its window messages, its registry of records.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "core/Metadados.h"
#include "kxldados/Dinheiro.h"
#include "platform/Exporta.h"

// Version of the library as "major.minor.patch"; it lives as long as the process.
KX_API const char* KXDadosComprasVersao() noexcept;

// The two window messages that the library registers when it is loaded: "the last tab was reached"
// and "the tab may take the focus". The numbers hold for the session; 0 when they could not be
// registered.
KX_API std::uint32_t KXDadosComprasMensagemUltimaTab() noexcept;
KX_API std::uint32_t KXDadosComprasMensagemPodeSetarFocoTab() noexcept;

// The process-wide zero money value.
KX_API const CKXCurrencyEx& KXDadosComprasZero() noexcept;

// Every record of the library, elements before the records that own them.
KX_API std::span<const KXRegistroInfo* const> KXRegistros() noexcept;

// The record of this name (`tagREG_ENTRADAPS`), or null.
KX_API const KXRegistroInfo* KXProcuraRegistro(std::string_view nome) noexcept;
