#include "kxldados/ChaveNFe.h"

#include <cstddef>
#include <cstdint>

namespace kx {

namespace {

constexpr std::size_t kTamanho = 44;
constexpr std::size_t kInicioCNPJ = 6;
constexpr std::size_t kAlfanumericos = 12;
constexpr std::size_t kFimAlfanumericos = kInicioCNPJ + kAlfanumericos;
constexpr std::size_t kInicioNumero = 25;
constexpr std::uint64_t kPresente = std::uint64_t{1} << 63;

bool EhDigito(char c) noexcept { return c >= '0' && c <= '9'; }

bool Permitido(std::size_t posicao, char c) noexcept {
  const bool aceitaLetra = posicao >= kInicioCNPJ && posicao < kFimAlfanumericos;
  return EhDigito(c) || (aceitaLetra && c >= 'A' && c <= 'Z');
}

char DigitoVerificador(std::string_view corpo) noexcept {
  int soma = 0;
  int peso = 2;
  for (auto c = corpo.rbegin(); c != corpo.rend(); ++c) {
    soma += (*c - '0') * peso;
    peso = peso == 9 ? 2 : peso + 1;
  }
  const int resto = soma % 11;
  return static_cast<char>(resto < 2 ? '0' : '0' + 11 - resto);
}

ErroChave Confere(std::string_view texto) noexcept {
  if (texto.size() != kTamanho) return ErroChave::Tamanho;
  for (std::size_t i = 0; i < texto.size(); ++i) {
    if (!Permitido(i, texto[i])) return ErroChave::Alfabeto;
  }
  if (DigitoVerificador(texto.substr(0, kTamanho - 1)) != texto.back()) {
    return ErroChave::DigitoVerificador;
  }
  return ErroChave::Nenhum;
}

// Appends the characters, read as a number of the base, to the value.
std::uint64_t Junta(std::uint64_t valor, std::string_view caracteres, unsigned base) noexcept {
  for (const char c : caracteres) {
    const int algarismo = EhDigito(c) ? c - '0' : c - 'A' + 10;
    valor = valor * base + static_cast<std::uint64_t>(algarismo);
  }
  return valor;
}

// Writes the lowest places of the value over the range; returns what is above them.
std::uint64_t Separa(std::uint64_t valor, char* inicio, std::size_t quantos,
                     unsigned base) noexcept {
  constexpr char kAlgarismos[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (std::size_t i = quantos; i > 0; --i) {
    inicio[i - 1] = kAlgarismos[valor % base];
    valor /= base;
  }
  return valor;
}

}  // namespace

ErroChave ChaveDeTexto(std::string_view texto, _KX_NFE_ps& destino) noexcept {
  const ErroChave erro = Confere(texto);
  if (erro != ErroChave::Nenhum) return erro;
  destino.Partes[0] = kPresente | Junta(0, texto.substr(kInicioCNPJ, kAlfanumericos), 36);
  destino.Partes[1] = Junta(Junta(0, texto.substr(0, kInicioCNPJ), 10),
                            texto.substr(kFimAlfanumericos, kInicioNumero - kFimAlfanumericos), 10);
  destino.Partes[2] = Junta(0, texto.substr(kInicioNumero), 10);
  return ErroChave::Nenhum;
}

std::string TextoDeChave(const _KX_NFE_ps& chave) {
  if ((chave.Partes[0] & kPresente) == 0) return {};
  std::string texto(kTamanho, '0');
  char* const c = texto.data();
  const std::uint64_t sobra0 =
      Separa(chave.Partes[0] ^ kPresente, c + kInicioCNPJ, kAlfanumericos, 36);
  const std::uint64_t alto =
      Separa(chave.Partes[1], c + kFimAlfanumericos, kInicioNumero - kFimAlfanumericos, 10);
  const std::uint64_t sobra1 = Separa(alto, c, kInicioCNPJ, 10);
  const std::uint64_t sobra2 =
      Separa(chave.Partes[2], c + kInicioNumero, kTamanho - kInicioNumero, 10);
  const bool valida =
      sobra0 == 0 && sobra1 == 0 && sobra2 == 0 && Confere(texto) == ErroChave::Nenhum;
  return valida ? texto : std::string();
}

int ModeloDaChave(const _KX_NFE_ps& chave) noexcept {
  return static_cast<int>(chave.Partes[1] / 1'000 % 100);
}

int SerieDaChave(const _KX_NFE_ps& chave) noexcept {
  return static_cast<int>(chave.Partes[1] % 1'000);
}

int NumeroDaChave(const _KX_NFE_ps& chave) noexcept {
  return static_cast<int>(chave.Partes[2] / 10'000'000'000);
}

const char* MensagemErroChave(ErroChave erro) noexcept {
  switch (erro) {
    case ErroChave::Nenhum:
      break;
    case ErroChave::Tamanho:
      return "A chave de acesso deve ter 44 caracteres.";
    case ErroChave::Alfabeto:
      return "A chave de acesso deve ter somente d\xEDgitos, e letras mai\xFAsculas apenas no "
             "CNPJ.";
    case ErroChave::DigitoVerificador:
      return "O d\xEDgito verificador da chave de acesso n\xE3o confere.";
  }
  return "";
}

}  // namespace kx
