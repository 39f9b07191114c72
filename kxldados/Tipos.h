// The plain value types that records are made of. All of them are trivially copyable, hold no
// pointer (KXStringPS apart), mean "none" when every byte is zero, and compare byte for byte.
// They (KXStringPS apart) are ordered and hashed, so they can be keys of maps and sets:
//
//   std::map<REG_KXDMA, CKXCurrencyEx> porVencimento;      // in the order of the calendar
//   std::unordered_map<REG_KXDMC, CKXDadosCM_OrdemCompra> porChave;
//
// The order is that of the fields as they are listed, but of dates, which are ordered by the
// calendar. Two values are equal in it when every byte is, reserved bytes included. No date comes
// before all others, and what is no date of the calendar has its place among them by its numbers.
//
// Records cross process boundaries: sizes are fixed, the byte order is little-endian.
#pragma once

#include <bit>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <typeindex>  // the lightest that declares std::hash

#include "platform/Exporta.h"
#include "platform/TiposDoSistema.h"

static_assert(sizeof(void*) == 8, "records hold 8-byte pointers: 64-bit targets only");
static_assert(std::endian::native == std::endian::little, "records are little-endian");

// Money, quantity or rate: the amount multiplied by 10,000 (the currency type of the component
// object model).
struct tagCY {
  std::int64_t int64;  // the amount, in 1/10,000
  bool operator==(const tagCY&) const = default;
  auto operator<=>(const tagCY&) const = default;
};
// The name by which fields know it.
using CY = tagCY;

// Calendar date.
struct REG_KXDMA {
  std::uint8_t Dia;   // 1 to 31
  std::uint8_t Mes;   // 1 to 12
  std::uint16_t Ano;  // 1 to 9999
  bool operator==(const REG_KXDMA&) const = default;
  // By year, month and day.
  constexpr std::strong_ordering operator<=>(const REG_KXDMA& outra) const noexcept {
    if (Ano != outra.Ano) return Ano <=> outra.Ano;
    if (Mes != outra.Mes) return Mes <=> outra.Mes;
    return Dia <=> outra.Dia;
  }
};

// Time of day.
struct REG_KXHMS {
  std::uint8_t Hora;     // 0 to 23
  std::uint8_t Minuto;   // 0 to 59
  std::uint8_t Segundo;  // 0 to 59
  std::uint8_t Reserva;  // carried unchanged
  bool operator==(const REG_KXHMS&) const = default;
  auto operator<=>(const REG_KXHMS&) const = default;
};

// Date and time of day, UTC. Of two that name the same second the reserved byte decides the order.
struct REG_KXDMAHMSUTC {
  REG_KXDMA Data;  // in UTC, so not always the day that a local clock shows
  REG_KXHMS Hora;  // in UTC
  bool operator==(const REG_KXDMAHMSUTC&) const = default;
  auto operator<=>(const REG_KXDMAHMSUTC&) const = default;
};

// Key of a document: the date that opens its series and its number within that date.
struct REG_KXDMC {
  REG_KXDMA Data;          // that opens the series
  std::uint32_t Contador;  // number within that date
  bool operator==(const REG_KXDMC&) const = default;
  auto operator<=>(const REG_KXDMC&) const = default;
};

// Access key of an electronic document, packed; kxldados/ChaveNFe.h converts it from and to its
// 44 characters.
struct _KX_NFE_ps {
  std::uint64_t Partes[3];  // 44 characters; zeros when there is no key
  bool operator==(const _KX_NFE_ps&) const = default;
  auto operator<=>(const _KX_NFE_ps&) const = default;
};

// Position of a product: its key and up to three items of its grid (size, colour...).
struct _REG_POSICAO_PRODUTOPS {
  std::int32_t PonteiroProduto;      // product (key)
  std::uint16_t PonteiroItemGrade1;  // first grid item (key)
  std::uint16_t PonteiroItemGrade2;  // second grid item (key)
  std::uint16_t PonteiroItemGrade3;  // third grid item (key)
  std::uint8_t Reserva[6];           // carried unchanged
  bool operator==(const _REG_POSICAO_PRODUTOPS&) const = default;
  auto operator<=>(const _REG_POSICAO_PRODUTOPS&) const = default;
};

// The 32-byte date-and-time value of the freight bill's installments: the date, then zeros.
struct KXDataHora32 {
  REG_KXDMA Data;            // as everywhere else
  std::uint8_t Reserva[28];  // zero in what the library writes
  bool operator==(const KXDataHora32&) const = default;
  auto operator<=>(const KXDataHora32&) const = default;
};

// Counted text of a record. Empty: size 0 and null pointer. The record owns the characters; the
// release function of the record's class frees them.
struct KXStringPS {
  std::uint32_t Tamanho;  // characters, the terminating zero included
  std::uint32_t Reserva;  // zero
  char* Texto;            // null when the text is empty
};

namespace kx {

// The hash of a value of those types: of all of its bytes. The number is one program's own, and may
// be another in the next version.
template <class T>
struct HashDeBytes {
  static_assert(std::has_unique_object_representations_v<T>);

  // The hash of one value.
  std::size_t operator()(const T& valor) const noexcept {
    struct Palavras {
      std::uint32_t Valores[sizeof(T) / sizeof(std::uint32_t)];
    };
    std::uint64_t hash = sizeof(T);
    for (const std::uint32_t palavra : std::bit_cast<Palavras>(valor).Valores) {
      hash = (hash ^ palavra) * 0x9E37'79B9'7F4A'7C15U;
      hash ^= hash >> 32U;
    }
    return static_cast<std::size_t>(hash);
  }
};

}  // namespace kx

// What makes them keys of unordered maps and sets.
template <>
struct std::hash<tagCY> : kx::HashDeBytes<tagCY> {};
template <>
struct std::hash<REG_KXDMA> : kx::HashDeBytes<REG_KXDMA> {};
template <>
struct std::hash<REG_KXHMS> : kx::HashDeBytes<REG_KXHMS> {};
template <>
struct std::hash<REG_KXDMAHMSUTC> : kx::HashDeBytes<REG_KXDMAHMSUTC> {};
template <>
struct std::hash<REG_KXDMC> : kx::HashDeBytes<REG_KXDMC> {};
template <>
struct std::hash<_KX_NFE_ps> : kx::HashDeBytes<_KX_NFE_ps> {};
template <>
struct std::hash<_REG_POSICAO_PRODUTOPS> : kx::HashDeBytes<_REG_POSICAO_PRODUTOPS> {};
template <>
struct std::hash<KXDataHora32> : kx::HashDeBytes<KXDataHora32> {};

static_assert(sizeof(CY) == 8 && sizeof(REG_KXDMA) == 4 && sizeof(REG_KXHMS) == 4);
static_assert(sizeof(REG_KXDMAHMSUTC) == 8 && sizeof(REG_KXDMC) == 8 && sizeof(_KX_NFE_ps) == 24);
static_assert(sizeof(_REG_POSICAO_PRODUTOPS) == 16 && sizeof(KXStringPS) == 16);
static_assert(sizeof(KXDataHora32) == 32);
static_assert(std::is_trivially_copyable_v<KXStringPS>);
