#include "Campos.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

#include "kxldados/ChaveNFe.h"
#include "kxldados/Datas.h"
#include "kxldados/Dinheiro.h"
#include "kxldados/Latin1.h"

namespace kxdados {

namespace {

// A field of one record.
struct Lugar {
  const KXRegistroInfo& Info;
  const KXCampo& Campo;
  const unsigned char* Registro;

  const unsigned char* Bytes() const { return Registro + Campo.Posicao; }
};

template <class T>
T Le(const unsigned char* bytes) {
  static_assert(std::is_trivially_copyable_v<T>);
  T valor;
  std::memcpy(&valor, bytes, sizeof(T));
  return valor;
}

bool Vazio(const Lugar& lugar) {
  const unsigned char* bytes = lugar.Bytes();
  return std::all_of(bytes, bytes + lugar.Campo.Largura,
                     [](unsigned char byte) { return byte == 0; });
}

// The count or size that belongs to a pointer: QtdX to ListaX, TamanhoX to TextoX. It has 16 bits,
// but in the list of approval rules, where it has 32 and a sign.
std::size_t Quantidade(const Lugar& lugar) {
  const bool lista = lugar.Campo.Papel == KXPapel::Lista;
  const std::string_view proprio(lugar.Campo.Nome +
                                 std::string_view(lista ? "Lista" : "Texto").size());
  const std::string nome = std::string(lista ? "Qtd" : "Tamanho").append(proprio);
  for (const KXCampo& campo : lugar.Info.Campos) {
    if (nome != campo.Nome) continue;
    const unsigned char* bytes = lugar.Registro + campo.Posicao;
    if (campo.Tipo == KXTipoCampo::SemSinal16) return Le<std::uint16_t>(bytes);
    return static_cast<std::size_t>(std::max(Le<std::int32_t>(bytes), 0));
  }
  return 0;
}

// The characters of a text outside the record, its terminator left out.
std::string_view TextoDeFora(const Lugar& lugar) {
  if (lugar.Campo.Papel == KXPapel::Terminado) {
    const auto* texto = Le<const char*>(lugar.Bytes());
    return texto == nullptr ? std::string_view() : std::string_view(texto);
  }
  if (lugar.Campo.Papel == KXPapel::Corrido) {
    const auto* texto = Le<const char*>(lugar.Bytes());
    const std::size_t tamanho = Quantidade(lugar);
    return texto == nullptr || tamanho == 0 ? std::string_view()
                                            : std::string_view(texto, tamanho - 1);
  }
  const auto texto = Le<KXStringPS>(lugar.Bytes());
  return texto.Texto == nullptr || texto.Tamanho == 0
             ? std::string_view()
             : std::string_view(texto.Texto, texto.Tamanho - std::size_t{1});
}

// Calls `visita` with the record of each element of a child array.
template <class Visita>
void PercorreLista(const Lugar& lugar, Visita visita) {
  const auto* elementos = Le<const unsigned char*>(lugar.Bytes());
  if (elementos == nullptr) return;
  const std::size_t quantos = Quantidade(lugar);
  for (std::size_t i = 0; i < quantos; ++i) {
    visita(i, elementos + i * lugar.Campo.Elemento->Tamanho);
  }
}

std::string TextoDePosicao(const _REG_POSICAO_PRODUTOPS& posicao) {
  return std::to_string(posicao.PonteiroProduto) + ", grade " +
         std::to_string(posicao.PonteiroItemGrade1) + "/" +
         std::to_string(posicao.PonteiroItemGrade2) + "/" +
         std::to_string(posicao.PonteiroItemGrade3);
}

std::string TextoDeDocumento(const REG_KXDMC& chave) {
  return kx::TextoDeData(chave.Data) + " nº " + std::to_string(chave.Contador);
}

std::string TextoDeBytes(const Lugar& lugar) {
  constexpr char kAlgarismos[] = "0123456789abcdef";
  std::string texto;
  for (const unsigned char* byte = lugar.Bytes(); byte < lugar.Bytes() + lugar.Campo.Largura;
       ++byte) {
    texto += kAlgarismos[*byte >> 4U];
    texto += kAlgarismos[*byte & 0xFU];
  }
  return texto;
}

std::string TextoDoCampo(const Lugar& lugar) {
  const unsigned char* bytes = lugar.Bytes();
  switch (lugar.Campo.Tipo) {
    case KXTipoCampo::Texto:
    case KXTipoCampo::Historico: {
      const auto* inicio = reinterpret_cast<const char*>(bytes);
      const auto* fim = std::find(inicio, inicio + lugar.Campo.Largura, '\0');
      return kx::LinhaDeLatin1({inicio, static_cast<std::size_t>(fim - inicio)});
    }
    case KXTipoCampo::Dinheiro:
      return kx::TextoDeDinheiro(Le<CY>(bytes));
    case KXTipoCampo::Data:
    case KXTipoCampo::DataHora32:
      return kx::TextoDeData(Le<REG_KXDMA>(bytes));
    case KXTipoCampo::DataHora:
      return kx::TextoDeDataHora(Le<REG_KXDMAHMSUTC>(bytes));
    case KXTipoCampo::ChaveDocumento:
      return TextoDeDocumento(Le<REG_KXDMC>(bytes));
    case KXTipoCampo::ChaveNFe:
      return kx::TextoDeChave(Le<_KX_NFE_ps>(bytes));
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
    case KXTipoCampo::Contado:
    case KXTipoCampo::Ponteiro:
      return kx::LinhaDeLatin1(TextoDeFora(lugar));
    case KXTipoCampo::Bytes:
      break;
  }
  return TextoDeBytes(lugar);
}

// Parts are shown with the field that holds them, counts with their array.
bool TemLinha(const Lugar& lugar) {
  switch (lugar.Campo.Papel) {
    case KXPapel::Parte:
    case KXPapel::Conta:
    case KXPapel::Tamanho:
      return false;
    default:
      return !Vazio(lugar);
  }
}

}  // namespace

Medida MedeRegistro(const KXRegistroInfo& info, const void* registro) {
  Medida medida{info.Tamanho, 0, 0};
  for (const KXCampo& campo : info.Campos) {
    const Lugar lugar{info, campo, static_cast<const unsigned char*>(registro)};
    if (campo.Papel == KXPapel::Lista) {
      if (!Vazio(lugar)) ++medida.Listas;
      PercorreLista(lugar, [&](std::size_t, const unsigned char* elemento) {
        const Medida filho = MedeRegistro(*campo.Elemento, elemento);
        medida.Bytes += filho.Bytes;
        medida.Listas += filho.Listas;
        medida.Textos += filho.Textos;
      });
    } else if (campo.Papel == KXPapel::Contado || campo.Papel == KXPapel::Corrido ||
               campo.Papel == KXPapel::Terminado) {
      if (Vazio(lugar)) continue;
      ++medida.Textos;
      medida.Bytes += TextoDeFora(lugar).size() + 1;
    }
  }
  return medida;
}

void EscreveCampos(std::ostream& saida, const KXRegistroInfo& info, const void* registro,
                   int nivel) {
  const std::string margem(static_cast<std::size_t>(nivel) * 2, ' ');
  for (const KXCampo& campo : info.Campos) {
    const Lugar lugar{info, campo, static_cast<const unsigned char*>(registro)};
    if (!TemLinha(lugar)) continue;
    if (campo.Papel != KXPapel::Lista) {
      saida << margem << campo.Nome << ": " << TextoDoCampo(lugar) << '\n';
      continue;
    }
    const std::string_view lista = std::string_view(campo.Nome).substr(std::strlen("Lista"));
    PercorreLista(lugar, [&](std::size_t i, const unsigned char* elemento) {
      saida << margem << lista << " " << i + 1 << " de " << Quantidade(lugar) << '\n';
      EscreveCampos(saida, *campo.Elemento, elemento, nivel + 1);
    });
  }
}

}  // namespace kxdados
