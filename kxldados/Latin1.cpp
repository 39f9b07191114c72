#include "kxldados/Latin1.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace kx {

namespace {

constexpr char32_t kInvalido = 0xFFFD;

struct Substituto {
  char32_t Ponto;
  const char* Texto;
};

constexpr std::array kSubstitutos = {
    Substituto{0x152, "OE"},  Substituto{0x153, "oe"},   Substituto{0x160, "S"},
    Substituto{0x161, "s"},   Substituto{0x17D, "Z"},    Substituto{0x17E, "z"},
    Substituto{0x200B, ""},   Substituto{0x2010, "-"},   Substituto{0x2011, "-"},
    Substituto{0x2013, "-"},  Substituto{0x2014, "-"},   Substituto{0x2018, "'"},
    Substituto{0x2019, "'"},  Substituto{0x201C, "\""},  Substituto{0x201D, "\""},
    Substituto{0x2022, "*"},  Substituto{0x2026, "..."}, Substituto{0x2032, "'"},
    Substituto{0x2033, "\""}, Substituto{0x20AC, "EUR"}, Substituto{0x2122, "TM"},
    Substituto{0x2212, "-"},  Substituto{0x2264, "<="},  Substituto{0x2265, ">="},
    Substituto{0xFEFF, ""},
};

std::size_t TamanhoDaSequencia(unsigned char primeiro) noexcept {
  if (primeiro < 0x80) return 1;
  if (primeiro >= 0xC2 && primeiro < 0xE0) return 2;
  if (primeiro >= 0xE0 && primeiro < 0xF0) return 3;
  if (primeiro >= 0xF0 && primeiro < 0xF5) return 4;
  return 0;
}

bool PontoValido(char32_t ponto, std::size_t tamanho) noexcept {
  constexpr std::array<char32_t, 5> kMinimo = {0, 0, 0x80, 0x800, 0x10000};
  const bool substituto = ponto >= 0xD800 && ponto < 0xE000;
  return ponto >= kMinimo[tamanho] && ponto <= 0x10FFFF && !substituto;
}

// Takes one character off the front; kInvalido for a byte that starts none.
char32_t Proximo(std::string_view& texto) noexcept {
  constexpr std::array<unsigned, 5> kMascara = {0, 0x7F, 0x1F, 0x0F, 0x07};
  const auto primeiro = static_cast<unsigned char>(texto.front());
  const std::size_t tamanho = TamanhoDaSequencia(primeiro);
  if (tamanho == 0 || tamanho > texto.size()) {
    texto.remove_prefix(1);
    return kInvalido;
  }
  char32_t ponto = primeiro & kMascara[tamanho];
  for (std::size_t i = 1; i < tamanho; ++i) {
    const auto byte = static_cast<unsigned char>(texto[i]);
    if ((byte & 0xC0U) != 0x80U) {
      texto.remove_prefix(1);
      return kInvalido;
    }
    ponto = ponto << 6U | (byte & 0x3FU);
  }
  const bool valido = PontoValido(ponto, tamanho);
  texto.remove_prefix(valido ? tamanho : 1);
  return valido ? ponto : kInvalido;
}

void Acrescenta(std::string& destino, char32_t ponto) {
  const auto* achado = std::find_if(kSubstitutos.begin(), kSubstitutos.end(),
                                    [ponto](const Substituto& s) { return s.Ponto == ponto; });
  if (achado != kSubstitutos.end()) {
    destino += achado->Texto;
  } else if (ponto <= 0xFF) {
    destino += static_cast<char>(ponto);
  } else {
    destino += '?';
  }
}

bool EhControle(char c) noexcept {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || (byte >= 0x7F && byte < 0xA0);
}

}  // namespace

bool EhUTF8(std::string_view texto) noexcept {
  while (!texto.empty()) {
    const std::size_t antes = texto.size();
    if (Proximo(texto) == kInvalido && antes - texto.size() == 1) return false;
  }
  return true;
}

CString Latin1DeUTF8(std::string_view texto) {
  std::string latin1;
  latin1.reserve(texto.size());
  while (!texto.empty()) Acrescenta(latin1, Proximo(texto));
  return {std::string_view(latin1)};
}

std::string UTF8DeLatin1(std::string_view latin1) {
  std::string utf8;
  utf8.reserve(latin1.size());
  for (const char c : latin1) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xC0U | byte >> 6U);
      utf8 += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return utf8;
}

std::string LinhaDeLatin1(std::string_view latin1) {
  std::string linha(latin1);
  std::replace_if(linha.begin(), linha.end(), EhControle, ' ');
  return UTF8DeLatin1(linha);
}

}  // namespace kx
