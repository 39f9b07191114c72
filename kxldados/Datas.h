// Dates and times of day: validity, days added and between, and conversion from and to text and the
// types of <chrono>.
//
//   REG_KXDMA emissao;
//   if (kx::DataDeISO("2026-02-28T10:00:00-03:00", emissao)) {
//     std::string texto = kx::TextoDeData(emissao);  // "28/02/2026"
//     const auto vencimento = kx::SomaDias(emissao, 30);  // 30/03/2026
//     if (vencimento && *vencimento < hoje) ...           // earlier in the calendar
//   }
//
// Dates are of the Gregorian calendar, years 1 to 9999. Conversions from text return false and
// leave the destination untouched when the text is not such a date. What is computed of a date that
// is not valid, no date among them, or would leave those years, is std::nullopt. None of them
// throws but for memory.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
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
// A valid day and time of day.
KX_API bool DataHoraValida(const REG_KXDMAHMSUTC& dataHora) noexcept;

// So many days later, or earlier when below zero; the time of day stays as it is.
KX_API std::optional<REG_KXDMA> SomaDias(const REG_KXDMA& data, std::int32_t dias) noexcept;
KX_API std::optional<REG_KXDMAHMSUTC> SomaDias(const REG_KXDMAHMSUTC& dataHora,
                                               std::int32_t dias) noexcept;
// The days from one date to another, below zero when that is earlier:
// SomaDias(de, *DiasEntre(de, ate)) == ate.
KX_API std::optional<std::int32_t> DiasEntre(const REG_KXDMA& de, const REG_KXDMA& ate) noexcept;

// From and to <chrono>. A std::chrono::sys_days is a year_month_day by itself, and a valid one
// becomes a std::chrono::sys_days: std::chrono::weekday(std::chrono::sys_days(*calendario)).
KX_API std::optional<std::chrono::year_month_day> CalendarioDeData(const REG_KXDMA& data) noexcept;
KX_API std::optional<REG_KXDMA> DataDeCalendario(
    const std::chrono::year_month_day& calendario) noexcept;
// A moment in UTC. The reserved byte of the time of day is not looked at, and is zero in what is
// made.
KX_API std::optional<std::chrono::sys_seconds> MomentoDeDataHora(
    const REG_KXDMAHMSUTC& dataHora) noexcept;
KX_API std::optional<REG_KXDMAHMSUTC> DataHoraDeMomento(std::chrono::sys_seconds momento) noexcept;

// ISO 8601 extended format, "AAAA-MM-DD", or the date part of such a timestamp as it is written,
// without conversion of its time zone.
KX_API bool DataDeISO(std::string_view texto, REG_KXDMA& destino) noexcept;

// ISO 8601 timestamp with its time zone, "AAAA-MM-DDThh:mm:ss" then "Z" or "+hh:mm" or "-hh:mm",
// as electronic documents carry it; converted to UTC. Fractions of a second are dropped.
KX_API bool DataHoraDeISO(std::string_view texto, REG_KXDMAHMSUTC& destino) noexcept;

// "dd/mm/aaaa", as TextoDeData writes a valid date; nothing before, between or after. An empty text
// is refused: that it means no date, a screen says.
KX_API bool DataDeTexto(std::string_view texto, REG_KXDMA& destino) noexcept;
// "dd/mm/aaaa hh:mm:ss", as TextoDeDataHora writes it, in UTC.
KX_API bool DataHoraDeTexto(std::string_view texto, REG_KXDMAHMSUTC& destino) noexcept;

// "dd/mm/aaaa"; empty for no date. The numbers of an invalid date are written as they are.
KX_API std::string TextoDeData(const REG_KXDMA& data);
// "hh:mm:ss".
KX_API std::string TextoDeHora(const REG_KXHMS& hora);
// "dd/mm/aaaa hh:mm:ss", in UTC as stored; empty when every byte is zero.
KX_API std::string TextoDeDataHora(const REG_KXDMAHMSUTC& dataHora);

}  // namespace kx
