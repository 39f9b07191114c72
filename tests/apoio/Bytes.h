// The bytes that decide what a random test does, and the way a finding is told: the tests and the
// harnesses of fuzz/ share both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <stdexcept>
#include <string>

// Ends the run with the condition that does not hold and, where it is given, what was seen.
#define KX_EXIGE(condicao, ...) \
  ((condicao) ? void() : apoio::Acusa(__FILE__, __LINE__, #condicao __VA_OPT__(, ) __VA_ARGS__))

namespace apoio {

// A test fails by it, a harness ends by it.
[[noreturn]] inline void Acusa(const char* fonte, int linha, const char* condicao,
                               const std::string& visto = {}) {
  throw std::runtime_error(std::string(fonte) + ":" + std::to_string(linha) + ": " + condicao +
                           ": " + visto);
}

// The input, consumed from its start, and after its end zeros; or random bytes without an end.
class Bytes {
 public:
  Bytes(const std::uint8_t* dados, std::size_t tamanho) : _dados(dados), _resto(tamanho) {}
  explicit Bytes(unsigned semente) : _aleatorio(true), _gerador(semente) {}

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
    auto* const bytes = static_cast<std::uint8_t*>(destino);
    for (std::size_t i = 0; _aleatorio && i < quantos; ++i) {
      bytes[i] = static_cast<std::uint8_t>(_gerador() >> 8);
    }
    if (_aleatorio) return;
    const std::size_t ha = quantos < _resto ? quantos : _resto;
    std::memset(destino, 0, quantos);
    if (ha > 0) std::memcpy(destino, _dados, ha);
    _dados += ha;
    _resto -= ha;
  }

  // A text of at most `maximo` characters, its length told by one byte.
  std::string Texto(std::size_t maximo) {
    std::string texto(Byte() % (maximo + 1), '\0');
    if (!_aleatorio && texto.size() > _resto) texto.resize(_resto);
    Enche(texto.data(), texto.size());
    return texto;
  }

  std::string Tudo() {
    std::string texto(_resto, '\0');
    Enche(texto.data(), texto.size());
    return texto;
  }

 private:
  const std::uint8_t* _dados = nullptr;
  std::size_t _resto = 0;
  bool _aleatorio = false;
  std::minstd_rand _gerador;
};

}  // namespace apoio
