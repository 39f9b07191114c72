// The tables against the layouts as they are documented (tests/dados/leiautes.txt): the size of
// every record, and where fields from its middle and end are.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "compras/KXDadosCompras.h"

namespace {

std::size_t PosicaoDe(const KXRegistroInfo& registro, const std::string& nome) {
  const auto campo = std::find_if(registro.Campos.begin(), registro.Campos.end(),
                                  [&nome](const KXCampo& c) { return c.Nome == nome; });
  return campo != registro.Campos.end() ? campo->Posicao : registro.Tamanho;
}

TEST(LeiauteDourado, ConfereComODocumentado) {
  std::set<std::string> documentados;
  std::ifstream arquivo(KX_RAIZ "/tests/dados/leiautes.txt");
  for (std::string linha; std::getline(arquivo, linha);) {
    if (linha.starts_with('#')) continue;
    std::istringstream partes(linha);
    std::string nome;
    std::size_t tamanho = 0;
    partes >> nome >> tamanho;
    documentados.insert(nome);
    const KXRegistroInfo* const registro = KXProcuraRegistro(nome);
    ASSERT_NE(registro, nullptr) << nome;
    EXPECT_EQ(registro->Tamanho, tamanho) << nome;
    for (std::string campo; std::getline(partes >> std::ws, campo, '=');) {
      std::size_t posicao = 0;
      partes >> posicao;
      EXPECT_EQ(PosicaoDe(*registro, campo), posicao) << nome << "." << campo;
    }
  }
  for (const KXRegistroInfo* registro : KXRegistros()) {
    EXPECT_TRUE(documentados.contains(registro->Nome)) << registro->Nome << " has no line";
  }
}

}  // namespace
