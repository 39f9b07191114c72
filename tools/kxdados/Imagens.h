// Images (core/Imagem.h) of records that are known by their name alone.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "Fonte.h"
#include "core/Imagem.h"

namespace kxdados {

// The layout of a record, computed once.
const kx::LeiauteDeImagem& LeiauteDe(const KXRegistroInfo& info);

// Opens an image in place; the record lives in its bytes. Its checksum is looked at if it says that
// it carries one, or must be there. Throws Falha.
Lido AbreLido(std::span<std::byte> bytes, bool exigeChecksum);

// The image of a record, with its checksum.
std::vector<std::byte> ImagemDe(const Lido& lido);

// The images of a file, one behind the other; "-" is the standard input. Throws Falha.
std::unique_ptr<Fonte> AbreImagens(const std::string& caminho, const Filtro& filtro);

}  // namespace kxdados
