// Records from one system to another: writes an image of records of every class, or reads the one
// that another system wrote and must find the same objects in it, and the same bytes again.
// usage: troca escreve|confere FILE
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/apoio/Classes.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

using apoio::Classe;
using apoio::Lido;
using apoio::Objeto;
using apoio::Registro;

constexpr unsigned kSementes = 5;

// The record without its pointers, and after it, for each of them, what it led to: a size, and
// elements in the same form, or characters.
class Imagem {
 public:
  std::string Bytes;

  void Poe(const KXRegistroInfo& info, const unsigned char* registro) {
    const std::size_t inicio = Bytes.size();
    Bytes.append(reinterpret_cast<const char*>(registro), info.Tamanho);
    for (const KXCampo& campo : info.Campos) {
      const unsigned char* const ponteiro = apoio::PonteiroDe(campo, registro);
      if (ponteiro == nullptr) continue;
      const auto alvo = Lido<const unsigned char*>(ponteiro);
      std::memset(&Bytes[inicio + static_cast<std::size_t>(ponteiro - registro)], 0, sizeof(alvo));
      const std::uint32_t tamanho = alvo == nullptr ? 0 : Tamanho(info, campo, registro, alvo);
      Bytes.append(reinterpret_cast<const char*>(&tamanho), sizeof(tamanho));
      if (campo.Papel != KXPapel::Lista) {
        Bytes.append(reinterpret_cast<const char*>(alvo), tamanho);
        continue;
      }
      for (std::uint32_t i = 0; i < tamanho; i += campo.Elemento->Tamanho) {
        Poe(*campo.Elemento, alvo + i);
      }
    }
  }

  // Takes the next record from the image; what hangs from it comes from the task allocator.
  void Tira(const KXRegistroInfo& info, unsigned char* registro) {
    std::memcpy(registro, Fatia(info.Tamanho), info.Tamanho);
    for (const KXCampo& campo : info.Campos) {
      unsigned char* const ponteiro = apoio::PonteiroDe(campo, registro);
      if (ponteiro == nullptr) continue;
      const auto tamanho = Lido<std::uint32_t>(Fatia(sizeof(std::uint32_t)));
      if (tamanho == 0) continue;
      auto* const alvo = kx::AlocaArray<unsigned char>(kx::Alocador::Tarefa, tamanho);
      apoio::Poe(ponteiro, alvo);
      if (campo.Papel != KXPapel::Lista) {
        std::memcpy(alvo, Fatia(tamanho), tamanho);
        continue;
      }
      for (std::uint32_t i = 0; i < tamanho; i += campo.Elemento->Tamanho) {
        Tira(*campo.Elemento, alvo + i);
      }
    }
  }

  bool Acabou() const { return _lidos == Bytes.size(); }

 private:
  static std::uint32_t Tamanho(const KXRegistroInfo& info, const KXCampo& campo,
                               const unsigned char* registro, const unsigned char* alvo) {
    if (campo.Papel == KXPapel::Lista) {
      const KXCampo& conta = apoio::ContaDe(info, campo);
      return Lido<std::uint16_t>(registro + conta.Posicao) * campo.Elemento->Tamanho;
    }
    return static_cast<std::uint32_t>(std::strlen(reinterpret_cast<const char*>(alvo)) + 1);
  }
  const unsigned char* Fatia(std::size_t tamanho) {
    if (tamanho > Bytes.size() - _lidos) throw std::runtime_error("the image is too short");
    _lidos += tamanho;
    return reinterpret_cast<const unsigned char*>(Bytes.data()) + _lidos - tamanho;
  }

  std::size_t _lidos = 0;
};

void Escreve(const Classe& classe, const Objeto& objeto, Imagem& imagem) {
  Registro escrito(*classe.Info);
  objeto.CopiarPara(escrito.Bytes());
  imagem.Poe(*classe.Info, escrito.Bytes());
}

void Confere(const Classe& classe, const Objeto& esperado, Imagem& recebida, Imagem& refeita) {
  Registro recebido(*classe.Info);
  std::memset(recebido.Bytes(), 0, classe.Info->Tamanho);
  recebida.Tira(*classe.Info, recebido.Bytes());
  const Objeto objeto(classe, recebido.Bytes());
  if (!(objeto == esperado)) {
    throw std::runtime_error(std::string("another object: ") + classe.Nome);
  }
  Escreve(classe, objeto, refeita);
}

void ParaCada(auto acao) {
  for (unsigned semente = 0; semente < kSementes; ++semente) {
    for (const Classe& classe : apoio::ClassesDeRegistro()) {
      const Registro registro(*classe.Info, semente, true);
      acao(classe, Objeto(classe, registro.Bytes()));
    }
  }
}

void Executa(std::string_view verbo, const char* caminho) {
  Imagem imagem;
  if (verbo == "escreve") {
    ParaCada([&](const Classe& classe, const Objeto& objeto) { Escreve(classe, objeto, imagem); });
    if (!(std::ofstream(caminho, std::ios::binary) << imagem.Bytes)) {
      throw std::runtime_error("cannot write the image");
    }
    return;
  }
  std::ifstream arquivo(caminho, std::ios::binary);
  imagem.Bytes.assign(std::istreambuf_iterator<char>(arquivo), {});
  Imagem refeita;
  ParaCada([&](const Classe& classe, const Objeto& objeto) {
    Confere(classe, objeto, imagem, refeita);
  });
  if (!imagem.Acabou() || refeita.Bytes != imagem.Bytes) {
    throw std::runtime_error("other bytes came back");
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
