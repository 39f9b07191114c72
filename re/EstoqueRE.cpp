#include "re/EstoqueRE.h"

#include <algorithm>

#include "core/Motor.h"

namespace {

// The fields that both forms of a composition line carry.
template <class De, class Para>
void CopiaComposicao(const De& de, Para& para) {
  para.RegPosProduto = de.RegPosProduto;
  para.RegPosProdutoSubstituido = de.RegPosProdutoSubstituido;
  para.RegPonteiroMovimentoOrigem = de.RegPonteiroMovimentoOrigem;
  para.Quantidade = de.Quantidade;
  para.QuantidadeTotal = de.QuantidadeTotal;
  para.Valor4PIUnitaria = de.Valor4PIUnitaria;
  para.PonteiroFilial = de.PonteiroFilial;
  para.PonteiroLote = de.PonteiroLote;
  para.PonteiroForLote = de.PonteiroForLote;
  para.PonteiroForEPTETPE = de.PonteiroForEPTETPE;
  para.PonteiroCliEPTETPE = de.PonteiroCliEPTETPE;
  para.PonteiroVolume = de.PonteiroVolume;
  para.PonteiroControleFCI = de.PonteiroControleFCI;
  para.PonteiroLocal = de.PonteiroLocal;
  para.TipoProducao = de.TipoProducao;
  para.TipoEstoque = de.TipoEstoque;
  para.QuantidadeTotalAlterada = de.QuantidadeTotalAlterada;
  para.ConteudoImportado = de.ConteudoImportado;
  para.CasasDecimais = de.CasasDecimais;
}

template <class T>
bool Contem(const CKXVector<T>& lista, T valor) {
  return std::find(lista.begin(), lista.end(), valor) != lista.end();
}

}  // namespace

CKXDadosCM_REComposicao& CKXDadosCM_REComposicao::CopiarDe(
    const REG_ES_COMPOSICAO_PRODUTOPS* origem) {
  Limpar();
  REG_ES_COMPOSICAO_PRODUTOPS copia;
  if (origem != nullptr && kx::CopiaBloco(&copia, origem, sizeof(copia), kPosicao) != nullptr) {
    CopiaComposicao(copia, _Reg);
  }
  return *this;
}

const CKXDadosCM_REComposicao& CKXDadosCM_REComposicao::CopiarPara(
    REG_ES_COMPOSICAO_PRODUTOPS* destino) const {
  REG_ES_COMPOSICAO_PRODUTOPS copia{};
  CopiaComposicao(_Reg, copia);
  kx::CopiaBloco(destino, &copia, sizeof(copia), kPosicao);
  return *this;
}

const CKXDadosCM_REComposicao& CKXDadosCM_REComposicao::CopiarParaPS(
    REG_ES_COMPOSICAO_PRODUTOPS* destino) const {
  return CopiarPara(destino);
}

void CKXDadosCM_REComposicao::ZerarDelete(REG_ES_COMPOSICAO_PRODUTOPS* registro) {
  kx::LiberaRegistro(registro, kx::Alocador::Delete);
}

void CKXDadosCM_REComposicao::ZerarGlobalAlloc(REG_ES_COMPOSICAO_PRODUTOPS* registro) {
  kx::LiberaRegistro(registro, kx::Alocador::Tarefa);
}

bool CKXDadosCM_REEntradaEstoque::TemDadosNoLote() const {
  return _Reg.LoteESVolume[0] != '\0' || _Reg.LoteESNumero[0] != '\0' ||
         _Reg.LoteESDataValidade != REG_KXDMA{} || _Reg.LoteESDataFabricacao != REG_KXDMA{} ||
         _Reg.LoteESNumeroDeDiaValidade != 0 || _Reg.LoteTipoReferencia != 0 ||
         _Reg.LotePrecoTabelado != CY{} || _Reg.ArmaFogo_Tipo != 0 ||
         _Reg.ArmaFogo_Serie[0] != '\0' || _Reg.ArmaFogo_Cano[0] != '\0' ||
         !_ArmaFogo_Descricao.IsEmpty();
}

CKXDadosCM_REEntradaEstoque& CKXDadosCM_REEntradaEstoque::ZerarDadosDoLote() {
  SetLoteESNumero({}).SetLoteESVolume({}).SetLoteESDataFabricacao({}).SetLoteESDataValidade({});
  SetLoteESNumeroDeDiaValidade(0).SetLotePrecoTabelado({});
  SetArmaFogo_Tipo(0).SetLoteTipoReferencia(0);
  SetArmaFogo_Serie({}).SetArmaFogo_Cano({});
  _ArmaFogo_Descricao.Empty();
  return *this;
}

CKXDadosCM_REQualEntradaEstoque::CKXDadosCM_REQualEntradaEstoque() { kx::Motor::Limpa(*this); }

bool CKXDadosCM_REQualEntradaEstoque::ContemEntrada(int tipoLocal) const {
  return Contem(_ListaTipoLocalEntrada, tipoLocal);
}

bool CKXDadosCM_REQualEntradaEstoque::ContemSaida(int tipoLocal) const {
  return Contem(_ListaTipoLocalSaida, tipoLocal);
}

bool CKXDadosCM_REQualEntradaEstoque::ContemTipo(unsigned char tipo) const {
  return std::any_of(_ListaTipo.begin(), _ListaTipo.end(),
                     [tipo](const auto& elemento) { return elemento.GetTipo() == tipo; });
}
