// Reading of XML documents: elements by local name (whatever the namespace prefix), and their
// values as the library's types. A value that cannot be used raises Falha, which names the element.
#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Falha.h"
#include "kxldados/CString.h"
#include "kxldados/Tipos.h"

namespace kxdados {

// Parses the bytes of a file: UTF-8, Latin-1, or UTF-16 with a byte-order mark. Bytes that are not
// UTF-8 are read as Latin-1, whatever the declaration says. No entity is expanded but those of XML.
void AbreXML(std::string_view bytes, pugi::xml_document& documento);

std::string_view NomeLocal(pugi::xml_node no) noexcept;

// The first child of that name; null when there is none. `Desce` follows a path, "imposto/ICMS".
pugi::xml_node Filho(pugi::xml_node pai, std::string_view nome);
pugi::xml_node Desce(pugi::xml_node pai, std::string_view caminho);
pugi::xml_node PrimeiroElemento(pugi::xml_node pai);
std::vector<pugi::xml_node> Filhos(pugi::xml_node pai, std::string_view nome);
// Raises Falha when there is none.
pugi::xml_node Exige(pugi::xml_node pai, std::string_view nome);

// "det[3]/prod/vProd": the place of an element below the document's infNFe or infCte, or of its
// child `nome`.
std::string Caminho(pugi::xml_node no, std::string_view nome = {});

// The same for many elements of one document: those of one parent are numbered once.
class Caminhos {
 public:
  std::string De(pugi::xml_node no, std::string_view nome = {});

 private:
  // Place among the siblings of the same name, 0 for an only one.
  int Ordem(pugi::xml_node no);

  std::unordered_map<std::size_t, int> _ordens;
};

// The characters of an element as they stand, UTF-8.
std::string Valor(pugi::xml_node no);

// Values of the child `nome`. A child that is absent or empty gives an empty text, zero or no date;
// one that holds something else raises Falha.
CString Texto(pugi::xml_node pai, std::string_view nome);
CY Dinheiro(pugi::xml_node pai, std::string_view nome);
REG_KXDMA Data(pugi::xml_node pai, std::string_view nome);
std::uint64_t Inteiro(pugi::xml_node pai, std::string_view nome, std::uint64_t maximo);
// The same for an attribute of the element itself.
std::uint64_t InteiroDoAtributo(pugi::xml_node no, const char* nome, std::uint64_t maximo);

// The same for a child that must be there and hold something.
CString TextoExigido(pugi::xml_node pai, std::string_view nome);
CY DinheiroExigido(pugi::xml_node pai, std::string_view nome);

}  // namespace kxdados
