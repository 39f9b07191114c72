// Expands the record table named by KX_TABELA into the record's struct, the proof of its layout and
// its metadata. Included once per table; no include guard on purpose.
//
// The rows of a table, in byte order; the numbers are bytes from the start of the record:
//   KX_INICIO (record, size, meaning)
//   KX_CAMPO  (offset, type, name, equality, meaning)        a field, with accessors in the class
//   KX_PARTE  (offset, type, name, path, equality, meaning)  accessors to a part of a field above
//   KX_TEXTO  (offset, width, name, equality, meaning)       text of at most width - 1 characters
//   KX_HISTORICO(offset, width, name, equality, meaning)     the same, compared by its first three
//                                                            lines (ComparaComplementoHistorico)
//   KX_INTERNO(offset, type, name, meaning)                  a field that another object keeps
//   KX_BLOCO  (offset, name, meaning)                        counted text, KXStringPS
//   KX_TAMANHO(offset, name)                                 16-bit size of a KX_CORRIDO text
//   KX_CORRIDO(offset, name, meaning)                        text as a bare pointer; the size, the
//                                                            terminator included, is elsewhere
//   KX_TERMINADO(offset, name, meaning)                      the same, but no size anywhere: the
//                                                            text ends at its terminator
//   KX_RESERVA(offset, width, equality)                      carried unchanged
//   KX_ZERO   (offset, width)                                spare bytes that do not travel
//   KX_CONTA  (offset, list)                                 16-bit count of a child array
//   KX_LISTA  (offset, element record, list, meaning)        pointer to a child array
//   KX_FIM    (record)
// "equality" is the place of the field in the order of comparison, 0 when it is not compared.
#include <cstddef>
#include <cstdint>

#include "core/Metadados.h"
#include "kxldados/Tipos.h"

#ifndef KX_TABELA
#error "core/tabela/Registro.h: define KX_TABELA as the table to expand"
#endif

#define KX_INICIO(Registro, Larg, Significado) struct Registro {
#define KX_CAMPO(Posicao, Tipo, Nome, Igualdade, Significado) Tipo Nome;
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Igualdade, Significado)
#define KX_TEXTO(Posicao, Larg, Nome, Igualdade, Significado) char Nome[Larg];
#define KX_INTERNO(Posicao, Tipo, Nome, Significado) Tipo Nome;
#define KX_BLOCO(Posicao, Nome, Significado) KXStringPS Nome;
#define KX_HISTORICO(Posicao, Larg, Nome, Igualdade, Significado) char Nome[Larg];
#define KX_TAMANHO(Posicao, Nome) std::uint16_t Tamanho##Nome;
#define KX_CORRIDO(Posicao, Nome, Significado) char* Texto##Nome;
#define KX_TERMINADO(Posicao, Nome, Significado) char* Texto##Nome;
#define KX_RESERVA(Posicao, Larg, Igualdade) std::uint8_t Reserva_##Posicao[Larg];
#define KX_ZERO(Posicao, Larg) std::uint8_t Reserva_##Posicao[Larg];
#define KX_CONTA(Posicao, X) std::uint16_t Qtd##X;
#define KX_LISTA(Posicao, Elemento, X, Significado) Elemento* Lista##X;
#define KX_FIM(Registro) \
  }                      \
  ;
#include KX_TABELA

// The proof stands inside the function that visits the child arrays: one expansion serves both.
#define KX_PROVA(Posicao, Nome, Larg)                                              \
  static_assert(offsetof(Registro, Nome) == (Posicao), #Nome ": offset is wrong"); \
  static_assert(sizeof(Registro::Nome) == (Larg), #Nome ": width is wrong");
#define KX_INICIO(Reg, Larg, Significado)                     \
  template <>                                                 \
  struct KXMetadados<Reg> {                                   \
    using Registro = Reg;                                     \
    static_assert(sizeof(Registro) == (Larg), #Reg ": size"); \
    template <class Visitante>                                \
    static void VisitaListas([[maybe_unused]] Registro& reg,  \
                             [[maybe_unused]] Visitante&& visitante) {
#define KX_CAMPO(Posicao, Tipo, Nome, Igualdade, Significado) KX_PROVA(Posicao, Nome, sizeof(Tipo))
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Igualdade, Significado)                \
  static_assert(offsetof(Registro, Caminho) == (Posicao), #Nome ": offset is wrong"); \
  static_assert(sizeof(Registro::Caminho) == sizeof(Tipo), #Nome ": width is wrong");
#define KX_TEXTO(Posicao, Larg, Nome, Igualdade, Significado) KX_PROVA(Posicao, Nome, Larg)
#define KX_INTERNO(Posicao, Tipo, Nome, Significado) KX_PROVA(Posicao, Nome, sizeof(Tipo))
#define KX_BLOCO(Posicao, Nome, Significado)  \
  KX_PROVA(Posicao, Nome, sizeof(KXStringPS)) \
  visitante.Texto(reg.Nome);
#define KX_HISTORICO(Posicao, Larg, Nome, Igualdade, Significado) KX_PROVA(Posicao, Nome, Larg)
#define KX_TAMANHO(Posicao, Nome) KX_PROVA(Posicao, Tamanho##Nome, 2)
#define KX_CORRIDO(Posicao, Nome, Significado) \
  KX_PROVA(Posicao, Texto##Nome, 8)            \
  visitante.TextoCorrido(reg.Texto##Nome, reg.Tamanho##Nome);
#define KX_TERMINADO(Posicao, Nome, Significado) \
  KX_PROVA(Posicao, Texto##Nome, 8)              \
  visitante.TextoTerminado(reg.Texto##Nome);
#define KX_RESERVA(Posicao, Larg, Igualdade) KX_PROVA(Posicao, Reserva_##Posicao, Larg)
#define KX_ZERO(Posicao, Larg)               \
  KX_PROVA(Posicao, Reserva_##Posicao, Larg) \
  visitante.Zero(reg.Reserva_##Posicao);
#define KX_CONTA(Posicao, X) KX_PROVA(Posicao, Qtd##X, 2)
#define KX_LISTA(Posicao, Elemento, X, Significado) \
  KX_PROVA(Posicao, Lista##X, 8)                    \
  visitante.Lista(reg.Lista##X, reg.Qtd##X);
#define KX_FIM(Reg) }
#include KX_TABELA
#undef KX_PROVA

#define KX_INICIO(Reg, Larg, Significado)                  \
  static constexpr const char* kNome = #Reg;               \
  static constexpr const char* kSignificado = Significado; \
  static constexpr KXCampo kCampos[] = {
#define KX_CAMPO(Posicao, Tipo, Nome, Igualdade, Significado)  \
  {#Nome,          Posicao,   sizeof(Tipo), kx::kTipoDe<Tipo>, \
   KXPapel::Campo, Igualdade, Significado,  nullptr},
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Igualdade, Significado) \
  {#Nome,          Posicao,   sizeof(Tipo), kx::kTipoDe<Tipo>,         \
   KXPapel::Parte, Igualdade, Significado,  nullptr},
#define KX_TEXTO(Posicao, Larg, Nome, Igualdade, Significado) \
  {#Nome, Posicao, Larg, KXTipoCampo::Texto, KXPapel::Campo, Igualdade, Significado, nullptr},
#define KX_INTERNO(Posicao, Tipo, Nome, Significado) \
  {#Nome, Posicao, sizeof(Tipo), kx::kTipoDe<Tipo>, KXPapel::Interno, 0, Significado, nullptr},
#define KX_BLOCO(Posicao, Nome, Significado)                               \
  {#Nome,          Posicao, sizeof(KXStringPS), KXTipoCampo::TextoContado, \
   KXPapel::Bloco, 0,       Significado,        nullptr},
#define KX_HISTORICO(Posicao, Larg, Nome, Igualdade, Significado) \
  {#Nome, Posicao, Larg, KXTipoCampo::Historico, KXPapel::Campo, Igualdade, Significado, nullptr},
#define KX_TAMANHO(Posicao, Nome)                           \
  {"Tamanho" #Nome,                                         \
   Posicao,                                                 \
   2,                                                       \
   KXTipoCampo::SemSinal16,                                 \
   KXPapel::Tamanho,                                        \
   0,                                                       \
   "characters of Texto" #Nome ", the terminator included", \
   nullptr},
#define KX_CORRIDO(Posicao, Nome, Significado) \
  {"Texto" #Nome, Posicao, 8, KXTipoCampo::Ponteiro, KXPapel::Corrido, 0, Significado, nullptr},
#define KX_TERMINADO(Posicao, Nome, Significado) \
  {"Texto" #Nome, Posicao, 8, KXTipoCampo::Ponteiro, KXPapel::Terminado, 0, Significado, nullptr},
#define KX_ZERO(Posicao, Larg) \
  {"Reserva_" #Posicao, Posicao, Larg, KXTipoCampo::Bytes, KXPapel::Zero, 0, "zero", nullptr},
#define KX_RESERVA(Posicao, Larg, Igualdade)                                            \
  {"Reserva_" #Posicao, Posicao, Larg, KXTipoCampo::Bytes, KXPapel::Reserva, Igualdade, \
   "carried unchanged", nullptr},
#define KX_CONTA(Posicao, X)         \
  {"Qtd" #X,                         \
   Posicao,                          \
   2,                                \
   KXTipoCampo::SemSinal16,          \
   KXPapel::Conta,                   \
   0,                                \
   "number of elements of Lista" #X, \
   nullptr},
#define KX_LISTA(Posicao, Elemento, X, Significado)             \
  {"Lista" #X,     Posicao, 8,           KXTipoCampo::Ponteiro, \
   KXPapel::Lista, 0,       Significado, &KXMetadados<Elemento>::kInfo},
#define KX_FIM(Reg)                                                                       \
  }                                                                                       \
  ;                                                                                       \
  static constexpr KXRegistroInfo kInfo{kNome, kSignificado, sizeof(Reg), kCampos};       \
  static_assert(kx::TabelaContigua(kCampos, sizeof(Reg)), #Reg ": a byte without a row"); \
  }                                                                                       \
  ;
#include KX_TABELA
#undef KX_TABELA
