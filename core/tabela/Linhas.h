// Head of every record table: the kinds of row, with their columns. A row that the including file
// does not define stands for nothing. No include guard on purpose.
//
// The numbers are bytes from the start of the record, the rows in that order:
//   KX_INICIO (record, size, meaning)
//   KX_CAMPO  (offset, type, name, compared, meaning)        a field, with accessors in the class
//   KX_PARTE  (offset, type, name, path, compared, meaning)  accessors to a part of a field above
//   KX_TEXTO  (offset, width, name, compared, meaning)       text of at most width - 1 characters
//   KX_HISTORICO(offset, width, name, compared, meaning)     the same, compared by its first three
//                                                            lines (ComparaComplementoHistorico)
//   KX_INTERNO(offset, type, name, meaning)                  a field that another object keeps
//   KX_CONTADO(offset, name, meaning)                        pointer and size of a text, KXStringPS
//   KX_TAMANHO(offset, name)                                 16-bit size of a KX_CORRIDO
//   KX_CORRIDO(offset, name, meaning)                        pointer to a text whose size, the
//                                                            terminator included, is elsewhere
//   KX_TERMINADO(offset, name, meaning)                      pointer to a text without a size: it
//                                                            ends at its terminator
//   KX_RESERVA(offset, width, compared)                      carried unchanged
//   KX_ZERO   (offset, width)                                spare bytes that do not travel
//   KX_CONTA  (offset, list)                                 16-bit count of a child array
//   KX_LISTA  (offset, element record, list, meaning)        pointer to a child array
//   KX_FIM    (record)
// "compared" is 1 for what equality sees, 0 for what it leaves out.
#ifndef KX_TABELA
#error "record table: include core/tabela/Registro.h or core/tabela/Acessores.h with KX_TABELA set"
#endif
#ifndef KX_INICIO
#define KX_INICIO(Registro, Larg, Significado)
#endif
#ifndef KX_CAMPO
#define KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado)
#endif
#ifndef KX_PARTE
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Comparado, Significado)
#endif
#ifndef KX_TEXTO
#define KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado)
#endif
#ifndef KX_HISTORICO
#define KX_HISTORICO(Posicao, Larg, Nome, Comparado, Significado)
#endif
#ifndef KX_INTERNO
#define KX_INTERNO(Posicao, Tipo, Nome, Significado)
#endif
#ifndef KX_CONTADO
#define KX_CONTADO(Posicao, Nome, Significado)
#endif
#ifndef KX_TAMANHO
#define KX_TAMANHO(Posicao, Nome)
#endif
#ifndef KX_CORRIDO
#define KX_CORRIDO(Posicao, Nome, Significado)
#endif
#ifndef KX_TERMINADO
#define KX_TERMINADO(Posicao, Nome, Significado)
#endif
#ifndef KX_RESERVA
#define KX_RESERVA(Posicao, Larg, Comparado)
#endif
#ifndef KX_ZERO
#define KX_ZERO(Posicao, Larg)
#endif
#ifndef KX_CONTA
#define KX_CONTA(Posicao, X)
#endif
#ifndef KX_LISTA
#define KX_LISTA(Posicao, Elemento, X, Significado)
#endif
#ifndef KX_FIM
#define KX_FIM(Registro)
#endif
