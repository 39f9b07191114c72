// Expands the record table named by KX_TABELA into the accessors of the class named by KX_CLASSE,
// inside the class body; the record is the member _Reg. No include guard on purpose.
//   fields: const T& Get<Field>() const; T& Get<Field>(); KX_CLASSE& Set<Field>(const T&)
//   texts:  CString Get<Field>() const; KX_CLASSE& Set<Field>(const CString&), which reports a text
//           that is too long with the class's source and the row's line (core/TextoFixo.h)
// With KX_LE_POR_VALOR defined, fields have the one getter T Get<Field>() const.
#ifndef KX_TABELA
#error "core/tabela/Acessores.h: define KX_TABELA and KX_CLASSE"
#endif

#ifdef KX_LE_POR_VALOR
static constexpr bool kLePorValor = true;
#define KX_LEITURA(Tipo, Nome) \
  Tipo Get##Nome() const { return _Reg.Nome; }
#else
#define KX_LEITURA(Tipo, Nome)                        \
  const Tipo& Get##Nome() const { return _Reg.Nome; } \
  Tipo& Get##Nome() { return _Reg.Nome; }
#endif

#define KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado) \
  KX_LEITURA(Tipo, Nome)                                      \
  KX_CLASSE& Set##Nome(const Tipo& valor) {                   \
    _Reg.Nome = valor;                                        \
    return *this;                                             \
  }
// The part may differ from its member in signedness alone, which references may alias.
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Comparado, Significado)                  \
  const Tipo& Get##Nome() const { return reinterpret_cast<const Tipo&>(_Reg.Caminho); } \
  Tipo& Get##Nome() { return reinterpret_cast<Tipo&>(_Reg.Caminho); }                   \
  KX_CLASSE& Set##Nome(const Tipo& valor) {                                             \
    Get##Nome() = valor;                                                                \
    return *this;                                                                       \
  }
#define KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado)                         \
  CString Get##Nome() const { return kx::LeTextoFixo(_Reg.Nome, sizeof(_Reg.Nome)); } \
  KX_CLASSE& Set##Nome(const CString& valor) {                                        \
    kx::CopiaTextoFixo(_Reg.Nome, valor, kPosicao.Fonte, __LINE__);                   \
    return *this;                                                                     \
  }
#define KX_HISTORICO(Posicao, Larg, Nome, Comparado, Significado) \
  KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado)
#include KX_TABELA
#undef KX_LEITURA
#undef KX_LE_POR_VALOR
#undef KX_TABELA
#undef KX_CLASSE
