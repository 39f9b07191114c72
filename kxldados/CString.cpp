#include "kxldados/CString.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <ostream>
#include <stdexcept>

namespace {

std::string_view VistaDe(const char* texto) noexcept {
  return texto != nullptr ? std::string_view(texto) : std::string_view();
}

int Posicao(std::size_t posicao) noexcept {
  return posicao == std::string_view::npos ? -1 : static_cast<int>(posicao);
}

// Upper and lower case lie 32 apart in ASCII and in the accented letters; the Windows variant of
// the code page adds four pairs, out of line, between 0x80 and 0x9F.
char Maiuscula(char caractere) noexcept {
  const auto c = static_cast<unsigned char>(caractere);
  if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) {
    return static_cast<char>(c - 0x20);
  }
  if (c == 0x9A || c == 0x9C || c == 0x9E) return static_cast<char>(c - 0x10);
  return c == 0xFF ? '\x9F' : caractere;
}

char Minuscula(char caractere) noexcept {
  const auto c = static_cast<unsigned char>(caractere);
  if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) {
    return static_cast<char>(c + 0x20);
  }
  if (c == 0x8A || c == 0x8C || c == 0x8E) return static_cast<char>(c + 0x10);
  return c == 0x9F ? '\xFF' : caractere;
}

int Sinal(std::strong_ordering ordem) noexcept { return (ordem > 0) - (ordem < 0); }

}  // namespace

CString::CString(const char* texto, int tamanho) {
  if (texto != nullptr && tamanho > 0) _texto.assign(texto, static_cast<std::size_t>(tamanho));
}

std::size_t CString::Dentro(int posicao) const noexcept {
  return posicao <= 0 ? 0 : std::min(static_cast<std::size_t>(posicao), _texto.size());
}

char CString::GetAt(int posicao) const {
  if (posicao < 0 || posicao > GetLength()) throw std::out_of_range("invalid CString subscript");
  return _texto[static_cast<std::size_t>(posicao)];
}

void CString::SetAt(int posicao, char caractere) {
  if (posicao < 0 || posicao >= GetLength()) throw std::out_of_range("invalid CString subscript");
  _texto[static_cast<std::size_t>(posicao)] = caractere;
}

CString CString::Right(int quantos) const {
  return CString(Vista().substr(_texto.size() - Dentro(quantos)));
}

CString CString::Mid(int primeiro, int quantos) const {
  return CString(Vista().substr(Dentro(primeiro), Dentro(quantos)));
}

int CString::Find(char caractere, int inicio) const noexcept {
  return Posicao(_texto.find(caractere, Dentro(inicio)));
}

int CString::Find(const char* trecho, int inicio) const noexcept {
  return Posicao(Vista().find(VistaDe(trecho), Dentro(inicio)));
}

int CString::ReverseFind(char caractere) const noexcept { return Posicao(_texto.rfind(caractere)); }

int CString::Compare(const char* outro) const noexcept { return Sinal(Vista() <=> VistaDe(outro)); }

int CString::CompareNoCase(const char* outro) const noexcept {
  const std::string_view b = VistaDe(outro);
  return Sinal(std::lexicographical_compare_three_way(
      _texto.begin(), _texto.end(), b.begin(), b.end(), [](char x, char y) {
        return static_cast<unsigned char>(Minuscula(x)) <=>
               static_cast<unsigned char>(Minuscula(y));
      }));
}

CString& CString::operator+=(const CString& outro) {
  _texto += outro._texto;
  return *this;
}

CString& CString::operator+=(const char* outro) {
  _texto += VistaDe(outro);
  return *this;
}

CString& CString::operator+=(char caractere) {
  _texto += caractere;
  return *this;
}

CString& CString::Trim(const char* quais) { return TrimRight(quais).TrimLeft(quais); }

CString& CString::TrimLeft(const char* quais) {
  _texto.erase(0, _texto.find_first_not_of(VistaDe(quais)));
  return *this;
}

CString& CString::TrimRight(const char* quais) {
  _texto.erase(_texto.find_last_not_of(VistaDe(quais)) + 1);
  return *this;
}

CString& CString::MakeUpper() noexcept {
  std::transform(_texto.begin(), _texto.end(), _texto.begin(), Maiuscula);
  return *this;
}

CString& CString::MakeLower() noexcept {
  std::transform(_texto.begin(), _texto.end(), _texto.begin(), Minuscula);
  return *this;
}

int CString::Replace(char velho, char novo) noexcept {
  int trocas = 0;
  for (char& caractere : _texto) {
    if (caractere != velho) continue;
    caractere = novo;
    ++trocas;
  }
  return trocas;
}

int CString::Replace(const char* velho, const char* novo) {
  const std::string_view procurado = VistaDe(velho);
  if (procurado.empty()) return 0;
  const std::string_view substituto = VistaDe(novo);
  std::string resultado;
  int trocas = 0;
  std::size_t lido = 0;
  for (std::size_t achado; (achado = _texto.find(procurado, lido)) != std::string::npos; ++trocas) {
    resultado.append(_texto, lido, achado - lido).append(substituto);
    lido = achado + procurado.size();
  }
  if (trocas == 0) return 0;
  resultado.append(_texto, lido);
  _texto = std::move(resultado);
  return trocas;
}

int CString::Delete(int posicao, int quantos) {
  _texto.erase(Dentro(posicao), Dentro(quantos));
  return GetLength();
}

int CString::Insert(int posicao, const char* trecho) {
  _texto.insert(Dentro(posicao), VistaDe(trecho));
  return GetLength();
}

CString CString::Tokenize(const char* delimitadores, int& inicio) const {
  const std::string_view quais = VistaDe(delimitadores);
  const std::size_t primeiro =
      inicio < 0 ? std::string::npos : _texto.find_first_not_of(quais, Dentro(inicio));
  if (primeiro == std::string::npos) {
    inicio = -1;
    return {};
  }
  const std::size_t fim = std::min(_texto.find_first_of(quais, primeiro), _texto.size());
  inicio = static_cast<int>(fim);
  return CString(Vista().substr(primeiro, fim - primeiro));
}

void CString::Format(const char* formato, ...) {
  va_list argumentos;
  va_start(argumentos, formato);
  const int tamanho = std::vsnprintf(nullptr, 0, formato, argumentos);
  va_end(argumentos);
  std::string resultado(tamanho > 0 ? static_cast<std::size_t>(tamanho) : 0, '\0');
  va_start(argumentos, formato);
  std::vsnprintf(resultado.data(), resultado.size() + 1, formato, argumentos);
  va_end(argumentos);
  _texto = std::move(resultado);
}

std::ostream& operator<<(std::ostream& saida, const CString& texto) {
  return saida << texto.Vista();
}
