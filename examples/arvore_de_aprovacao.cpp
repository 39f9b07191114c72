// Approval rules arrive as a list and become a tree: each rule names the rule of the level above.
// Succeeds when the tree answers what the screens ask of it.
#include <iostream>

#include "ac/DadosAC.h"

namespace {

constexpr std::uint32_t kGerencia = 30;
constexpr std::uint32_t kDiretoria = 20;
constexpr std::uint32_t kPresidencia = 10;

CKXDadosCM_ACAutorizacaoCompra Regra(const char* codigo, std::uint32_t chave, std::uint32_t acima) {
  CKXDadosCM_ACUsuarios grupo;  // either of the two approves
  grupo.AdicionaUsuarios_OR(CKXDadosCM_ACUsuario().SetUsuario(7));
  grupo.AdicionaUsuarios_OR(CKXDadosCM_ACUsuario().SetUsuario(9));
  CKXDadosCM_ACAutorizacaoCompra regra;
  regra.SetCodigo(codigo).SetChaveEste(chave).SetChaveNivelAnterior(acima);
  regra.SetFaixaValorInicial(CY{50000000}).AdicionaUsuarios_AND(grupo);  // from R$ 5.000,00
  return regra;
}

}  // namespace

int main() {
  // Stands for the server: three rules, the lowest one first.
  const kx::RegistroDe gerencia(Regra("GER", kGerencia, kDiretoria));
  const kx::RegistroDe diretoria(Regra("DIR", kDiretoria, kPresidencia));
  const kx::RegistroDe presidencia(Regra("PRE", kPresidencia, 0));
  tagREG_CM_AUTORIZACAO_CMSAUTPS regras[] = {*gerencia, *diretoria, *presidencia};
  tagREG_CM_LE_LISTA_AC_CMSAUTPS lista{};
  lista.QtdAC = 3;
  lista.ListaAC = regras;

  CKXDadosCM_ACTreeAutorizacaoCompra raiz;
  raiz.CopiarDe(&lista);

  CArray<unsigned long> abaixo;  // of the board, itself included
  raiz.LocalizaChaveTodosNosFilhos(kPresidencia, abaixo);
  // May the top rule go below the lowest one? No: it would be above itself.
  const bool ciclo = raiz.EhReferenciaCiclica(kPresidencia, kGerencia);

  std::cout << "regras no topo: " << raiz.GetQuantidadeNodes() << ", com as de baixo "
            << abaixo.GetCount() << '\n';
  return raiz.GetQuantidadeNodes() == 1 && abaixo.GetCount() == 3 && ciclo ? 0 : 1;
}
