#include "Grava.h"

#include <iostream>

#include "Arquivo.h"
#include "JsonLido.h"
#include "Sistema.h"

namespace kxdados {

namespace {

constexpr std::uint64_t kMaximoMiB = 256;

// Each line of the standard input; whether all were taken.
bool GravaLinhas(Destino& destino) {
  constexpr std::chrono::seconds kPausa(1);
  bool todas = true;
  Progresso progresso;
  std::string linha;
  for (std::uint64_t numero = 1; !Interrupcao::Pedida(); ++numero) {
    const std::string origem = std::string(kEntradaPadrao) + ": linha " + std::to_string(numero);
    try {
      if (EntradaEspera(kPausa)) destino.GravaPendentes();
      if (!LeLinha(std::cin, kMaximoMiB, linha)) break;
      if (linha.find_first_not_of(" \t\r") == std::string::npos) continue;
      const RegistroLido lido = RegistroDeJson(linha);
      destino.Grava({&lido.Info(), lido.Registro()}, origem);
      progresso.Avanca();
    } catch (const Falha& falha) {
      EscreveErro(origem, falha);
      todas = false;
      if (std::cin.bad()) break;
    }
  }
  return todas;
}

}  // namespace

Destino::Destino(const OpcoesGrava& opcoes)
    : _caminho(opcoes.Acervo), _gravador(opcoes.Acervo, opcoes.Substitui, EscreveErro) {}

bool Destino::Conclui() {
  _gravador.Conclui();
  EscreveResumo();
  if (!Interrupcao::Pedida()) return _gravador.GetContagem().Recusados == 0;
  EscreveErro(_caminho, Falha("acervo", "interrompido; o que foi gravado está inteiro"));
  return false;
}

void Destino::Falhou(const FalhaDoBanco& falha) {
  EscreveErro(_caminho, Falha("acervo", falha.what()));
  EscreveResumo();
}

void Destino::EscreveResumo() {
  const Contagem& contagem = _gravador.GetContagem();
  std::cout << _caminho << ": gravados " << contagem.Gravados << ", já gravados "
            << contagem.Repetidos << ", substituídos " << contagem.Substituidos << ", recusados "
            << contagem.Recusados << '\n';
}

int Grava(const OpcoesGrava& opcoes) try {
  const Interrupcao interrupcao;
  Destino destino(opcoes);
  try {
    const bool todas = GravaLinhas(destino);
    return destino.Conclui() && todas ? 0 : 1;
  } catch (const FalhaDoBanco& falha) {
    destino.Falhou(falha);
    return 1;
  }
} catch (const FalhaDoBanco& falha) {
  EscreveErro(opcoes.Acervo, Falha("acervo", falha.what()));
  return 1;
}

}  // namespace kxdados
