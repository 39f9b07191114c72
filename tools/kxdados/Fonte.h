// Where the commands take documents from: archives, and files of images (core/Imagem.h).
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Resumo.h"
#include "core/Metadados.h"

namespace kxdados {

// A record that was read, and what it is called in messages.
struct Lido {
  const KXRegistroInfo* Info;
  const void* Registro;
};

// Which documents are meant; all of them unless something is said.
struct Filtro {
  std::string Chave;
  std::string Numero;

  bool Vazio() const { return Chave.empty() && Numero.empty(); }
  bool Aceita(const Resumo& resumo) const {
    return (Chave.empty() || resumo.Chave == Chave) && (Numero.empty() || resumo.Numero == Numero);
  }
};

// One document after another, in constant memory.
class Fonte {
 public:
  Fonte() = default;
  Fonte(const Fonte&) = delete;
  Fonte& operator=(const Fonte&) = delete;
  virtual ~Fonte() = default;

  // The next one, which lives until the call after this one; none behind the last one. Throws Falha
  // about one document, after which the next call goes on, and FalhaDoBanco, which ends it.
  virtual std::optional<Lido> Proximo() = 0;
};

// Opens an archive or a file of images, "-" for images on the standard input; that a file is an
// archive shows in its first bytes. Throws Falha and FalhaDoBanco.
std::unique_ptr<Fonte> AbreFonte(const std::string& caminho, const Filtro& filtro);

}  // namespace kxdados
