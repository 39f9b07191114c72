#include "core/TKXCMBaseParaDados.h"

#include <array>
#include <string_view>

KX_IMPLEMENTA_CLASSE(TKXCMBaseParaDados, TKXBaseParaDados)

namespace {

constexpr std::size_t kLinhasComparadas = 3;

std::array<std::string_view, kLinhasComparadas> PrimeirasLinhas(std::string_view texto) {
  constexpr std::string_view kFimDeLinha = "\r\n";
  std::array<std::string_view, kLinhasComparadas> linhas;
  for (std::string_view& linha : linhas) {
    const std::size_t inicio = texto.find_first_not_of(kFimDeLinha);
    if (inicio == std::string_view::npos) break;
    texto.remove_prefix(inicio);
    linha = texto.substr(0, texto.find_first_of(kFimDeLinha));
    texto.remove_prefix(linha.size());
  }
  return linhas;
}

}  // namespace

TKXCMBaseParaDados& TKXCMBaseParaDados::operator=(const TKXCMBaseParaDados& outro) {
  Copiar(&outro);
  return *this;
}

TKXCMBaseParaDados& TKXCMBaseParaDados::Set_CRC(const unsigned long& valor) {
  _CRC = static_cast<std::uint32_t>(valor);
  return *this;
}

TKXCMBaseParaDados& TKXCMBaseParaDados::SetLinhaArquivoImportacao(const int& valor) {
  LinhaArquivoImportacao = valor;
  return *this;
}

void TKXCMBaseParaDados::OnLimpar() {
  _CRC = 0;
  LinhaArquivoImportacao = 0;
  TKXBaseParaDados::OnLimpar();
}

void TKXCMBaseParaDados::OnCopiar(const TKXBaseParaDados* origem) {
  if (origem != nullptr) {
    const auto& outro = static_cast<const TKXCMBaseParaDados&>(*origem);
    _CRC = outro._CRC;
    LinhaArquivoImportacao = outro.LinhaArquivoImportacao;
  }
  TKXBaseParaDados::OnCopiar(origem);
}

void TKXCMBaseParaDados::MoveDe(TKXCMBaseParaDados& outro) noexcept {
  _CRC = outro._CRC;
  LinhaArquivoImportacao = outro.LinhaArquivoImportacao;
}

bool TKXCMBaseParaDados::ComparaComplementoHistorico(const CString& a, const CString& b) {
  return PrimeirasLinhas(a.Vista()) == PrimeirasLinhas(b.Vista());
}

const char* TKXCMBaseParaDados::GetStringErroIntegracaoESSimples() {
  return "Ocorreu um problema na integra\xE7\xE3o com o m\xF3"
         "dulo Estoque, verifique os dados informados";
}

const char* TKXCMBaseParaDados::GetStringPropositalNotEmptyForOC() {
  return "proposital not empty for OC";
}

const char* TKXCMBaseParaDados::GetStringSubstituicaoComplementoES() { return "MMAA-NNNNNN"; }
