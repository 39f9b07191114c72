#include "core/ConsisteRetorno.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <utility>

KX_IMPLEMENTA_CLASSE(CKXDadosCM_ConsisteRetorno, TKXConsisteRetorno)

namespace {

constexpr long kPrimeiroCodigo = 5;
constexpr long kUltimoCodigo = 869;
constexpr std::size_t kCodigosPorRotulo = 10;

struct Rotulo {
  const char* Texto;
  std::array<std::uint16_t, kCodigosPorRotulo> Codigos;  // zeros at the end
};

// The first label is that of codes without one.
constexpr Rotulo kRotulos[] = {
    {"", {}},
#define KX_ROTULO(texto, ...) {texto, {{__VA_ARGS__}}},
#include "core/RotulosCamposPersonalizados.def"
#undef KX_ROTULO
};

using IndicesPorCodigo = std::array<std::uint8_t, kUltimoCodigo - kPrimeiroCodigo + 1>;
static_assert(std::size(kRotulos) <= 256, "label indexes are kept in one byte");

// A code that is listed twice or lies out of range does not compile.
consteval IndicesPorCodigo IndexaRotulos() {
  IndicesPorCodigo indices{};
  for (std::size_t i = 0; i < std::size(kRotulos); ++i) {
    for (const std::uint16_t codigo : kRotulos[i].Codigos) {
      if (codigo == 0) break;
      std::uint8_t& indice = indices.at(codigo - std::size_t{kPrimeiroCodigo});
      if (indice != 0) throw std::logic_error("code listed twice");
      indice = static_cast<std::uint8_t>(i);
    }
  }
  return indices;
}

constexpr IndicesPorCodigo kIndices = IndexaRotulos();

const char* RotuloDoCodigo(long codigo) noexcept {
  if (codigo < kPrimeiroCodigo || codigo > kUltimoCodigo) return "";
  return kRotulos[kIndices[static_cast<std::size_t>(codigo - kPrimeiroCodigo)]].Texto;
}

TKXConsisteRetornoItem::eConsiste ParaBase(CKXDadosCM_ConsisteRetorno::eConsisteCM tipo) noexcept {
  return static_cast<TKXConsisteRetornoItem::eConsiste>(tipo);
}

}  // namespace

CKXDadosCM_ConsisteRetorno::CKXDadosCM_ConsisteRetorno() noexcept {
  SeteModuloCodigoKXMensagem(KXModulo::Compras);
}

CKXDadosCM_ConsisteRetorno::CKXDadosCM_ConsisteRetorno(eConsisteCM tipo, unsigned long codigo,
                                                       KXModulo modulo, bool flag)
    : TKXConsisteRetorno(ParaBase(tipo), modulo, codigo, flag) {}

CKXDadosCM_ConsisteRetorno::CKXDadosCM_ConsisteRetorno(eConsisteCM tipo, unsigned long codigo,
                                                       bool flag)
    : CKXDadosCM_ConsisteRetorno(tipo, codigo, KXModulo::Compras, flag) {}

// cppcheck-suppress passedByValue ; the published signature
// NOLINTNEXTLINE(performance-unnecessary-value-param): the same
CKXDadosCM_ConsisteRetorno::CKXDadosCM_ConsisteRetorno(eConsisteCM tipo, CString mensagem)
    : TKXConsisteRetorno(ParaBase(tipo), mensagem) {}

CKXDadosCM_ConsisteRetorno& CKXDadosCM_ConsisteRetorno::operator=(
    const CKXDadosCM_ConsisteRetorno& outro) {
  Copiar(&outro);
  return *this;
}

CKXDadosCM_ConsisteRetorno& CKXDadosCM_ConsisteRetorno::operator=(
    CKXDadosCM_ConsisteRetorno&& outro) noexcept {
  TKXConsisteRetorno::operator=(std::move(outro));
  return *this;
}

CKXDadosCM_ConsisteRetorno::~CKXDadosCM_ConsisteRetorno() = default;

CString CKXDadosCM_ConsisteRetorno::RotuloCampoPersonalizado(const long& codigo) {
  return RotuloDoCodigo(codigo);
}

CString CKXDadosCM_ConsisteRetorno::MontaMensagemErroCamposPersonalizados(const long& codigo) {
  return RotuloCampoPersonalizado(codigo) + " deve ser informado.";
}

void CKXDadosCM_ConsisteRetorno::OnLimpar() {
  TKXConsisteRetorno::OnLimpar();
  SeteModuloCodigoKXMensagem(KXModulo::Compras);
}
