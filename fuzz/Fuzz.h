// What the harnesses share: the bytes that decide everything, and the way a finding is told.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

// The entry that libFuzzer calls, and Repassa.cpp in place of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho);

// Ends the process with the condition that does not hold and, where it is given, what was seen.
#define KX_EXIGE(condicao, ...) \
  ((condicao) ? void() : fuzz::Acusa(__FILE__, __LINE__, #condicao __VA_OPT__(, ) __VA_ARGS__))

namespace fuzz {

[[noreturn]] inline void Acusa(const char* fonte, int linha, const char* condicao,
                               const std::string& visto = {}) {
  std::fprintf(stderr, "%s:%d: %s: %s\n", fonte, linha, condicao, visto.c_str());
  std::abort();
}

// The input, consumed from its start; after its end, zeros.
class Bytes {
 public:
  Bytes(const std::uint8_t* dados, std::size_t tamanho) : _dados(dados), _resto(tamanho) {}

  bool Acabou() const { return _resto == 0; }

  std::uint8_t Byte() {
    std::uint8_t valor = 0;
    Enche(&valor, sizeof(valor));
    return valor;
  }

  // 0 to `ate`, of a byte.
  unsigned Ate(unsigned ate) { return Byte() % (ate + 1); }

  template <class T>
  T Valor() {
    T valor{};
    Enche(&valor, sizeof(valor));
    return valor;
  }

  void Enche(void* destino, std::size_t quantos) {
    const std::size_t ha = quantos < _resto ? quantos : _resto;
    std::memset(destino, 0, quantos);
    if (ha > 0) std::memcpy(destino, _dados, ha);
    _dados += ha;
    _resto -= ha;
  }

  // A text of at most `maximo` characters, its length told by one byte.
  std::string Texto(std::size_t maximo) {
    std::string texto(Byte() % (maximo + 1), '\0');
    if (texto.size() > _resto) texto.resize(_resto);
    Enche(texto.data(), texto.size());
    return texto;
  }

  std::string Tudo() {
    std::string texto(_resto, '\0');
    Enche(texto.data(), texto.size());
    return texto;
  }

 private:
  const std::uint8_t* _dados;
  std::size_t _resto;
};

// The first three lines of a text, empty ones skipped, character by character.
inline std::string TresLinhas(const std::string& texto) {
  std::string linhas;
  int quantas = 0;
  bool dentro = false;
  for (const char c : texto) {
    const bool fim = c == '\r' || c == '\n';
    if (fim) {
      dentro = false;
      continue;
    }
    if (!dentro && ++quantas > 3) break;
    if (!dentro) linhas += '\n';
    dentro = true;
    linhas += c;
  }
  return linhas;
}

}  // namespace fuzz
