#include "core/Descreve.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <type_traits>

#include "core/Igualdade.h"
#include "kxldados/CIEVinculo.h"
#include "kxldados/ChaveNFe.h"
#include "kxldados/Datas.h"
#include "kxldados/Dinheiro.h"
#include "kxldados/Latin1.h"
#include "kxldados/TKXConsisteRetorno.h"

namespace kx {

namespace {

template <class T>
T Le(const unsigned char* bytes) {
  static_assert(std::is_trivially_copyable_v<T>);
  T valor;
  std::memcpy(&valor, bytes, sizeof(T));
  return valor;
}

std::string TextoDePosicao(const _REG_POSICAO_PRODUTOPS& posicao) {
  return std::to_string(posicao.PonteiroProduto) + ", grade " +
         std::to_string(posicao.PonteiroItemGrade1) + "/" +
         std::to_string(posicao.PonteiroItemGrade2) + "/" +
         std::to_string(posicao.PonteiroItemGrade3);
}

std::string TextoDeDocumento(const REG_KXDMC& chave) {
  return TextoDeData(chave.Data) + " n\xC2\xBA " + std::to_string(chave.Contador);
}

std::string TextoDeBytes(const unsigned char* bytes, std::size_t largura) {
  constexpr char kAlgarismos[] = "0123456789abcdef";
  std::string texto;
  for (std::size_t i = 0; i < largura; ++i) {
    texto += kAlgarismos[bytes[i] >> 4U];
    texto += kAlgarismos[bytes[i] & 0xFU];
  }
  return texto;
}

}  // namespace

std::string TextoDoValor(KXTipoCampo tipo, const void* valor, std::size_t largura) {
  const auto* bytes = static_cast<const unsigned char*>(valor);
  switch (tipo) {
    case KXTipoCampo::Texto:
    case KXTipoCampo::Historico: {
      const auto* fim = std::find(bytes, bytes + largura, '\0');
      return LinhaDeLatin1(
          {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(fim - bytes)});
    }
    case KXTipoCampo::Dinheiro:
      return TextoDeDinheiro(Le<CY>(bytes));
    case KXTipoCampo::Data:
    case KXTipoCampo::DataHora32:
      return TextoDeData(Le<REG_KXDMA>(bytes));
    case KXTipoCampo::DataHora:
      return TextoDeDataHora(Le<REG_KXDMAHMSUTC>(bytes));
    case KXTipoCampo::ChaveDocumento:
      return TextoDeDocumento(Le<REG_KXDMC>(bytes));
    case KXTipoCampo::ChaveNFe:
      return TextoDeChave(Le<_KX_NFE_ps>(bytes));
    case KXTipoCampo::PosicaoProduto:
      return TextoDePosicao(Le<_REG_POSICAO_PRODUTOPS>(bytes));
    case KXTipoCampo::SemSinal8:
    case KXTipoCampo::Caractere:
      return std::to_string(*bytes);
    case KXTipoCampo::SemSinal16:
      return std::to_string(Le<std::uint16_t>(bytes));
    case KXTipoCampo::SemSinal32:
      return std::to_string(Le<std::uint32_t>(bytes));
    case KXTipoCampo::SemSinal64:
      return std::to_string(Le<std::uint64_t>(bytes));
    case KXTipoCampo::ComSinal32:
      return std::to_string(Le<std::int32_t>(bytes));
    case KXTipoCampo::ComSinal64:
      return std::to_string(Le<std::int64_t>(bytes));
    case KXTipoCampo::Bytes:
    case KXTipoCampo::Contado:
    case KXTipoCampo::Ponteiro:
      break;
  }
  return TextoDeBytes(bytes, largura);
}

void Descricao::Linha(std::string_view nome, std::string_view valor) {
  _texto.append(_margem).append(nome).append(": ").append(valor) += '\n';
}

void Descricao::Linha(std::string_view texto) { _texto.append(_margem).append(texto) += '\n'; }

void Descricao::LinhaLatin1(std::string_view nome, std::string_view valor) {
  Linha(nome, LinhaDeLatin1(valor));
}

void Descricao::Campo(const KXCampo& campo, const void* registro) {
  Valor(campo.Nome, campo.Tipo, static_cast<const unsigned char*>(registro) + campo.Posicao,
        campo.Largura);
}

void Descricao::Valor(std::string_view nome, KXTipoCampo tipo, const void* bytes,
                      std::size_t largura) {
  if (!TudoZero(bytes, largura)) Linha(nome, TextoDoValor(tipo, bytes, largura));
}

std::string Descricao::Numerado(std::string_view titulo, std::size_t numero, std::size_t quantos) {
  return std::string(titulo) + " " + std::to_string(numero) + " de " + std::to_string(quantos);
}

std::size_t Descricao::Abre(std::string_view titulo) {
  _texto.append(_margem).append(titulo) += '\n';
  _margem.append(2, ' ');
  return _texto.size();
}

void Descricao::Fecha() noexcept { _margem.resize(_margem.size() - 2); }

void DescreveEm(Descricao& descricao, const CIEVinculo& vinculo) {
  descricao.Valor("Chave", KXTipoCampo::ChaveDocumento, &vinculo.GetChave(), sizeof(REG_KXDMC));
  descricao.Valor("Tipo", KXTipoCampo::ComSinal32, &vinculo.GetTipo(), sizeof(std::int32_t));
}

void DescreveEm(Descricao& descricao, const TKXConsisteRetorno& retorno) {
  const auto numero = [&](std::string_view nome, auto valor) {
    if (valor != decltype(valor){}) {
      descricao.Linha(nome, std::to_string(static_cast<std::int64_t>(valor)));
    }
  };
  numero("Modulo", retorno.GetModulo());
  const auto quantos = static_cast<std::size_t>(retorno.GetQuantidadeItem());
  std::size_t i = 0;
  for (const TKXConsisteRetornoItem& item : retorno.GetListaItem()) {
    descricao.Bloco("Item", ++i, quantos, [&] {
      numero("Tipo", item.GetTipo());
      numero("Modulo", item.GetModulo());
      numero("Codigo", item.GetCodigo());
      numero("Flag", item.GetFlag());
      if (!item.GetTexto().IsEmpty()) descricao.LinhaLatin1("Texto", item.GetTexto().Vista());
    });
  }
}

std::ostream& Escreve(std::ostream& saida, const std::string& descricao) {
  return saida << (descricao.empty() ? "(vazio)" : descricao);
}

}  // namespace kx
