// The archive: an SQLite database with a row for each document, docs/acervo.md.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Falha.h"
#include "Fonte.h"
#include "Resumo.h"
#include "SQLite.h"

namespace kxdados {

// Whether the file begins as a database does.
bool EhAcervo(const std::string& caminho);

// Opens an archive to be read. Throws FalhaDoBanco: also where it is another program's database, or
// of a later version of this tool.
Banco AbreAcervo(const std::string& caminho);

// The same to be written; makes it where there is none, and brings an older one up to date.
Banco AbreOuCriaAcervo(const std::string& caminho);

// The documents in the order in which they were booked.
std::unique_ptr<Fonte> LeAcervo(const std::string& caminho, const Filtro& filtro);

// The columns that say how an image is kept, and the image of a row from the first of them on.
// Throws Falha.
inline constexpr const char* kColunasDaImagem = "compressao, tamanho, soma, imagem";
std::vector<std::byte> ImagemDaLinha(const Instrucao& linha, int coluna);

// An image as the archive keeps it.
struct Blob {
  std::size_t Tamanho = 0;  // bytes of the image
  bool Comprimido = false;  // with zstd, where that makes it shorter by a tenth
  std::vector<std::byte> Bytes;
};

// The checksum that an image carries, and the fingerprint of its layout as text.
std::uint32_t ChecksumDe(std::span<const std::byte> imagem);
std::string TextoDoLeiaute(std::uint64_t impressao);

// What became of the documents.
struct Contagem {
  std::uint64_t Gravados = 0;
  std::uint64_t Repetidos = 0;     // were there already, the same
  std::uint64_t Substituidos = 0;  // were there, others
  std::uint64_t Recusados = 0;     // the same, but were not to be replaced
};

// Books documents, some hundred at once or those of a second: what is not yet booked holds no lock.
class Gravador {
 public:
  using Recusa = std::function<void(const std::string& origem, const Falha& falha)>;

  // A document that the archive has with the same key and other contents is replaced, or refused.
  Gravador(const std::string& caminho, bool substitui, Recusa recusa);

  // Throws FalhaDoBanco, as the next one does: of those that were not yet booked none is.
  void Grava(const Lido& lido, const std::string& origem);
  // Books what is left.
  void Conclui();
  const Contagem& GetContagem() const noexcept { return _contagem; }
  // The database, once nothing more is to be booked.
  Banco Entrega() &&;

 private:
  struct Pendente {
    const char* Registro;
    Resumo Dados;
    std::uint32_t Checksum;
    std::string Leiaute;
    Blob Imagem;
    std::string Origem;
  };
  struct Achado {
    std::int64_t Id = 0;  // 0: none
    bool Igual = false;
  };

  void GravaPendentes(Contagem& contagem);
  void GravaUm(const Pendente& pendente, Contagem& contagem);
  Achado Procura(const Pendente& pendente);
  void Liga(Instrucao& instrucao, const Pendente& pendente);

  Banco _banco;
  Instrucao _procuraChave;
  Instrucao _procuraIgual;
  Instrucao _insere;
  Instrucao _substitui;
  const bool _substituiOutros;
  const Recusa _recusa;
  std::vector<Pendente> _pendentes;
  std::size_t _bytes = 0;
  std::chrono::steady_clock::time_point _desde;
  Contagem _contagem;
};

}  // namespace kxdados
