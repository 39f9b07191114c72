// Dates and times of day: validity, and conversion from and to text.
//
//   REG_KXDMA emissao;
//   if (kx::DataDeISO("2026-02-28T10:00:00-03:00", emissao)) {
//     std::string texto = kx::TextoDeData(emissao);  // "28/02/2026"
//   }
//
// Dates are of the Gregorian calendar, years 1 to 9999. Conversions from text return false and
// leave the destination untouched when the text is not such a date. None of them throws but for
// memory.
#pragma once

#include <string>
#include <string_view>

#include "kxldados/Tipos.h"
#include "platform/Exporta.h"

namespace kx {

// No date: every byte zero.
constexpr bool DataVazia(const REG_KXDMA& data) noexcept { return data == REG_KXDMA{}; }
// A day that exists in the calendar. No date is not one.
KX_API bool DataValida(const REG_KXDMA& data) noexcept;
// 00:00:00 to 23:59:59.
KX_API bool HoraValida(const REG_KXHMS& hora) noexcept;

// ISO 8601 extended format, "AAAA-MM-DD", or the date part of such a timestamp as it is written,
// without conversion of its time zone.
KX_API bool DataDeISO(std::string_view texto, REG_KXDMA& destino) noexcept;

// ISO 8601 timestamp with its time zone, "AAAA-MM-DDThh:mm:ss" then "Z" or "+hh:mm" or "-hh:mm",
// as electronic documents carry it; converted to UTC. Fractions of a second are dropped.
KX_API bool DataHoraDeISO(std::string_view texto, REG_KXDMAHMSUTC& destino) noexcept;

// "dd/mm/aaaa"; empty for no date. The numbers of an invalid date are written as they are.
KX_API std::string TextoDeData(const REG_KXDMA& data);
// "hh:mm:ss".
KX_API std::string TextoDeHora(const REG_KXHMS& hora);
// "dd/mm/aaaa hh:mm:ss", in UTC as stored; empty when every byte is zero.
KX_API std::string TextoDeDataHora(const REG_KXDMAHMSUTC& dataHora);

}  // namespace kx
