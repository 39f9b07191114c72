// The common face of a class that holds one flat record as its field storage, beside child
// collections and free texts.
//
// KX_CLASSE_DE_REGISTRO(Classe, Base, Record), first in the class body, declares
//   - default, copy and move construction and assignment. Copies are deep; a moved-from object is
//     valid, its collections empty. Copy assignment goes through Copiar (OnCopiar).
//   - const Record& GetReg() const: the record as stored, its array pointers null and counts zero.
//   - explicit Class(const Record*): a new object filled as by CopiarDe, which clears nothing
//   before
//     it is overwritten.
//   - CopiarDe(const Record*): clears the object and fills it from the record, which it leaves
//     untouched and does not keep; null clears.
//   - CopiarPara(Record*) const: overwrites the whole record (what it owned before is not
//     released) and hangs into it freshly allocated arrays and texts, which the caller releases.
//   - bool CabeNoRegistro() const: whether CopiarPara leaves out nothing, at no level: no
//   collection
//     of more than 65,535 elements, no text beyond what its field carries. Ask it before sending.
//   - static ZerarDelete(Record*), ZerarGlobalAlloc(Record*): release every array and text that the
//     record owns, nested ones included, and set pointers and counts to zero; the first for memory
//     of array new, the second for that of the task allocator. Null is allowed.
//   - Descreve, operator<<: what it holds, for people (core/Descreve.h).
//   - ListaDiferencas: what kx::Diferencas answers of two of them (core/Diferenca.h).
//   - operator==, operator!=: the compared fields, texts and children, in depth.
//   - EstaVazio(): the record all zero, no text, no child.
//   - static const kx::Alocador kAlocador: where CopiarPara takes its memory from, and so which of
//     the two releases is the one that kx::RegistroDe (core/RegistroDe.h) calls.
//   - static const kx::Posicao kPosicao: what reports about the class say of where they come from.
// CopiarDe and CopiarPara throw std::bad_alloc; the object, and the record after its release, stay
// usable. A destination that cannot be written is left, reported (core/Bloco.h) and not filled. A
// source, a text or the rest of a child array that cannot be read is left out and reported once.
//
// CopiarDe clears through Limpar, so what a derived class adds is cleared by its OnLimpar.
//
// In the source, KX_IMPLEMENTA defines it all. A class that does one of these things in its own way
// names there the others alone.
#pragma once

#include <type_traits>
#include <typeinfo>

#include "core/Descreve.h"
#include "core/Diferenca.h"
#include "core/Listas.h"
#include "core/RegistroDe.h"
#include "core/TextoFixo.h"
#include "kxldados/CObject.h"
#include "kxldados/Dinheiro.h"

namespace kx {

struct Motor;
struct Descritor;
struct Diferenciador;
struct Escrita;
struct Leitura;

// Asks for a default-constructed object whose record is not cleared: its first CopiarDe fills it.
struct SemLimpar {};

// True for the elements that a parent's conversion writes and reads without a call of their own:
// the record is the one that their class stores and converts in the common way.
template <class T, class E>
inline constexpr bool kDireta = requires {
  requires T::kConversaoDireta;
  requires std::is_same_v<typename T::Registro, E>;
};

}  // namespace kx

// For a class without a record: all but the record's part.
#define KX_CLASSE_SEM_REGISTRO(Classe, BaseDireta)                         \
  KX_DECLARA_CLASSE(Classe)                                                \
  friend struct kx::Motor;                                                 \
  friend struct kx::Descritor;                                             \
  friend struct kx::Diferenciador;                                         \
  friend struct kx::Escrita;                                               \
  friend struct kx::Leitura;                                               \
                                                                           \
 public:                                                                   \
  using Esta = Classe;                                                     \
  using Base = BaseDireta;                                                 \
  Classe();                                                                \
  Classe(const Classe& outro) = default;                                   \
  Classe(Classe&& outro) noexcept = default;                               \
  ~Classe() override = default;                                            \
  Classe& operator=(const Classe& outro);                                  \
  Classe& operator=(Classe&& outro) noexcept;                              \
  bool operator==(const Classe& outro) const;                              \
  bool operator!=(const Classe& outro) const { return !(*this == outro); } \
  void Descreve(kx::Descricao& descricao) const;                           \
  void ListaDiferencas(const Classe& depois, kx::Comparacao& saida) const; \
                                                                           \
 protected:                                                                \
  void OnLimpar() override;                                                \
  void OnCopiar(const TKXBaseParaDados* origem) override;                  \
  void MoveDe(Classe& outro) noexcept;                                     \
  bool OnEstaVazio() const override;                                       \
                                                                           \
 public:

// For a class that declares a CopiarPara of its own: all but CopiarPara.
#define KX_CLASSE_DE_REGISTRO_SEM_ESCRITA(Classe, BaseDireta, Reg) \
  KX_CLASSE_SEM_REGISTRO(Classe, BaseDireta)                       \
 public:                                                           \
  using Registro = Reg;                                            \
  static const kx::Posicao kPosicao;                               \
  static const kx::Alocador kAlocador;                             \
  explicit Classe(kx::SemLimpar) noexcept {}                       \
  explicit Classe(const Reg* origem);                              \
  const Reg& GetReg() const { return _Reg; }                       \
  Classe& CopiarDe(const Reg* origem);                             \
  bool CabeNoRegistro() const;                                     \
  static void ZerarDelete(Reg* registro);                          \
  static void ZerarGlobalAlloc(Reg* registro);                     \
                                                                   \
 protected:                                                        \
  Reg _Reg;                                                        \
                                                                   \
 public:

#define KX_CLASSE_DE_REGISTRO(Classe, BaseDireta, Reg)       \
  KX_CLASSE_DE_REGISTRO_SEM_ESCRITA(Classe, BaseDireta, Reg) \
  static constexpr bool kConversaoDireta = true;             \
  const Classe& CopiarPara(Reg* destino) const;

// The definitions, in the one source that bears the room's name ("DadosRE"), which kFonte holds. De
// is the allocator of CopiarPara. BaseDeExecucao is what _GetBaseClass reports: the base that
// callers have always been told, which for some classes is not the C++ base.
#define KX_IMPLEMENTA(Classe, BaseDeExecucao, De) \
  KX_IMPLEMENTA_REGISTRO(Classe, BaseDeExecucao)  \
  KX_IMPLEMENTA_LIBERACAO(Classe)                 \
  KX_IMPLEMENTA_ESCRITA(Classe, De)               \
  KX_IMPLEMENTA_IGUALDADE(Classe)

// The same of a class without a record.
#define KX_IMPLEMENTA_SEM_REGISTRO(Classe, BaseDeExecucao) \
  KX_IMPLEMENTA_VIDA(Classe, BaseDeExecucao)               \
  KX_IMPLEMENTA_IGUALDADE(Classe)                          \
  Classe::Classe() = default;

#define KX_IMPLEMENTA_VIDA(Classe, BaseDeExecucao)                                  \
  KX_IMPLEMENTA_CLASSE(Classe, BaseDeExecucao)                                      \
  Classe& Classe::operator=(const Classe& outro) {                                  \
    Copiar(&outro);                                                                 \
    return *this;                                                                   \
  }                                                                                 \
  Classe& Classe::operator=(Classe&& outro) noexcept {                              \
    if (this != &outro) MoveDe(outro);                                              \
    return *this;                                                                   \
  }                                                                                 \
  void Classe::MoveDe(Classe& outro) noexcept {                                     \
    kx::Motor::Move(*this, outro);                                                  \
    Base::MoveDe(outro);                                                            \
  }                                                                                 \
  void Classe::OnLimpar() {                                                         \
    kx::Motor::Limpa(*this);                                                        \
    Base::OnLimpar();                                                               \
  }                                                                                 \
  void Classe::OnCopiar(const TKXBaseParaDados* origem) {                           \
    if (origem == nullptr || origem == this) return;                                \
    kx::Motor::Copia(*this, static_cast<const Classe&>(*origem));                   \
    Base::OnCopiar(origem);                                                         \
  }                                                                                 \
  void Classe::Descreve(kx::Descricao& descricao) const {                           \
    kx::Descritor::Objeto(*this, descricao);                                        \
  }                                                                                 \
  void Classe::ListaDiferencas(const Classe& depois, kx::Comparacao& saida) const { \
    kx::Diferenciador::Objeto(*this, depois, saida);                                \
  }                                                                                 \
  bool Classe::OnEstaVazio() const { return Base::OnEstaVazio() && kx::Motor::EstaVazio(*this); }

#define KX_IMPLEMENTA_IGUALDADE(Classe) \
  bool Classe::operator==(const Classe& outro) const { return kx::Motor::Iguais(*this, outro); }

// What a derived class adds is cleared by the virtual Limpar; of the class itself, the record that
// is about to be overwritten need not be.
#define KX_IMPLEMENTA_REGISTRO(Classe, BaseDeExecucao)                             \
  KX_IMPLEMENTA_VIDA(Classe, BaseDeExecucao)                                       \
  constinit const kx::Posicao Classe::kPosicao{kFonte, __LINE__};                  \
  Classe::Classe() : _Reg{} {}                                                     \
  Classe::Classe(const Registro* origem) { kx::Leitura::Registro(*this, origem); } \
  bool Classe::CabeNoRegistro() const { return kx::Motor::Cabe(*this); }           \
  Classe& Classe::CopiarDe(const Registro* origem) {                               \
    if (typeid(*this) == typeid(Classe)) {                                         \
      Base::OnLimpar();                                                            \
      kx::Motor::LimpaPartes(*this);                                               \
    } else {                                                                       \
      Limpar();                                                                    \
    }                                                                              \
    kx::Leitura::Registro(*this, origem);                                          \
    return *this;                                                                  \
  }

#define KX_IMPLEMENTA_LIBERACAO(Classe)                 \
  void Classe::ZerarDelete(Registro* registro) {        \
    kx::LiberaRegistro(registro, kx::Alocador::Delete); \
  }                                                     \
  void Classe::ZerarGlobalAlloc(Registro* registro) {   \
    kx::LiberaRegistro(registro, kx::Alocador::Tarefa); \
  }

// Where a class's own CopiarPara takes its memory from.
#define KX_IMPLEMENTA_ALOCADOR(Classe, De) \
  constinit const kx::Alocador Classe::kAlocador = kx::Alocador::De;

#define KX_IMPLEMENTA_ESCRITA(Classe, De)                     \
  KX_IMPLEMENTA_ALOCADOR(Classe, De)                          \
  const Classe& Classe::CopiarPara(Registro* destino) const { \
    kx::Escrita::Registro(*this, destino, kx::Alocador::De);  \
    return *this;                                             \
  }

// For a class that also declares CopiarParaPS of its own record.
#define KX_IMPLEMENTA_ESCRITA_PS(Classe)                         \
  const Classe& Classe::CopiarParaPS(Registro* destino) const {  \
    kx::Escrita::Registro(*this, destino, kx::Alocador::Tarefa); \
    return *this;                                                \
  }

// For a class that declares OnCalculaCRC as the checksum of its stored record and of nothing else,
// from 0 whatever is passed in (core/Checksum.h).
#define KX_IMPLEMENTA_CHECKSUM(Classe)                                    \
  unsigned long Classe::OnCalculaCRC(unsigned long* /*anterior*/) const { \
    return kx::CalculaChecksum(&_Reg, sizeof(_Reg));                      \
  }
