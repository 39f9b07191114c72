#include "Mostra.h"

#include <iostream>

#include "Arquivo.h"
#include "Classes.h"
#include "Falha.h"
#include "Imagens.h"
#include "Json.h"
#include "Progresso.h"
#include "SQLite.h"

namespace kxdados {

namespace {

void MostraUm(const Lido& lido, const OpcoesMostra& opcoes) {
  if (opcoes.Imagem) {
    const std::vector<std::byte> imagem = ImagemDe(lido);
    std::cout.write(reinterpret_cast<const char*>(imagem.data()),
                    static_cast<std::streamsize>(imagem.size()));
    return;
  }
  const Classe* const classe = ClasseDe(*lido.Info);
  if (opcoes.Json || classe == nullptr) {
    std::cout << JsonDeRegistro(*lido.Info, lido.Registro, opcoes.Json ? -1 : 2) << '\n';
  } else {
    std::cout << lido.Info->Nome << '\n' << classe->Descreve(lido.Registro) << '\n';
  }
}

// Whether all of them were shown.
bool MostraArquivo(const std::string& caminho, const OpcoesMostra& opcoes) try {
  const auto fonte = AbreFonte(caminho, opcoes.Quais);
  bool todos = true;
  bool algum = false;
  for (;;) try {
      const std::optional<Lido> lido = fonte->Proximo();
      if (!lido) break;
      algum = true;
      MostraUm(*lido, opcoes);
    } catch (const Falha& falha) {
      EscreveErro(NomeDe(caminho), falha);
      todos = false;
    }
  if (!algum && todos && !opcoes.Quais.Vazio()) {
    throw Falha("documento", "não há nenhum com essa chave ou esse número");
  }
  return todos;
} catch (const Falha& falha) {
  EscreveErro(NomeDe(caminho), falha);
  return false;
} catch (const FalhaDoBanco& falha) {
  EscreveErro(caminho, Falha("acervo", falha.what()));
  return false;
}

}  // namespace

int Mostra(const OpcoesMostra& opcoes) {
  bool todos = true;
  if (opcoes.Caminhos.empty()) todos = MostraArquivo("-", opcoes);
  for (const std::string& caminho : opcoes.Caminhos) {
    todos = MostraArquivo(caminho, opcoes) && todos;
  }
  return todos ? 0 : 1;
}

}  // namespace kxdados
