// A field that lives in the object and not in its record:
//   KX_MEMBRO(Classe, T, Nome) declares const T& GetNome() const, T& GetNome(),
//   Classe& SetNome(const T&) and the member _Nome, initially zero or empty.
//   KX_MEMBRO_POR_VALOR declares T GetNome() const in place of the two references.
// KX_DO_OBJETO(Nome), in a class's Partes, names such a member and stands for it.
#pragma once

#define KX_DO_OBJETO(Nome) #Nome, &Esta::_##Nome

#define KX_MEMBRO(Classe, T, Nome)               \
 public:                                         \
  const T& Get##Nome() const { return _##Nome; } \
  T& Get##Nome() { return _##Nome; }             \
  Classe& Set##Nome(const T& valor) {            \
    _##Nome = valor;                             \
    return *this;                                \
  }                                              \
                                                 \
 protected:                                      \
  T _##Nome{};                                   \
                                                 \
 public:

#define KX_MEMBRO_POR_VALOR(Classe, T, Nome) \
 public:                                     \
  T Get##Nome() const { return _##Nome; }    \
  Classe& Set##Nome(const T& valor) {        \
    _##Nome = valor;                         \
    return *this;                            \
  }                                          \
                                             \
 protected:                                  \
  T _##Nome{};                               \
                                             \
 public:
