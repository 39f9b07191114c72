// What is known of a record at compile time and at run time: the same rows that make its struct.
//
//   for (const KXCampo& campo : KXMetadados<tagREG_ENTRADAPS>::kInfo.Campos) ...
//
// Everything here is constant data; any thread may read it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "kxldados/Tipos.h"

// How the bytes of a field are read.
enum class KXTipoCampo : std::uint8_t {
  Bytes,           // uninterpreted
  Texto,           // fixed-width Latin-1 text, zero-filled
  Historico,       // the same, compared by its first three lines
  Dinheiro,        // CY
  Data,            // REG_KXDMA
  DataHora,        // REG_KXDMAHMSUTC
  DataHora32,      // KXDataHora32
  ChaveDocumento,  // REG_KXDMC
  ChaveNFe,        // _KX_NFE_ps
  PosicaoProduto,  // _REG_POSICAO_PRODUTOPS
  SemSinal8,
  SemSinal16,
  SemSinal32,
  SemSinal64,
  ComSinal32,
  ComSinal64,
  Caractere,  // char
  Contado,    // KXStringPS
  Ponteiro,   // first element of a child array, or first character of a text
};

// What a row of the table stands for.
enum class KXPapel : std::uint8_t {
  Campo,      // a field with accessors
  Parte,      // a named part of the field above it; its bytes belong to that field
  Interno,    // a field whose value another object keeps
  Reserva,    // carried unchanged
  Zero,       // spare bytes that do not travel
  Contado,    // pointer and size of a text
  Tamanho,    // size of a Corrido, which stands elsewhere
  Corrido,    // pointer to the characters of a text whose size stands elsewhere
  Terminado,  // the same, of a text without a size: it ends at its terminator
  Conta,      // count of a child array; its row Lista... stands elsewhere
  Lista,      // child array
};

struct KXRegistroInfo;

// One field, or another row of a record's table.
struct KXCampo {
  const char* Nome;                // of the member of the struct
  std::uint16_t Posicao;           // bytes from the start of the record
  std::uint16_t Largura;           // bytes
  KXTipoCampo Tipo;                // how its bytes are read
  KXPapel Papel;                   // what it stands for
  bool Comparado;                  // whether equality sees it
  std::uint16_t Linha;             // of the row, in the file of the table
  const char* Significado;         // English, without a full stop
  const KXRegistroInfo* Elemento;  // record of the elements, of a list alone
};

// A row from which something hangs, or of spare bytes: where to go without looking at all rows.
struct KXPendente {
  KXPapel Papel;                   // Lista, Contado, Corrido, Terminado or Zero
  std::uint16_t Posicao;           // of the pointer; of the spare bytes
  std::uint16_t Medida;            // position of the count or size; of spare bytes, how many
  const char* Nome;                // of the member of the struct
  const KXRegistroInfo* Elemento;  // record of the elements, of a list alone
};

// One record.
struct KXRegistroInfo {
  const char* Nome;                            // of the struct
  const char* Significado;                     // English, without a full stop
  std::uint32_t Tamanho;                       // bytes
  std::span<const KXCampo> Campos;             // in byte order
  std::span<const KXPendente> Pendentes = {};  // in byte order
};

// Specialised by each record table: Registro, kInfo, kCampos and VisitaPendentes, the visit of what
// hangs from a record: visitante.Lista(pointer&, count&) for each child array, then for each text
// visitante.Contado(KXStringPS&), Corrido(pointer&, size&) or Terminado(pointer&), after the kind
// of its row; and visitante.Zero(bytes&) for the spare bytes, which hang from nothing.
template <class REG>
struct KXMetadados;

namespace kx {

// How a field of the type T is read; specialised for each type that fields have.
template <class T>
struct TipoDe;
template <>
struct TipoDe<CY> {
  static constexpr auto valor = KXTipoCampo::Dinheiro;
};
template <>
struct TipoDe<REG_KXDMA> {
  static constexpr auto valor = KXTipoCampo::Data;
};
template <>
struct TipoDe<REG_KXDMAHMSUTC> {
  static constexpr auto valor = KXTipoCampo::DataHora;
};
template <>
struct TipoDe<KXDataHora32> {
  static constexpr auto valor = KXTipoCampo::DataHora32;
};
template <>
struct TipoDe<REG_KXDMC> {
  static constexpr auto valor = KXTipoCampo::ChaveDocumento;
};
template <>
struct TipoDe<_KX_NFE_ps> {
  static constexpr auto valor = KXTipoCampo::ChaveNFe;
};
template <>
struct TipoDe<_REG_POSICAO_PRODUTOPS> {
  static constexpr auto valor = KXTipoCampo::PosicaoProduto;
};
template <>
struct TipoDe<std::uint8_t> {
  static constexpr auto valor = KXTipoCampo::SemSinal8;
};
template <>
struct TipoDe<std::uint16_t> {
  static constexpr auto valor = KXTipoCampo::SemSinal16;
};
template <>
struct TipoDe<std::uint32_t> {
  static constexpr auto valor = KXTipoCampo::SemSinal32;
};
template <>
struct TipoDe<std::uint64_t> {
  static constexpr auto valor = KXTipoCampo::SemSinal64;
};
template <>
struct TipoDe<std::int32_t> {
  static constexpr auto valor = KXTipoCampo::ComSinal32;
};
template <>
struct TipoDe<std::int64_t> {
  static constexpr auto valor = KXTipoCampo::ComSinal64;
};
template <>
struct TipoDe<char> {
  static constexpr auto valor = KXTipoCampo::Caractere;
};

// The value of TipoDe.
template <class T>
inline constexpr KXTipoCampo kTipoDe = TipoDe<T>::valor;

// Asked for each row in its turn, tells those that people are shown: fields and reserves, and of a
// field that is kept elsewhere the parts that have accessors.
class LinhaVisivel {
 public:
  // Whether this row, the next one, is shown.
  constexpr bool operator()(const KXCampo& campo) noexcept {
    if (campo.Papel != KXPapel::Parte) _dono = campo.Papel;
    return campo.Papel == KXPapel::Campo || campo.Papel == KXPapel::Reserva ||
           (campo.Papel == KXPapel::Parte && _dono == KXPapel::Interno);
  }

 private:
  KXPapel _dono = KXPapel::Campo;
};

// The line of the row whose numbers do not fit those around it, 0 when all do: each begins where
// the one before ended, and the last ends at the record's size. Of two neighbours that disagree it
// is the one that also disagrees with its other side.
constexpr int LinhaErrada(std::span<const KXCampo> campos, std::size_t tamanho) {
  std::size_t posicao = 0;
  const KXCampo* anterior = nullptr;
  for (std::size_t i = 0; i < campos.size(); ++i) {
    const KXCampo& campo = campos[i];
    if (campo.Papel == KXPapel::Parte) continue;
    if (campo.Posicao != posicao) {
      std::size_t seguinte = tamanho;
      for (std::size_t j = campos.size(); --j > i;) {
        if (campos[j].Papel != KXPapel::Parte) seguinte = campos[j].Posicao;
      }
      const bool soEle = posicao + campo.Largura == seguinte;
      return soEle || anterior == nullptr ? campo.Linha : anterior->Linha;
    }
    posicao += campo.Largura;
    anterior = &campo;
  }
  return posicao == tamanho || anterior == nullptr ? 0 : anterior->Linha;
}

}  // namespace kx
