// Records from one system to another: writes images of records of every class, or reads those that
// another system wrote and must find the same bytes and objects.
// usage: troca escreve|confere FILE
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/Imagem.h"
#include "tests/apoio/Classes.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using apoio::Classe;
using apoio::Objeto;
using apoio::Registro;

constexpr unsigned kSementes = 5;

void ParaCada(auto acao) {
  for (unsigned semente = 0; semente < kSementes; ++semente) {
    for (const Classe& classe : apoio::ClassesDeRegistro()) {
      const Registro registro(*classe.Info, semente, true);
      acao(classe, Objeto(classe, registro.Bytes()));
    }
  }
}

// What the class writes of an object.
std::vector<std::byte> Imagem(const Classe& classe, const Objeto& objeto) {
  Registro escrito(*classe.Info);
  objeto.CopiarPara(escrito.Bytes());
  const kx::LeiauteDeImagem leiaute(*classe.Info);
  std::vector<std::byte> imagem(kx::TamanhoDaImagem(leiaute, escrito.Bytes()));
  kx::EscreveImagem(leiaute, escrito.Bytes(), imagem);
  return imagem;
}

void Escreve(std::ostream& arquivo) {
  ParaCada([&](const Classe& classe, const Objeto& objeto) {
    const auto imagem = Imagem(classe, objeto);
    arquivo.write(reinterpret_cast<const char*>(imagem.data()),
                  static_cast<std::streamsize>(imagem.size()));
  });
  if (!arquivo.flush()) throw std::runtime_error("cannot write the images");
}

void Confere(std::istream& arquivo) {
  ParaCada([&](const Classe& classe, const Objeto& esperado) {
    auto imagem = Imagem(classe, esperado);
    std::vector<std::byte> recebida(imagem.size());
    arquivo.read(reinterpret_cast<char*>(recebida.data()),
                 static_cast<std::streamsize>(recebida.size()));
    if (!arquivo || recebida != imagem) {
      throw std::runtime_error(std::string("other bytes: ") + classe.Nome);
    }
    const Objeto objeto(classe, kx::AbreImagem(kx::LeiauteDeImagem(*classe.Info), recebida));
    if (!(objeto == esperado)) {
      throw std::runtime_error(std::string("another object: ") + classe.Nome);
    }
  });
}

void Executa(std::string_view verbo, const char* caminho) {
  if (verbo == "escreve") {
    std::ofstream arquivo(caminho, std::ios::binary);
    Escreve(arquivo);
  } else {
    std::ifstream arquivo(caminho, std::ios::binary);
    Confere(arquivo);
  }
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 3) throw std::runtime_error("usage: troca escreve|confere FILE");
  Executa(argv[1], argv[2]);
  return 0;
} catch (const std::exception& erro) {
  std::cerr << erro.what() << '\n';
  return 1;
}
