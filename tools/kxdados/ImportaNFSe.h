// From the national service invoice (NFS-e with its declaration, the DPS; layouts 1.00 and 1.01) to
// a goods-receipt entry with one service item, as docs/nfse.md tells element by element.
//
// Keys of other tables and codes of the server stay 0. Values are those of the invoice; nothing is
// recomputed.
#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

#include "Regras.h"
#include "re/DadosRE.h"

namespace kxdados {

// An imported service invoice.
struct NotaDeServico : Documento {
  // Someone named in the invoice; no name where it does not stand there.
  struct Parte {
    const char* Papel;
    std::string Nome;
    std::string Inscricao;  // CNPJ, CPF or the number abroad, with its kind before it
  };
  // What the invoice says and no field holds, for the report.
  struct Dito {
    const char* Nome;
    std::string Texto;
  };

  CKXDadosCM_RERegistroEntrada Entrada;
  std::string Chave;  // all of its 50 positions; empty when it is wrong
  std::vector<Parte> Partes;
  std::vector<Dito> Ditos;
  std::vector<std::string> Impostos;  // what each of the item's taxes is, in their order
};

// From the element NFSe. Raises Falha when something required is missing or a value cannot be held.
// A wrong access key alone does not: it is left empty and told in Documento::Chaves.
NotaDeServico ImportaNFSe(pugi::xml_node nfse);

}  // namespace kxdados
