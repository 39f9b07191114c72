#include "Resumo.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "Json.h"
#include "cc/RegistrosCC.h"
#include "cp/RegistrosCP.h"
#include "ct/RegistrosCT.h"
#include "kxldados/ChaveNFe.h"
#include "kxldados/Datas.h"
#include "kxldados/Latin1.h"
#include "oc/RegistrosOC.h"
#include "re/RegistrosRE.h"
#include "sc/RegistrosSC.h"

namespace kxdados {

namespace {

using Talvez = std::optional<std::string>;

template <std::size_t N>
Talvez Texto(const char (&texto)[N]) {
  const char* const fim = std::find(std::begin(texto), std::end(texto), '\0');
  if (fim == texto) return {};
  return kx::UTF8DeLatin1({texto, static_cast<std::size_t>(fim - texto)});
}

Talvez Data(const REG_KXDMA& data) {
  if (!kx::DataValida(data)) return {};
  return DataISO(data);
}

Talvez Propria(const REG_KXDMC& chave) {
  if (chave == REG_KXDMC{}) return {};
  return DataISO(chave.Data) + '/' + std::to_string(chave.Contador);
}

Talvez Propria(std::int32_t chave) {
  if (chave == 0) return {};
  return std::to_string(chave);
}

std::optional<std::int64_t> Valor(CY valor) {
  if (valor.int64 == 0) return {};
  return valor.int64;
}

void PoeAcesso(const _KX_NFE_ps& acesso, Resumo& resumo) {
  constexpr std::size_t kEmitente = 6;
  constexpr std::size_t kDigitos = 14;
  const std::string texto = kx::TextoDeChave(acesso);
  if (texto.empty()) return;
  resumo.Chave = texto;
  resumo.Emitente = texto.substr(kEmitente, kDigitos);
}

// A service invoice's key says of what kind the issuer's number is, and has zeros before a short
// one.
Talvez EmitenteDoServico(const std::string& chave) {
  constexpr std::size_t kTipo = 8;
  constexpr std::size_t kFim = 23;
  if (chave.size() < kFim) return {};
  const std::size_t digitos = chave[kTipo] == '1' ? 11 : 14;
  return chave.substr(kFim - digitos, digitos);
}

Resumo De(const tagREG_ENTRADAPS& r) {
  const CY total =
      r.ValorTotalNotaFiscalNFe.int64 != 0 ? r.ValorTotalNotaFiscalNFe : r.ValorTotalNotaFiscal;
  Resumo resumo{Propria(r.RegPonteiroEsteRE),
                Texto(r.NumeroNotaFiscal),
                Texto(r.SerieNotaFiscal),
                Data(r.RegDataEmissao),
                {},
                Valor(total)};
  PoeAcesso(r.RegNFe, resumo);
  if (resumo.Chave.has_value()) return resumo;
  resumo.Chave = Texto(r.ChaveNFSe);
  resumo.Emitente = EmitenteDoServico(resumo.Chave.value_or(""));
  return resumo;
}

Resumo De(const tagREG_CONHECIMENTOPS& r) {
  Resumo resumo{Propria(r.RegPonteiroEsteCT),
                Texto(r.NumeroConhecimentoTransporte),
                Texto(r.SerieConhecimentoTransporte),
                Data(r.RegDataEmissao),
                {},
                Valor(r.ValorTotalCTe)};
  PoeAcesso(r.RegCTe, resumo);
  return resumo;
}

Resumo De(const tagREG_ORDEMPS& r) {
  return {Propria(r.RegChaveEsteOC),     Texto(r.Codigo), {}, Data(r.RegDataEmissao), {},
          Valor(r.ValorTotalOrdemCompra)};
}

Resumo De(const tagREG_SOLICITACAO_COMPRAPS& r) {
  return {Propria(r.RegPonteiroEsteSC),
          Texto(r.CodigoSolicitacao),
          {},
          Data(r.DataSolicitacao),
          {},
          {}};
}

Resumo De(const tagREG_COTACAOPS& r) {
  return {Propria(r.PonteiroEsteCP), Texto(r.CodigoCotacao), {}, Data(r.DataCotacao), {}, {}};
}

Resumo De(const tagREG_CONTRATO_COMPRAPS& r) {
  return {Propria(r.RegPonteiroEsteCC), Texto(r.NumeroContrato), {}, {}, {},
          Valor(r.ValorTotalContrato)};
}

template <class REG>
bool PoeSeDe(const KXRegistroInfo& info, const void* registro, Resumo& resumo) {
  if (info.Nome != std::string_view(KXMetadados<REG>::kInfo.Nome)) return false;
  resumo = De(*static_cast<const REG*>(registro));
  return true;
}

template <class... REG>
Resumo Procura(const KXRegistroInfo& info, const void* registro) {
  Resumo resumo;
  (PoeSeDe<REG>(info, registro, resumo) || ...);
  return resumo;
}

}  // namespace

Resumo ResumoDe(const KXRegistroInfo& info, const void* registro) {
  return Procura<tagREG_ENTRADAPS, tagREG_CONHECIMENTOPS, tagREG_ORDEMPS,
                 tagREG_SOLICITACAO_COMPRAPS, tagREG_COTACAOPS, tagREG_CONTRATO_COMPRAPS>(info,
                                                                                          registro);
}

std::string ChaveGuardada(std::string chave) {
  constexpr std::size_t kDeServico = 50;
  if (chave.size() == kDeServico) chave.resize(sizeof(tagREG_ENTRADAPS::ChaveNFSe) - 1);
  return chave;
}

}  // namespace kxdados
