#include "Json.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string_view>

#include "FormasJson.h"
#include "core/Descreve.h"
#include "core/Igualdade.h"
#include "kxldados/ChaveNFe.h"
#include "kxldados/Datas.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

using Json = nlohmann::ordered_json;

template <class T>
T Le(const char* bytes) {
  T valor;
  std::memcpy(&valor, bytes, sizeof(valor));
  return valor;
}

void PoeNumero(std::string& saida, auto valor) {
  char texto[24];
  saida.append(texto, std::to_chars(texto, std::end(texto), valor).ptr);
}

// With zeros before it, up to so many digits.
void PoeAlgarismos(std::string& saida, unsigned valor, unsigned quantos) {
  if (quantos > 1) PoeAlgarismos(saida, valor / 10, quantos - 1);
  saida += static_cast<char>('0' + valor % 10);
}

void PoeData(std::string& saida, const REG_KXDMA& data) {
  PoeAlgarismos(saida, data.Ano, 4);
  PoeAlgarismos(saida += '-', data.Mes, 2);
  PoeAlgarismos(saida += '-', data.Dia, 2);
}

void PoeHora(std::string& saida, const REG_KXHMS& hora) {
  PoeAlgarismos(saida, hora.Hora, 2);
  PoeAlgarismos(saida += ':', hora.Minuto, 2);
  PoeAlgarismos(saida += ':', hora.Segundo, 2);
}

// Decimals behind a point, two or more.
void PoeDinheiro(std::string& saida, const CY& valor) {
  constexpr unsigned kEscala = 10'000;
  const auto bits = static_cast<std::uint64_t>(valor.int64);
  const std::uint64_t modulo = valor.int64 < 0 ? 0 - bits : bits;
  if (valor.int64 < 0) saida += '-';
  PoeNumero(saida, modulo / kEscala);
  saida += '.';
  PoeAlgarismos(saida, static_cast<unsigned>(modulo % kEscala), 4);
  for (int i = 0; i < 2 && saida.back() == '0'; ++i) saida.pop_back();
}

// With its quotes.
void PoeTexto(std::string& saida, std::string_view latin1) {
  const auto simples = [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; };
  if (std::all_of(latin1.begin(), latin1.end(), simples)) {
    ((saida += '"') += latin1) += '"';
  } else {
    saida += Json(kx::UTF8DeLatin1(latin1)).dump();
  }
}

void PoeNome(std::string& saida, std::string_view nome) {
  if (saida.back() != '{') saida += ',';
  ((saida += '"') += nome) += "\":";
}

void PoeHex(std::string& saida, const char* bytes, std::size_t largura) {
  ((saida += '"') += kHex) += kx::TextoDoValor(KXTipoCampo::Bytes, bytes, largura);
  saida += '"';
}

// Those below give false, and may have written something, where the type has no form for the bytes.
bool PoeForma(std::string& saida, KXTipoCampo tipo, const char* bytes, std::size_t largura);

// A text that ends before zeros.
bool PoeTextoFixo(std::string& saida, const char* bytes, std::size_t largura) {
  const std::string_view texto(bytes, strnlen(bytes, largura));
  if (texto.size() == largura || texto.starts_with(kHex) ||
      !kx::TudoZero(texto.end(), largura - texto.size())) {
    return false;
  }
  PoeTexto(saida, texto);
  return true;
}

// All members, when each has its form and nothing stands behind them.
bool PoeObjeto(std::string& saida, std::span<const KXCampo> membros, const char* bytes,
               std::size_t largura) {
  const std::size_t fim = std::size_t{membros.back().Posicao} + membros.back().Largura;
  if (!kx::TudoZero(bytes + fim, largura - fim)) return false;
  saida += '{';
  for (const KXCampo& membro : membros) {
    PoeNome(saida, membro.Nome);
    if (!PoeForma(saida, membro.Tipo, bytes + membro.Posicao, membro.Largura)) return false;
  }
  saida += '}';
  return true;
}

bool PoeDataHora(std::string& saida, const REG_KXDMAHMSUTC& dataHora) {
  if (!kx::DataHoraValida(dataHora) || dataHora.Hora.Reserva != 0) return false;
  PoeData(saida += '"', dataHora.Data);
  PoeHora(saida += 'T', dataHora.Hora);
  saida += "Z\"";
  return true;
}

bool PoeInteiro(std::string& saida, KXTipoCampo tipo, const char* bytes) {
  return ComInteiro(tipo, [&]<class T>(T /*tipo*/) {
    if (kEntreAspas<T>) saida += '"';
    PoeNumero(saida, Le<T>(bytes));
    if (kEntreAspas<T>) saida += '"';
  });
}

bool PoeForma(std::string& saida, KXTipoCampo tipo, const char* bytes, std::size_t largura) {
  switch (tipo) {
    case KXTipoCampo::Texto:
    case KXTipoCampo::Historico:
      return PoeTextoFixo(saida, bytes, largura);
    case KXTipoCampo::Dinheiro:
      PoeDinheiro(saida += '"', Le<CY>(bytes));
      saida += '"';
      return true;
    case KXTipoCampo::Data:
    case KXTipoCampo::DataHora32: {
      const auto data = Le<REG_KXDMA>(bytes);
      if (!kx::DataValida(data)) return false;
      if (!kx::TudoZero(bytes + sizeof(data), largura - sizeof(data))) return false;
      PoeData(saida += '"', data);
      saida += '"';
      return true;
    }
    case KXTipoCampo::DataHora:
      return PoeDataHora(saida, Le<REG_KXDMAHMSUTC>(bytes));
    case KXTipoCampo::ChaveDocumento:
    case KXTipoCampo::PosicaoProduto:
      return PoeObjeto(saida, MembrosDe(tipo), bytes, largura);
    case KXTipoCampo::ChaveNFe: {
      const std::string chave = kx::TextoDeChave(Le<_KX_NFE_ps>(bytes));
      PoeTexto(saida, chave);
      return !chave.empty();
    }
    default:
      return PoeInteiro(saida, tipo, bytes);
  }
}

void PoeMembros(std::string& saida, const KXRegistroInfo& info, const char* registro);

void PoeLista(std::string& saida, const KXRegistroInfo& info, const char* elemento,
              std::size_t quantos) {
  saida += '[';
  for (std::size_t i = 0; i < quantos; ++i, elemento += info.Tamanho) {
    saida += i == 0 ? "{" : ",{";
    PoeMembros(saida, info, elemento);
    saida += '}';
  }
  saida += ']';
}

void PoeMembros(std::string& saida, const KXRegistroInfo& info, const char* registro) {
  for (const KXCampo& campo : info.Campos) {
    const char* const bytes = registro + campo.Posicao;
    if (!EhValor(campo.Papel) || kx::TudoZero(bytes, campo.Largura)) continue;
    PoeNome(saida, campo.Nome);
    const std::size_t inicio = saida.size();
    if (PoeForma(saida, campo.Tipo, bytes, campo.Largura)) continue;
    saida.resize(inicio);
    PoeHex(saida, bytes, campo.Largura);
  }
  for (const KXPendente& pendente : info.Pendentes) {
    if (pendente.Papel == KXPapel::Zero) continue;
    const auto* alvo = Le<const char*>(registro + pendente.Posicao);
    if (alvo == nullptr) continue;
    PoeNome(saida, pendente.Nome);
    if (pendente.Papel == KXPapel::Lista) {
      PoeLista(saida, *pendente.Elemento, alvo, Le<std::uint16_t>(registro + pendente.Medida));
    } else {
      PoeTexto(saida, alvo);
    }
  }
}

}  // namespace

std::string JsonDeRegistro(const KXRegistroInfo& info, const void* registro, int recuo) {
  std::string linha = "{";
  PoeNome(linha, kRegistro);
  PoeTexto(linha, info.Nome);
  PoeMembros(linha, info, static_cast<const char*>(registro));
  linha += '}';
  return recuo < 0 ? linha : Json::parse(linha).dump(recuo);
}

std::string DataISO(const REG_KXDMA& data) {
  std::string texto;
  PoeData(texto, data);
  return texto;
}

std::string JsonDeDiferenca(const kx::Diferenca& diferenca, const std::string& documento) {
  constexpr const char* kTipos[] = {"mudou", "retirado", "acrescentado"};
  Json objeto;
  if (!documento.empty()) objeto["documento"] = documento;
  objeto.update({{"caminho", diferenca.Caminho},
                 {"tipo", kTipos[static_cast<std::size_t>(diferenca.Tipo)]},
                 {"antes", diferenca.Antes},
                 {"depois", diferenca.Depois},
                 {"comparado", diferenca.Comparado}});
  return objeto.dump();
}

}  // namespace kxdados
