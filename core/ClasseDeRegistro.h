// The common face of a class that holds one flat record as its field storage, beside child
// collections and free texts.
//
// KX_CLASSE_DE_REGISTRO(Classe, Base, Record), first in the class body, declares
//   - default, copy and move construction and assignment. Copies are deep; a moved-from object is
//     valid, its collections empty. Copy assignment goes through Copiar (OnCopiar).
//   - const Record& GetReg() const: the record as stored, its array pointers null and counts zero.
//   - CopiarDe(const Record*): clears the object and fills it from the record, which it leaves
//     untouched and does not keep; null clears.
//   - CopiarPara(Record*) const: overwrites the whole record (what it owned before is not
//     released) and hangs into it freshly allocated arrays and texts, which the caller releases.
//   - static ZerarDelete(Record*), ZerarGlobalAlloc(Record*): release every array and text that the
//     record owns, nested ones included, and set pointers and counts to zero; the first for memory
//     of array new, the second for that of the task allocator. Null is allowed.
//   - operator==, operator!=: the compared fields, texts and children, in depth.
//   - EstaVazio(): the record all zero, no text, no child.
// CopiarDe and CopiarPara throw std::bad_alloc; the object, and the record after its release, stay
// usable. A destination that cannot be written is left, reported (core/Bloco.h) and not filled.
#pragma once

#include "core/Listas.h"
#include "core/TextoFixo.h"
#include "kxldados/CObject.h"

namespace kx {
struct Motor;
}

#define KX_CLASSE_SEM_REGISTRO(Classe, BaseDireta)                         \
  KX_DECLARA_CLASSE(Classe)                                                \
  friend struct kx::Motor;                                                 \
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
  explicit Classe(kx::SemLimpar) noexcept {}                       \
  const Reg& GetReg() const { return _Reg; }                       \
  Classe& CopiarDe(const Reg* origem);                             \
  static void ZerarDelete(Reg* registro);                          \
  static void ZerarGlobalAlloc(Reg* registro);                     \
                                                                   \
 protected:                                                        \
  Reg _Reg;                                                        \
                                                                   \
 public:

#define KX_CLASSE_DE_REGISTRO(Classe, BaseDireta, Reg)       \
  KX_CLASSE_DE_REGISTRO_SEM_ESCRITA(Classe, BaseDireta, Reg) \
  const Classe& CopiarPara(Reg* destino) const;

// In the body of a class whose conversions are those of KX_IMPLEMENTA_CONVERSAO: a parent's
// conversion may then do them in place. KX_FONTE is the source name of its reports.
#define KX_CONVERSAO_DIRETA                      \
 public:                                         \
  static constexpr bool kConversaoDireta = true; \
  static constexpr const char* kFonteDosRelatos = KX_FONTE;

// The definitions, in the source. BaseDeExecucao is what _GetBaseClass reports.
#define KX_IMPLEMENTA_VIDA(Classe, BaseDeExecucao)                \
  KX_IMPLEMENTA_CLASSE(Classe, BaseDeExecucao)                    \
  Classe& Classe::operator=(const Classe& outro) {                \
    Copiar(&outro);                                               \
    return *this;                                                 \
  }                                                               \
  Classe& Classe::operator=(Classe&& outro) noexcept {            \
    if (this != &outro) MoveDe(outro);                            \
    return *this;                                                 \
  }                                                               \
  void Classe::MoveDe(Classe& outro) noexcept {                   \
    kx::Motor::Move(*this, outro);                                \
    Base::MoveDe(outro);                                          \
  }                                                               \
  void Classe::OnLimpar() {                                       \
    kx::Motor::Limpa(*this);                                      \
    Base::OnLimpar();                                             \
  }                                                               \
  void Classe::OnCopiar(const TKXBaseParaDados* origem) {         \
    if (origem == nullptr || origem == this) return;              \
    kx::Motor::Copia(*this, static_cast<const Classe&>(*origem)); \
    Base::OnCopiar(origem);                                       \
  }                                                               \
  bool Classe::OnEstaVazio() const { return Base::OnEstaVazio() && kx::Motor::EstaVazio(*this); }

#define KX_IMPLEMENTA_IGUALDADE(Classe) \
  bool Classe::operator==(const Classe& outro) const { return kx::Motor::Iguais(*this, outro); }

#define KX_IMPLEMENTA_REGISTRO(Classe, BaseDeExecucao)  \
  KX_IMPLEMENTA_VIDA(Classe, BaseDeExecucao)            \
  Classe::Classe() : _Reg{} {}                          \
  void Classe::ZerarDelete(Registro* registro) {        \
    kx::LiberaRegistro(registro, kx::Alocador::Delete); \
  }                                                     \
  void Classe::ZerarGlobalAlloc(Registro* registro) {   \
    kx::LiberaRegistro(registro, kx::Alocador::Tarefa); \
  }

#define KX_IMPLEMENTA_LEITURA(Classe, Fonte)         \
  Classe& Classe::CopiarDe(const Registro* origem) { \
    Base::OnLimpar();                                \
    kx::Motor::Le(*this, origem, Fonte, __LINE__);   \
    return *this;                                    \
  }

#define KX_IMPLEMENTA_CONVERSAO(Classe, De, Fonte)            \
  KX_IMPLEMENTA_LEITURA(Classe, Fonte)                        \
  const Classe& Classe::CopiarPara(Registro* destino) const { \
    kx::Motor::Escreve(*this, destino, De, Fonte, __LINE__);  \
    return *this;                                             \
  }
