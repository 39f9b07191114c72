// Approval rules arrive as a list and become a tree: each rule names the rule of the level above.
// Shows it, and succeeds when it answers what the screens ask of it.
#include <algorithm>
#include <iostream>

#include "ac/DadosAC.h"
#include "kxldados/Dinheiro.h"

using namespace kx::literais;

namespace {

constexpr std::uint32_t kGerencia = 30;
constexpr std::uint32_t kCompras = 31;
constexpr std::uint32_t kDiretoria = 20;
constexpr std::uint32_t kPresidencia = 10;
constexpr std::uint32_t kConselho = 11;

CKXDadosCM_ACAutorizacaoCompra Regra(const char* codigo, std::uint32_t chave, std::uint32_t acima) {
  CKXDadosCM_ACUsuarios grupo;  // either of the two approves
  grupo.AdicionaUsuarios_OR(CKXDadosCM_ACUsuario().SetUsuario(7));
  grupo.AdicionaUsuarios_OR(CKXDadosCM_ACUsuario().SetUsuario(9));
  CKXDadosCM_ACAutorizacaoCompra regra;
  regra.SetCodigo(codigo).SetChaveEste(chave).SetChaveNivelAnterior(acima);
  regra.SetFaixaValorInicial("5.000,00"_rs).AdicionaUsuarios_AND(grupo);
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

  // A rule below another, found by its level above; and one of the top level, which has none.
  const kx::RegistroDe compras(Regra("COM", kCompras, kDiretoria));
  const bool entrou = raiz.AdicionaNode(compras.GetPtr()) != nullptr;
  const kx::RegistroDe conselho(Regra("CON", kConselho, 0));
  raiz.AdicionaExNodes(CKXDadosCM_ACTreeAutorizacaoCompra(conselho.GetPtr()));

  // Find one by its key, and what is attached to it.
  CKXDadosCM_ACTreeAutorizacaoCompra* const achada = raiz.AchaNode(kDiretoria);
  if (achada != nullptr) achada->GetPtrAC(0)->SetDescricao("Diretoria");

  // Every rule with its level, those above first; 0 is the top.
  std::size_t niveis = 0;
  for (auto [node, nivel] : raiz.Percorre()) {  // a reference to the node, and a number
    std::cout << nivel << ": " << node.GetrACSmall().ChaveEste << '\n';
    niveis = std::max(niveis, nivel + 1);
  }

  std::cout << raiz;                                 // a line for each
  const bool saiu = raiz.DeletarNode(kPresidencia);  // with all below it
  std::cout << "depois:\n" << raiz;

  const bool certo = abaixo.GetCount() == 3 && ciclo && entrou && achada != nullptr;
  return certo && niveis == 3 && saiu && raiz.GetQuantidadeNodes() == 1 ? 0 : 1;
}
