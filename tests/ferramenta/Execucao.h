// Runs the tool as a user does, on files of a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

struct Execucao {
  int Status = -1;
  std::string Saida;
  std::string Erros;
};

std::string LeArquivo(const std::filesystem::path& caminho);

class FerramentaTeste : public testing::Test {
 protected:
  FerramentaTeste();
  ~FerramentaTeste() override;

  Execucao Executa(const std::vector<std::string>& argumentos, const std::string& entrada = {});
  // Writes a file of the test's folder, whose name is in UTF-8, and returns its path.
  std::string Escreve(const std::string& nome, const std::string& bytes);

  const std::filesystem::path _pasta;
};

// An invoice of the examples, whole or with the first occurrence of a text exchanged.
std::string NotaDeExemplo(const std::string& nome);
std::string Troca(std::string texto, const std::string& velho, const std::string& novo);

inline bool Contem(const std::string& texto, const std::string& trecho) {
  return texto.find(trecho) != std::string::npos;
}

// How often the text has the piece.
std::size_t Ocorrencias(const std::string& texto, const std::string& trecho);
