#include "Leiaute.h"

#include <algorithm>
#include <cctype>
#include <iomanip>
#include <numeric>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "compras/KXDadosCompras.h"

namespace kxdados {

std::string TipoDoCampo(const KXCampo& campo) {
  const std::string largura = std::to_string(campo.Largura);
  switch (campo.Tipo) {
    case KXTipoCampo::Bytes:
      return "byte[" + largura + "]";
    case KXTipoCampo::Texto:
    case KXTipoCampo::Historico:
      return "char[" + largura + "]";
    case KXTipoCampo::Dinheiro:
      return "CY";
    case KXTipoCampo::Data:
      return "REG_KXDMA";
    case KXTipoCampo::DataHora:
      return "REG_KXDMAHMSUTC";
    case KXTipoCampo::DataHora32:
      return "KXDataHora32";
    case KXTipoCampo::ChaveDocumento:
      return "REG_KXDMC";
    case KXTipoCampo::ChaveNFe:
      return "_KX_NFE_ps";
    case KXTipoCampo::PosicaoProduto:
      return "_REG_POSICAO_PRODUTOPS";
    case KXTipoCampo::SemSinal8:
      return "uint8";
    case KXTipoCampo::SemSinal16:
      return "uint16";
    case KXTipoCampo::SemSinal32:
      return "uint32";
    case KXTipoCampo::SemSinal64:
      return "uint64";
    case KXTipoCampo::ComSinal32:
      return "int32";
    case KXTipoCampo::ComSinal64:
      return "int64";
    case KXTipoCampo::Caractere:
      return "char";
    case KXTipoCampo::Contado:
      return "KXStringPS";
    case KXTipoCampo::Ponteiro:
      break;
  }
  return campo.Elemento != nullptr ? std::string(campo.Elemento->Nome) + "*" : "char*";
}

namespace {

// Insertions, removals and exchanges of a letter that turn one name into the other, case apart.
std::size_t Distancia(std::string_view a, std::string_view b) {
  std::vector<std::size_t> linha(b.size() + 1);
  std::iota(linha.begin(), linha.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(linha[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const bool iguais = std::tolower(static_cast<unsigned char>(a[i])) ==
                          std::tolower(static_cast<unsigned char>(b[j]));
      const std::size_t troca = diagonal + (iguais ? 0 : 1);
      diagonal = linha[j + 1];
      linha[j + 1] = std::min({troca, linha[j] + 1, diagonal + 1});
    }
  }
  return linha.back();
}

std::vector<const KXRegistroInfo*> MaisProximos(std::string_view nome) {
  constexpr std::size_t kQuantos = 3;
  const auto todos = KXRegistros();
  std::vector<const KXRegistroInfo*> registros(todos.begin(), todos.end());
  std::stable_sort(registros.begin(), registros.end(),
                   [nome](const KXRegistroInfo* a, const KXRegistroInfo* b) {
                     return Distancia(nome, a->Nome) < Distancia(nome, b->Nome);
                   });
  registros.resize(std::min(registros.size(), kQuantos));
  return registros;
}

}  // namespace

void ListaRegistros(std::ostream& saida) {
  constexpr int kNome = 38;
  for (const KXRegistroInfo* info : KXRegistros()) {
    saida << std::left << std::setw(kNome) << info->Nome << std::right << std::setw(5)
          << info->Tamanho << " bytes  " << info->Significado << '\n';
  }
}

bool EscreveLeiaute(std::ostream& saida, std::ostream& erros, const std::string& nome) {
  const KXRegistroInfo* info = KXProcuraRegistro(nome);
  if (info == nullptr) {
    erros << nome << ": registro desconhecido; nomes parecidos:";
    for (const KXRegistroInfo* proximo : MaisProximos(nome)) erros << ' ' << proximo->Nome;
    erros << '\n';
    return false;
  }
  constexpr int kNumero = 7;
  constexpr int kTipo = 34;
  constexpr int kNome = 44;
  saida << info->Nome << ": " << info->Significado << "; " << info->Tamanho << " bytes\n\n"
        << "posição largura compara  " << std::left << std::setw(kTipo) << "tipo"
        << std::setw(kNome) << "nome"
        << "significado\n";
  for (const KXCampo& campo : info->Campos) {
    saida << std::right << std::setw(kNumero) << campo.Posicao << ' ' << std::setw(kNumero)
          << campo.Largura << std::setw(kNumero + 1) << (campo.Comparado ? "sim" : "") << "  "
          << std::left << std::setw(kTipo) << TipoDoCampo(campo) << std::setw(kNome) << campo.Nome
          << campo.Significado << '\n';
  }
  saida << "\ncompara: se a igualdade vê o campo\n";
  return true;
}

}  // namespace kxdados
