// Expands the record table named by KX_TABELA into the record's struct, its metadata, the proof of
// its layout and the visit of what hangs from it. Included once per table; no include guard on
// purpose. The kinds of row are listed in core/tabela/Linhas.h.
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "core/Metadados.h"
#include "kxldados/Tipos.h"

#ifndef KX_TABELA
#error "core/tabela/Registro.h: define KX_TABELA as the table to expand"
#endif

#define KX_INICIO(Registro, Larg, Significado) struct Registro {
#define KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado) Tipo Nome;
#define KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado) char Nome[Larg];
#define KX_HISTORICO(Posicao, Larg, Nome, Comparado, Significado) char Nome[Larg];
#define KX_INTERNO(Posicao, Tipo, Nome, Significado) Tipo Nome;
#define KX_CONTADO(Posicao, Nome, Significado) KXStringPS Nome;
#define KX_TAMANHO(Posicao, Nome) std::uint16_t Tamanho##Nome;
#define KX_CORRIDO(Posicao, Nome, Significado) char* Texto##Nome;
#define KX_TERMINADO(Posicao, Nome, Significado) char* Texto##Nome;
#define KX_RESERVA(Posicao, Larg, Comparado) std::uint8_t Reserva_##Posicao[Larg];
#define KX_ZERO(Posicao, Larg) std::uint8_t Reserva_##Posicao[Larg];
#define KX_CONTA(Posicao, X) std::uint16_t Qtd##X;
#define KX_LISTA(Posicao, Elemento, X, Significado) Elemento* Lista##X;
#define KX_FIM(Registro) \
  }                      \
  ;
#include KX_TABELA

#define KX_LINHA(Nome, Posicao, Larg, Tipo, Papel, Comparado, Significado, Elemento) \
  {Nome, Posicao, Larg, Tipo, KXPapel::Papel, Comparado, __LINE__, Significado, Elemento},
#define KX_INICIO(Reg, Larg, Significado)                    \
  template <>                                                \
  struct KXMetadados<Reg> {                                  \
    using Registro = Reg;                                    \
    static constexpr const char* kNome = #Reg;               \
    static constexpr const char* kSignificado = Significado; \
    static constexpr std::size_t kTamanho = Larg;            \
    static constexpr KXCampo kCampos[] = {
#define KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado) \
  KX_LINHA(#Nome, Posicao, sizeof(Tipo), kx::kTipoDe<Tipo>, Campo, Comparado, Significado, nullptr)
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Comparado, Significado) \
  KX_LINHA(#Nome, Posicao, sizeof(Tipo), kx::kTipoDe<Tipo>, Parte, Comparado, Significado, nullptr)
#define KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado) \
  KX_LINHA(#Nome, Posicao, Larg, KXTipoCampo::Texto, Campo, Comparado, Significado, nullptr)
#define KX_HISTORICO(Posicao, Larg, Nome, Comparado, Significado) \
  KX_LINHA(#Nome, Posicao, Larg, KXTipoCampo::Historico, Campo, Comparado, Significado, nullptr)
#define KX_INTERNO(Posicao, Tipo, Nome, Significado) \
  KX_LINHA(#Nome, Posicao, sizeof(Tipo), kx::kTipoDe<Tipo>, Interno, false, Significado, nullptr)
#define KX_CONTADO(Posicao, Nome, Significado)                                                    \
  KX_LINHA(#Nome, Posicao, sizeof(KXStringPS), KXTipoCampo::Contado, Contado, false, Significado, \
           nullptr)
#define KX_TAMANHO(Posicao, Nome)                                                \
  KX_LINHA("Tamanho" #Nome, Posicao, 2, KXTipoCampo::SemSinal16, Tamanho, false, \
           "characters of Texto" #Nome ", the terminator included", nullptr)
#define KX_CORRIDO(Posicao, Nome, Significado) \
  KX_LINHA("Texto" #Nome, Posicao, 8, KXTipoCampo::Ponteiro, Corrido, false, Significado, nullptr)
#define KX_TERMINADO(Posicao, Nome, Significado) \
  KX_LINHA("Texto" #Nome, Posicao, 8, KXTipoCampo::Ponteiro, Terminado, false, Significado, nullptr)
#define KX_RESERVA(Posicao, Larg, Comparado)                                           \
  KX_LINHA("Reserva_" #Posicao, Posicao, Larg, KXTipoCampo::Bytes, Reserva, Comparado, \
           "carried unchanged", nullptr)
#define KX_ZERO(Posicao, Larg) \
  KX_LINHA("Reserva_" #Posicao, Posicao, Larg, KXTipoCampo::Bytes, Zero, false, "zero", nullptr)
#define KX_CONTA(Posicao, X)                                            \
  KX_LINHA("Qtd" #X, Posicao, 2, KXTipoCampo::SemSinal16, Conta, false, \
           "number of elements of Lista" #X, nullptr)
#define KX_LISTA(Posicao, Elemento, X, Significado)                                  \
  KX_LINHA("Lista" #X, Posicao, 8, KXTipoCampo::Ponteiro, Lista, false, Significado, \
           &KXMetadados<Elemento>::kInfo)
#define KX_FIM(Reg) \
  }                 \
  ;                 \
  static constexpr int kLinhaErrada = kx::LinhaErrada(kCampos, kTamanho);
#include KX_TABELA
#undef KX_LINHA

// Ended by one row more, since there may be none.
#define KX_INICIO(Reg, Larg, Significado) static constexpr KXPendente kPendentes[] = {
#define KX_CONTADO(Posicao, Nome, Significado)                                                \
  {KXPapel::Contado, offsetof(Registro, Nome.Texto), offsetof(Registro, Nome.Tamanho), #Nome, \
   nullptr},
#define KX_CORRIDO(Posicao, Nome, Significado)                                                  \
  {KXPapel::Corrido, offsetof(Registro, Texto##Nome), offsetof(Registro, Tamanho##Nome), #Nome, \
   nullptr},
#define KX_TERMINADO(Posicao, Nome, Significado) \
  {KXPapel::Terminado, offsetof(Registro, Texto##Nome), 0, #Nome, nullptr},
#define KX_ZERO(Posicao, Larg) \
  {KXPapel::Zero, offsetof(Registro, Reserva_##Posicao), Larg, "Reserva_" #Posicao, nullptr},
#define KX_LISTA(Posicao, Elemento, X, Significado)                                      \
  {KXPapel::Lista, offsetof(Registro, Lista##X), offsetof(Registro, Qtd##X), "Lista" #X, \
   &KXMetadados<Elemento>::kInfo},
#define KX_FIM(Reg)                      \
  {}                                     \
  }                                      \
  ;                                      \
  static constexpr KXRegistroInfo kInfo{ \
      kNome, kSignificado, kTamanho, kCampos, {kPendentes, std::size(kPendentes) - 1}};
#include KX_TABELA

// The proof, outside of any template, so that the compiler says it at the row that is wrong.
#define KX_PROVA(Posicao, Caminho)                                                        \
  static_assert(kLinhaErrada != __LINE__, #Caminho ": the offset or the width is wrong"); \
  static_assert(offsetof(Registro, Caminho) == (Posicao), #Caminho ": the offset is wrong");
#define KX_INICIO(Reg, Larg, Significado) \
  static_assert(sizeof(Reg) == (Larg) || kLinhaErrada != 0, #Reg ": the size is wrong");
#define KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado)                                    \
  static_assert((Posicao) % alignof(Tipo) == 0, #Nome ": the type is aligned at other offsets"); \
  KX_PROVA(Posicao, Nome)
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Comparado, Significado) \
  KX_PROVA(Posicao, Caminho)                                           \
  static_assert(sizeof(Registro::Caminho) == sizeof(Tipo), #Nome ": the width is wrong");
#define KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado) KX_PROVA(Posicao, Nome)
#define KX_HISTORICO(Posicao, Larg, Nome, Comparado, Significado) KX_PROVA(Posicao, Nome)
#define KX_INTERNO(Posicao, Tipo, Nome, Significado) KX_PROVA(Posicao, Nome)
#define KX_CONTADO(Posicao, Nome, Significado) KX_PROVA(Posicao, Nome)
#define KX_TAMANHO(Posicao, Nome) KX_PROVA(Posicao, Tamanho##Nome)
#define KX_CORRIDO(Posicao, Nome, Significado) KX_PROVA(Posicao, Texto##Nome)
#define KX_TERMINADO(Posicao, Nome, Significado) KX_PROVA(Posicao, Texto##Nome)
#define KX_RESERVA(Posicao, Larg, Comparado) KX_PROVA(Posicao, Reserva_##Posicao)
#define KX_ZERO(Posicao, Larg) KX_PROVA(Posicao, Reserva_##Posicao)
#define KX_CONTA(Posicao, X) KX_PROVA(Posicao, Qtd##X)
#define KX_LISTA(Posicao, Elemento, X, Significado) KX_PROVA(Posicao, Lista##X)
#include KX_TABELA
#undef KX_PROVA

#define KX_INICIO(Reg, Larg, Significado)                     \
  template <class Visitante>                                  \
  static void VisitaPendentes([[maybe_unused]] Registro& reg, \
                              [[maybe_unused]] Visitante&& visitante) {
#define KX_CONTADO(Posicao, Nome, Significado) visitante.Contado(reg.Nome);
#define KX_CORRIDO(Posicao, Nome, Significado) \
  visitante.Corrido(reg.Texto##Nome, reg.Tamanho##Nome);
#define KX_TERMINADO(Posicao, Nome, Significado) visitante.Terminado(reg.Texto##Nome);
#define KX_ZERO(Posicao, Larg) visitante.Zero(reg.Reserva_##Posicao);
#define KX_LISTA(Posicao, Elemento, X, Significado) visitante.Lista(reg.Lista##X, reg.Qtd##X);
#define KX_FIM(Reg) \
  }                 \
  }                 \
  ;
#include KX_TABELA
#undef KX_TABELA
