#include "core/Diferenca.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <utility>

#include "core/Descreve.h"
#include "core/Diferenciador.h"
#include "core/Igualdade.h"
#include "kxldados/CIEVinculo.h"
#include "kxldados/Latin1.h"
#include "kxldados/TKXConsisteRetorno.h"

namespace kx {

namespace {

// Texts that go on behind their terminator are no other texts.
bool SeVe(const KXCampo& campo, const char* a, const char* b) {
  const bool texto = campo.Tipo == KXTipoCampo::Texto || campo.Tipo == KXTipoCampo::Historico;
  return (texto ? std::strncmp(a, b, campo.Largura) : std::memcmp(a, b, campo.Largura)) != 0;
}

}  // namespace

void Comparacao::Campos(const KXRegistroInfo& info, const void* a, const void* b, const void* comoA,
                        const void* comoB) {
  const auto* bytesA = static_cast<const char*>(a);
  const auto* bytesB = static_cast<const char*>(b);
  if (std::memcmp(a, b, info.Tamanho) == 0) return;
  LinhaVisivel visivel;
  for (const KXCampo& campo : info.Campos) {
    if (!visivel(campo)) continue;
    const char* const antes = bytesA + campo.Posicao;
    const char* const depois = bytesB + campo.Posicao;
    if (!SeVe(campo, antes, depois)) continue;
    const bool comparado =
        campo.Comparado && !CampoIgual(campo, static_cast<const char*>(comoA) + campo.Posicao,
                                       static_cast<const char*>(comoB) + campo.Posicao);
    Valor(campo.Nome, comparado, campo.Tipo, antes, depois, campo.Largura);
  }
}

void Comparacao::Valor(std::string_view nome, bool comparado, KXTipoCampo tipo, const void* a,
                       const void* b, std::size_t largura) {
  std::string antes = TextoDoValor(tipo, a, largura);
  std::string depois = TextoDoValor(tipo, b, largura);
  if (antes == depois) {
    antes = TextoDoValor(KXTipoCampo::Bytes, a, largura);
    depois = TextoDoValor(KXTipoCampo::Bytes, b, largura);
  }
  Mudou(nome, comparado, std::move(antes), std::move(depois));
}

void Comparacao::Texto(std::string_view nome, bool comparado, const CString& a, const CString& b) {
  std::string antes = LinhaDeLatin1(a);
  std::string depois = LinhaDeLatin1(b);
  if (antes == depois) {
    antes = TextoDoValor(KXTipoCampo::Bytes, a.GetString(), a.Vista().size());
    depois = TextoDoValor(KXTipoCampo::Bytes, b.GetString(), b.Vista().size());
  }
  Mudou(nome, comparado, std::move(antes), std::move(depois));
}

void Comparacao::Elemento(TipoDeDiferenca tipo) {
  _linhas.push_back({Caminho({}), tipo, {}, {}, _comparado});
}

bool Comparacao::DifereDesde(std::size_t marca, bool comparado) const noexcept {
  return std::any_of(_linhas.begin() + static_cast<std::ptrdiff_t>(marca), _linhas.end(),
                     [&](const Diferenca& linha) { return !comparado || linha.Comparado; });
}

std::string Comparacao::Caminho(std::string_view nome) const {
  std::string caminho;
  for (const Trecho& trecho : _trechos) {
    if (!caminho.empty()) caminho += '.';
    caminho += trecho.Nome;
    if (trecho.Indice != kSemIndice) caminho += '[' + std::to_string(trecho.Indice) + ']';
  }
  if (!caminho.empty() && !nome.empty()) caminho += '.';
  return caminho += nome;
}

void Comparacao::Mudou(std::string_view nome, bool comparado, std::string antes,
                       std::string depois) {
  _linhas.push_back({Caminho(nome), TipoDeDiferenca::Mudou, std::move(antes), std::move(depois),
                     comparado && _comparado});
}

void ComparaEm(Comparacao& comparacao, const CIEVinculo& antes, const CIEVinculo& depois) {
  Diferenciador::Valor("Chave", true, antes.GetChave(), depois.GetChave(), comparacao);
  Diferenciador::Valor("Tipo", true, antes.GetTipo(), depois.GetTipo(), comparacao);
}

void ComparaEm(Comparacao& comparacao, const TKXConsisteRetorno& antes,
               const TKXConsisteRetorno& depois) {
  Diferenciador::Valor("Modulo", true, antes.GetModulo(), depois.GetModulo(), comparacao);
  Diferenciador::Valor("ListaItem", true, antes.GetListaItem(), depois.GetListaItem(), comparacao);
}

void ComparaEm(Comparacao& comparacao, const TKXConsisteRetornoItem& antes,
               const TKXConsisteRetornoItem& depois) {
  const auto numero = [&](std::string_view nome, auto a, auto b) {
    Diferenciador::Valor(nome, true, static_cast<std::int64_t>(a), static_cast<std::int64_t>(b),
                         comparacao);
  };
  numero("Tipo", antes.GetTipo(), depois.GetTipo());
  numero("Modulo", antes.GetModulo(), depois.GetModulo());
  numero("Codigo", antes.GetCodigo(), depois.GetCodigo());
  numero("Flag", antes.GetFlag(), depois.GetFlag());
  Diferenciador::Valor("Texto", true, antes.GetTexto(), depois.GetTexto(), comparacao);
}

std::ostream& operator<<(std::ostream& saida, const Diferenca& diferenca) {
  saida << diferenca.Caminho << ": ";
  if (diferenca.Tipo == TipoDeDiferenca::Mudou) {
    saida << diferenca.Antes << " -> " << diferenca.Depois;
  } else {
    saida << (diferenca.Tipo == TipoDeDiferenca::Retirado ? "retirado" : "acrescentado");
  }
  return diferenca.Comparado ? saida : saida << " (n\xC3\xA3o comparado)";
}

}  // namespace kx
