// Records of any type with random contents, from their metadata alone: well-formed ones for tests,
// and those of a careless sender, with what must come back of them.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "core/Listas.h"
#include "core/Metadados.h"
#include "tests/apoio/Bytes.h"

namespace apoio {

// The bytes that do not travel: spare ones, the time beside a date, what stands behind a text.
void ZeraOQueNaoViaja(const KXRegistroInfo& info, unsigned char* registro);

// The row of the count that belongs to a list row.
const KXCampo& ContaDe(const KXRegistroInfo& info, const KXCampo& lista);

// Where the pointer of a row lies, for a row that has one; null for others.
template <class Byte>
Byte* PonteiroDe(const KXCampo& campo, Byte* registro) {
  const bool solto = campo.Papel == KXPapel::Lista || campo.Papel == KXPapel::Corrido ||
                     campo.Papel == KXPapel::Terminado;
  if (!solto && campo.Papel != KXPapel::Contado) return nullptr;
  return registro + campo.Posicao + (solto ? 0 : offsetof(KXStringPS, Texto));
}

inline bool EhTextoFixo(const KXCampo& campo) {
  return campo.Tipo == KXTipoCampo::Texto || campo.Tipo == KXTipoCampo::Historico;
}

// A value at any place of a record.
template <class T>
T Lido(const unsigned char* onde) {
  T valor{};
  std::memcpy(&valor, onde, sizeof(valor));
  return valor;
}
template <class T>
void Poe(unsigned char* onde, const T& valor) {
  std::memcpy(onde, &valor, sizeof(valor));
}

// A place that no process can read.
inline char* Ilegivel() { return reinterpret_cast<char*>(16); }

// Where two records, their arrays and texts differ first; empty when they are the same byte for
// byte, pointers aside.
std::string Diferenca(const KXRegistroInfo& info, const void* a, const void* b);

// The first count, size, pointer or text of the record that a release left; empty when none is.
std::string OQueFicou(const KXRegistroInfo& info, const void* registro);

// Releases all that hangs from the record.
void Libera(const KXRegistroInfo& info, unsigned char* registro, kx::Alocador alocador);

// A record that releases what it owns.
class Registro {
 public:
  // One that a conversion fills.
  explicit Registro(const KXRegistroInfo& info, kx::Alocador alocador = kx::Alocador::Tarefa)
      : _info(info), _alocador(alocador), _bytes(info.Tamanho, 0xAB) {}
  // One with random contents. What is received and never sent does not come back; it is there only
  // when asked for.
  Registro(const KXRegistroInfo& info, unsigned semente, bool comCancelamentos = false,
           kx::Alocador alocador = kx::Alocador::Tarefa);
  // One as a careless sender sends it, and what must come back of it. Arrays and texts have exactly
  // as much memory as may be read; some cannot be read at all.
  Registro(const KXRegistroInfo& info, apoio::Bytes& bytes, Registro& esperado);
  Registro(const Registro&) = delete;
  Registro& operator=(const Registro&) = delete;
  ~Registro();

  // What cannot be read cannot be released either.
  void EsqueceOsIlegiveis();
  unsigned char* Bytes() { return _bytes.data(); }
  const unsigned char* Bytes() const { return _bytes.data(); }
  kx::Alocador De() const { return _alocador; }

 private:
  void TiraOQueSoSeRecebe();

  const KXRegistroInfo& _info;
  kx::Alocador _alocador;
  std::vector<unsigned char> _bytes;
  std::vector<unsigned char*> _ilegiveis;
};

// The same as the type itself.
template <class REG>
class RegistroEscrito : public Registro {
 public:
  explicit RegistroEscrito(auto... argumentos) : Registro(KXMetadados<REG>::kInfo, argumentos...) {}

  REG& Reg = *reinterpret_cast<REG*>(Bytes());
};
template <class REG>
class RegistroAleatorio : public RegistroEscrito<REG> {
 public:
  explicit RegistroAleatorio(unsigned semente, auto... argumentos)
      : RegistroEscrito<REG>(semente, argumentos...) {}
};

}  // namespace apoio
