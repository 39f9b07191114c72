// A record as one run of bytes: it and all that hangs from it, for a file, a queue, a socket, or to
// be kept beside the one that was sent.
//
//   std::vector<std::byte> bytes = kx::Imagem(*registro);   // of any record, or of an object
//
//   const tagREG_ORDEMPS* lido = kx::AbreImagem<tagREG_ORDEMPS>(bytes);
//   ordem.CopiarDe(lido);                                   // as from any record
//
// What is opened lives in the bytes: it needs no release, must never be given to one, and ends with
// them. Opening turns the bytes into that record, so they are then no longer an image.
//
// The form, little-endian, the same on every system:
//    0  8   "KXIMAGEM"
//    8  2   format, 1
//   10  2   1: with a checksum; 0: without
//   12  4   checksum of the bytes from 16 to the end (core/Checksum.h), or zero
//   16  8   length of the whole
//   24  8   fingerprint of the layouts of the record and of all that may hang from it
//   32  48  name of the record ("tagREG_ORDEMPS") and zeros
//   80      the record, and behind it what hangs from each of its rows, in byte order: an array,
//   then
//           what hangs from its elements, one by one; or the characters of a text with a terminator
// Each block begins at a multiple of 8, with zeros before it. A pointer is stored as the position
// of its block, null as 0. Lists without elements and texts without characters are null and 0
// whatever the record says of them, and spare bytes are zero, so records that hold the same give
// the same bytes.
//
// Money is in 1/10,000, texts are Latin-1, as in the record. An image of another layout is refused:
// it is made for programs of one version, not for an archive without them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "core/Metadados.h"
#include "core/RegistroDe.h"
#include "platform/Exporta.h"

namespace kx {

// Whether an image carries a checksum, or whether the one that it carries is looked at. All else is
// always verified.
enum class ChecksumDaImagem : std::uint8_t { Sem, Com };

// What is wrong with an image.
enum class ErroImagem : std::uint8_t {
  Alinhamento,  // the bytes do not begin at a multiple of 8
  Cortada,      // shorter than it says, or than a header
  Marca,        // no image
  Formato,      // of another format, or with options that are not known
  Aberta,       // it has been opened already
  Registro,     // of another record
  Leiaute,      // of another layout of the record
  Tamanho,      // its length is not that of the bytes
  Checksum,     // the checksum is another one, or missing
  Bloco,        // a block is not where it must be, or goes beyond the end
  Texto,        // a text does not end where its size says, and only there
  Enchimento,   // bytes that must be zero are not
};

// Thrown by whatever reads an image. what() says it in Portuguese, with the position.
class KX_API ImagemInvalida : public std::runtime_error {
 public:
  // That error at that byte; the detail, a name, goes into the message.
  ImagemInvalida(ErroImagem erro, std::size_t posicao, std::string_view detalhe = {});
  ImagemInvalida(const ImagemInvalida&) = default;
  ImagemInvalida& operator=(const ImagemInvalida&) = default;
  ~ImagemInvalida() override;

  // What is wrong.
  ErroImagem GetErro() const noexcept { return _erro; }
  // The byte at which it shows, from 0.
  std::size_t GetPosicao() const noexcept { return _posicao; }

 private:
  ErroImagem _erro;
  std::size_t _posicao;
};

// Thrown by whatever writes an image of a record of which an array or a text cannot be read:
// CopiarDe leaves such a thing out, an image with less than it was asked for would not be seen.
class KX_API RegistroIlegivel : public std::runtime_error {
 public:
  // Of the row of that name.
  explicit RegistroIlegivel(const char* nome);
  RegistroIlegivel(const RegistroIlegivel&) = default;
  RegistroIlegivel& operator=(const RegistroIlegivel&) = default;
  ~RegistroIlegivel() override;
};

// What a header says.
struct ImagemInfo {
  std::string_view Registro;  // name of the record, within the bytes
  std::uint64_t Leiaute;      // fingerprint of its layouts
  std::size_t Tamanho;        // bytes of the whole image
  bool ComChecksum;           // whether it carries one
};

// Bytes of a header.
inline constexpr std::size_t kCabecalhoDaImagem = 80;

// Reads the header that the bytes begin with, of any record; the rest need not be there. Throws
// ImagemInvalida.
KX_API ImagemInfo LeCabecalho(std::span<const std::byte> bytes);

// A record as images see it, by its metadata.
class KX_API LeiauteDeImagem {
 public:
  // Computes the fingerprint: FNV-1a, 64 bits, of the rows of the record and of all that may hang
  // from it: names, offsets, widths, types and roles. `info` must outlive the layout.
  explicit LeiauteDeImagem(const KXRegistroInfo& info) noexcept;

  // The record's metadata, and the fingerprint.
  const KXRegistroInfo& GetInfo() const noexcept { return *_info; }
  std::uint64_t GetImpressao() const noexcept { return _impressao; }

 private:
  const KXRegistroInfo* _info;
  std::uint64_t _impressao;
};

// The same operations as below for a record that is known by its metadata alone.
KX_API std::size_t TamanhoDaImagem(const LeiauteDeImagem& leiaute, const void* registro);
KX_API std::size_t EscreveImagem(const LeiauteDeImagem& leiaute, const void* registro,
                                 std::span<std::byte> destino,
                                 ChecksumDaImagem checksum = ChecksumDaImagem::Com);
KX_API void VerificaImagem(const LeiauteDeImagem& leiaute, std::span<const std::byte> bytes,
                           ChecksumDaImagem checksum = ChecksumDaImagem::Com);
KX_API const void* AbreImagem(const LeiauteDeImagem& leiaute, std::span<std::byte> bytes,
                              ChecksumDaImagem checksum = ChecksumDaImagem::Com);

// A flat record.
template <class REG>
concept RegistroPlano = requires {
  KXMetadados<REG>::kInfo;
};

// The layout of a record type, computed once.
template <RegistroPlano REG>
const LeiauteDeImagem& LeiauteDe() noexcept {
  static const LeiauteDeImagem leiaute(KXMetadados<REG>::kInfo);
  return leiaute;
}

// The bytes that the image of the record takes. Throws RegistroIlegivel.
template <RegistroPlano REG>
std::size_t TamanhoDaImagem(const REG& registro) {
  return TamanhoDaImagem(LeiauteDe<REG>(), &registro);
}

// Writes the image to the beginning of `destino` and returns its length; allocates nothing. Throws
// std::length_error when there is no room for it, and RegistroIlegivel; what is written is then no
// image.
template <RegistroPlano REG>
std::size_t EscreveImagem(const REG& registro, std::span<std::byte> destino,
                          ChecksumDaImagem checksum = ChecksumDaImagem::Com) {
  return EscreveImagem(LeiauteDe<REG>(), &registro, destino, checksum);
}

// The image of a record. Throws RegistroIlegivel and std::bad_alloc.
template <RegistroPlano REG>
std::vector<std::byte> Imagem(const REG& registro,
                              ChecksumDaImagem checksum = ChecksumDaImagem::Com) {
  std::vector<std::byte> bytes(TamanhoDaImagem(registro));
  bytes.resize(EscreveImagem(registro, bytes, checksum));
  return bytes;
}

// The image of what CopiarPara writes of an object.
template <class C>
requires requires(const C& objeto) { RegistroDe<C>(objeto); }
std::vector<std::byte> Imagem(const C& objeto, ChecksumDaImagem checksum = ChecksumDaImagem::Com) {
  return Imagem(*RegistroDe<C>(objeto), checksum);
}

// Verifies all that opening does and changes nothing. Throws ImagemInvalida.
template <RegistroPlano REG>
void VerificaImagem(std::span<const std::byte> bytes,
                    ChecksumDaImagem checksum = ChecksumDaImagem::Com) {
  VerificaImagem(LeiauteDe<REG>(), bytes, checksum);
}

// The record in the image, its pointers set; valid as long as the bytes are. The work is bounded by
// their number, and nothing is allocated. Throws ImagemInvalida, the bytes then unchanged.
template <RegistroPlano REG>
const REG* AbreImagem(std::span<std::byte> bytes,
                      ChecksumDaImagem checksum = ChecksumDaImagem::Com) {
  return static_cast<const REG*>(AbreImagem(LeiauteDe<REG>(), bytes, checksum));
}

}  // namespace kx
