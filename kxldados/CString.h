// Text of 8-bit characters in the Latin-1 code page; nothing here transcodes.
//
//   CString nome = "Jos\xE9";
//   nome.MakeUpper();                         // "JOS\xC9"
//   CString linha;
//   linha.Format("%05d %s", 42, nome.GetString());
//
// A value: copies are deep, moves are cheap and leave an empty text, short texts do not allocate.
// Positions and counts are signed, as callers keep them: a count below 0 or beyond the end is
// brought within the text; a search that finds nothing returns -1. A null `const char*` is an empty
// text. Growing throws std::bad_alloc. Texts compare by unsigned character values, exactly.
//
// With standard strings:
//
//   ordem.SetCodigo(std::string("2026/0417"));         // std::string and std::string_view go in
//   const std::string codigo(ordem.GetCodigo());       // and come out, in parentheses
//   if (ordem.GetCodigo() == codigo) ...
//   std::cout << ordem.GetCodigo();                    // the bytes; kxldados/Latin1.h makes UTF-8
//
// A getter of an object gives a text of its own: a `const char*` taken from it points nowhere once
// the statement ends. Clang says so (-Wdangling).
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Exporta.h"

#if defined(__GNUC__)
#define KX_FORMATO_PRINTF(formato, primeiro) __attribute__((format(printf, formato, primeiro)))
#else
#define KX_FORMATO_PRINTF(formato, primeiro)
#endif

// Said of what must not outlive the text.
#if defined(__clang__)
#define KX_VIVE_COM_O_TEXTO [[clang::lifetimebound]]
#else
#define KX_VIVE_COM_O_TEXTO
#endif

class KX_API CString {
 public:
  // What the trims remove when nothing else is said.
  static constexpr const char* kBrancos = " \t\n\v\f\r";

  CString() noexcept = default;
  CString(const char* texto) : _texto(texto != nullptr ? texto : "") {}  // up to the first zero
  // Exactly these characters; zeros among them are kept.
  CString(const char* texto, int tamanho);
  CString(std::string_view texto) : _texto(texto) {}
  CString(const std::string& texto) : _texto(texto) {}

  // The number of characters.
  int GetLength() const noexcept { return static_cast<int>(_texto.size()); }
  // True when there is no character.
  bool IsEmpty() const noexcept { return _texto.empty(); }
  // Removes every character.
  void Empty() noexcept { _texto.clear(); }

  // Zero-terminated; valid until the text changes or ends.
  const char* GetString() const noexcept KX_VIVE_COM_O_TEXTO { return _texto.c_str(); }
  operator const char*() const noexcept KX_VIVE_COM_O_TEXTO { return _texto.c_str(); }
  // All the characters, without a copy; valid as long as GetString's.
  std::string_view Vista() const noexcept KX_VIVE_COM_O_TEXTO { return _texto; }
  // A copy of all the characters.
  explicit operator std::string() const { return _texto; }

  // The character at the position, 0 at the end of the text. A position outside the text raises
  // std::out_of_range; the end is outside for SetAt.
  char GetAt(int posicao) const;
  char operator[](int posicao) const { return GetAt(posicao); }
  void SetAt(int posicao, char caractere);

  // The first or last characters, or those from a position on, at most so many.
  CString Left(int quantos) const { return Mid(0, quantos); }
  CString Right(int quantos) const;
  CString Mid(int primeiro) const { return Mid(primeiro, GetLength()); }
  CString Mid(int primeiro, int quantos) const;

  // Position of the first occurrence at or after `inicio`, or -1. An empty text is found at once.
  int Find(char caractere, int inicio = 0) const noexcept;
  int Find(const char* trecho, int inicio = 0) const noexcept;
  // Position of the last occurrence, or -1.
  int ReverseFind(char caractere) const noexcept;

  // Below 0, 0 or above 0, as this text comes before the other, is equal or comes after.
  int Compare(const char* outro) const noexcept;
  // The same, upper and lower case taken as equal, accented letters too.
  int CompareNoCase(const char* outro) const noexcept;

  // Append; the sum of two texts is one after the other.
  CString& operator+=(const CString& outro);
  CString& operator+=(const char* outro);
  CString& operator+=(char caractere);
  friend CString operator+(CString a, const CString& b) { return std::move(a += b); }
  friend CString operator+(CString a, const char* b) { return std::move(a += b); }
  friend CString operator+(CString a, char b) { return std::move(a += b); }

  // The comparison of Compare, as operators.
  friend bool operator==(const CString& a, const CString& b) noexcept {
    return a._texto == b._texto;
  }
  friend bool operator==(const CString& a, const char* b) noexcept { return a.Compare(b) == 0; }
  friend std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept {
    return a._texto <=> b._texto;
  }
  friend std::strong_ordering operator<=>(const CString& a, const char* b) noexcept {
    return a.Compare(b) <=> 0;
  }
  // The same with std::string and std::string_view, zeros among their characters too.
  template <class T>
  requires(std::same_as<T, std::string> || std::same_as<T, std::string_view>) friend bool
  operator==(const CString& a, const T& b) noexcept {
    return a._texto == b;
  }
  template <class T>
  requires(std::same_as<T, std::string> ||
           std::same_as<T, std::string_view>) friend std::strong_ordering
  operator<=>(const CString& a, const T& b) noexcept {
    return a.Vista() <=> std::string_view(b);
  }

  // Writes all the characters as they are, with the stream's width and fill.
  KX_API friend std::ostream& operator<<(std::ostream& saida, const CString& texto);

  // Remove the characters given, blanks when none are, from the ends.
  CString& Trim(const char* quais = kBrancos);
  CString& TrimLeft(const char* quais = kBrancos);
  CString& TrimRight(const char* quais = kBrancos);

  // All letters in upper or lower case. Accented letters change too; those without a counterpart in
  // the code page stay.
  CString& MakeUpper() noexcept;
  CString& MakeLower() noexcept;

  // Replace every occurrence, and return how many there were. An empty `velho` is found nowhere.
  int Replace(char velho, char novo) noexcept;
  int Replace(const char* velho, const char* novo);
  // Remove or insert characters at the position. Both return the new length.
  int Delete(int posicao, int quantos = 1);
  int Insert(int posicao, const char* trecho);

  // The next token at or after `inicio`, which moves behind it; runs of delimiters count as one.
  // When there is none left, an empty text and `inicio` -1. Loop while `inicio` is not -1.
  CString Tokenize(const char* delimitadores, int& inicio) const;

  // Replaces the text by the formatted one, of whatever length, as printf does; the text itself may
  // be among the arguments (through GetString). A format that cannot be converted gives an empty
  // text.
  void Format(const char* formato, ...) KX_FORMATO_PRINTF(2, 3);

 private:
  // The position, brought within the text.
  std::size_t Dentro(int posicao) const noexcept;

  std::string _texto;
};

#undef KX_VIVE_COM_O_TEXTO
