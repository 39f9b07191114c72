#include "Json.h"

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string_view>

#include "FormasJson.h"
#include "core/Descreve.h"
#include "kxldados/ChaveNFe.h"
#include "kxldados/Datas.h"
#include "kxldados/Dinheiro.h"
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

template <class Byte>
bool Zeros(const Byte* de, const Byte* ate) {
  return std::all_of(de, ate, [](Byte c) { return c == 0; });
}

Json Hex(const char* bytes, std::size_t largura) {
  return std::string(kHex) + kx::TextoDoValor(KXTipoCampo::Bytes, bytes, largura);
}

std::string ISO(const REG_KXDMA& data) {
  char texto[16];
  std::snprintf(texto, sizeof(texto), "%04u-%02u-%02u", unsigned{data.Ano}, unsigned{data.Mes},
                unsigned{data.Dia});
  return texto;
}

std::string ISO(const REG_KXDMAHMSUTC& dataHora) {
  return ISO(dataHora.Data) + "T" + kx::TextoDeHora(dataHora.Hora) + "Z";
}

// Decimals behind a point, two or more.
std::string Decimal(const CY& valor) {
  std::string texto = kx::TextoDeDinheiro(valor);
  std::erase(texto, '.');
  std::replace(texto.begin(), texto.end(), ',', '.');
  return texto;
}

// A text that ends where the bytes do, or before zeros; null when it is no such text.
Json Texto(const char* bytes, std::size_t largura) {
  const char* const fim = std::find(bytes, bytes + largura, '\0');
  const std::string_view texto(bytes, static_cast<std::size_t>(fim - bytes));
  if (fim == bytes + largura || !Zeros(fim, bytes + largura) || texto.starts_with(kHex)) return {};
  return kx::UTF8DeLatin1(texto);
}

Json Valor(KXTipoCampo tipo, const char* bytes, std::size_t largura);

// All members, when each has its form and nothing stands behind them.
Json Objeto(std::span<const KXCampo> membros, const char* bytes, std::size_t largura) {
  const KXCampo& ultimo = membros.back();
  if (!Zeros(bytes + ultimo.Posicao + ultimo.Largura, bytes + largura)) return {};
  Json objeto = Json::object();
  for (const KXCampo& membro : membros) {
    Json& valor = objeto[membro.Nome];
    valor = Valor(membro.Tipo, bytes + membro.Posicao, membro.Largura);
    if (valor.is_null()) return {};
  }
  return objeto;
}

// Null where the type has no form for these bytes.
Json Valor(KXTipoCampo tipo, const char* bytes, std::size_t largura) {
  switch (tipo) {
    case KXTipoCampo::Texto:
    case KXTipoCampo::Historico:
      return Texto(bytes, largura);
    case KXTipoCampo::Dinheiro:
      return Decimal(Le<CY>(bytes));
    case KXTipoCampo::Data:
    case KXTipoCampo::DataHora32: {
      const auto data = Le<REG_KXDMA>(bytes);
      if (!kx::DataValida(data) || !Zeros(bytes + sizeof(data), bytes + largura)) return {};
      return ISO(data);
    }
    case KXTipoCampo::DataHora: {
      const auto dataHora = Le<REG_KXDMAHMSUTC>(bytes);
      if (!kx::DataHoraValida(dataHora) || bytes[largura - 1] != 0) return {};
      return ISO(dataHora);
    }
    case KXTipoCampo::ChaveDocumento:
    case KXTipoCampo::PosicaoProduto:
      return Objeto(MembrosDe(tipo), bytes, largura);
    case KXTipoCampo::ChaveNFe: {
      const std::string texto = kx::TextoDeChave(Le<_KX_NFE_ps>(bytes));
      return texto.empty() ? Json() : Json(texto);
    }
    default: {
      Json valor;
      ComInteiro(tipo, [&]<class T>(T /*tipo*/) {
        if constexpr (kEntreAspas<T>) {
          valor = std::to_string(Le<T>(bytes));
        } else {
          valor = Le<T>(bytes);
        }
      });
      return valor;
    }
  }
}

void PoeCampos(Json& objeto, const KXRegistroInfo& info, const char* registro) {
  for (const KXCampo& campo : info.Campos) {
    const char* const bytes = registro + campo.Posicao;
    if (!EhValor(campo.Papel) || Zeros(bytes, bytes + campo.Largura)) continue;
    Json valor = Valor(campo.Tipo, bytes, campo.Largura);
    objeto[campo.Nome] = valor.is_null() ? Hex(bytes, campo.Largura) : std::move(valor);
  }
}

void PoePendentes(Json& objeto, const KXRegistroInfo& info, const char* registro) {
  for (const KXPendente& pendente : info.Pendentes) {
    if (pendente.Papel == KXPapel::Zero) continue;
    const auto* alvo = Le<const char*>(registro + pendente.Posicao);
    if (alvo == nullptr) continue;
    if (pendente.Papel != KXPapel::Lista) {
      objeto[pendente.Nome] = kx::UTF8DeLatin1(std::string_view(alvo));
      continue;
    }
    Json& lista = objeto[pendente.Nome] = Json::array();
    const auto quantos = Le<std::uint16_t>(registro + pendente.Medida);
    for (std::size_t i = 0; i < quantos; ++i, alvo += pendente.Elemento->Tamanho) {
      Json& elemento = lista.emplace_back(Json::object());
      PoeCampos(elemento, *pendente.Elemento, alvo);
      PoePendentes(elemento, *pendente.Elemento, alvo);
    }
  }
}

}  // namespace

std::string JsonDeRegistro(const KXRegistroInfo& info, const void* registro, int recuo) {
  const auto* bytes = static_cast<const char*>(registro);
  Json objeto{{kRegistro, info.Nome}};
  PoeCampos(objeto, info, bytes);
  PoePendentes(objeto, info, bytes);
  return objeto.dump(recuo);
}

std::string JsonDeDiferenca(const kx::Diferenca& diferenca) {
  constexpr const char* kTipos[] = {"mudou", "retirado", "acrescentado"};
  const Json objeto{{"caminho", diferenca.Caminho},
                    {"tipo", kTipos[static_cast<std::size_t>(diferenca.Tipo)]},
                    {"antes", diferenca.Antes},
                    {"depois", diferenca.Depois},
                    {"comparado", diferenca.Comparado}};
  return objeto.dump();
}

}  // namespace kxdados
