// The tables against the layouts as they are documented (leiautes.txt of each room): the size of
// every record, where fields from its middle and end are, and which fields equality leaves out.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include "compras/KXDadosCompras.h"
#include "tests/apoio/Igualdade.h"

namespace {

using apoio::Nomes;

std::size_t PosicaoDe(const KXRegistroInfo& registro, const std::string& nome) {
  const auto campo = std::find_if(registro.Campos.begin(), registro.Campos.end(),
                                  [&nome](const KXCampo& c) { return c.Nome == nome; });
  return campo != registro.Campos.end() ? campo->Posicao : registro.Tamanho;
}

void Confere(const KXRegistroInfo& registro, std::istringstream& partes) {
  std::size_t tamanho = 0;
  partes >> tamanho;
  EXPECT_EQ(registro.Tamanho, tamanho) << registro.Nome;
  Nomes naoComparados;
  for (std::string parte; partes >> parte;) {
    const std::size_t igual = parte.find('=');
    if (igual == std::string::npos) {
      naoComparados.insert(parte.substr(1));
    } else {
      EXPECT_EQ(PosicaoDe(registro, parte.substr(0, igual)), std::stoul(parte.substr(igual + 1)))
          << registro.Nome << " " << parte << " in leiautes.txt of its room";
    }
  }
  EXPECT_EQ(apoio::ForaDaIgualdade(registro), naoComparados)
      << registro.Nome << ": the second are the names with a ! in leiautes.txt of its room";
}

void ConfereSala(const std::string& sala, Nomes& documentados) {
  std::ifstream arquivo(KX_RAIZ "/" + sala + "/leiautes.txt");
  for (std::string linha; std::getline(arquivo, linha);) {
    if (linha.starts_with('#')) continue;
    std::istringstream partes(linha);
    std::string nome;
    partes >> nome;
    if (nome.find('.') != std::string::npos) continue;  // a part: VarreduraRegistrosTeste.cpp
    documentados.insert(nome);
    const KXRegistroInfo* const registro = KXProcuraRegistro(nome);
    ASSERT_NE(registro, nullptr) << nome;
    Confere(*registro, partes);
  }
}

TEST(LeiauteDourado, ConfereComODocumentado) {
  Nomes documentados;
  std::ifstream salas(KX_RAIZ "/cmake/salas.txt");
  for (std::string sala; salas >> sala;) ConfereSala(sala, documentados);
  for (const KXRegistroInfo* registro : KXRegistros()) {
    EXPECT_TRUE(documentados.contains(registro->Nome))
        << registro->Nome << " has no line in leiautes.txt of its room";
  }
}

}  // namespace
