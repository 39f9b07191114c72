#include "ac/ArvoreAC.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "ac/Hierarquia.h"
#include "core/Membro.h"
#include "core/Motor.h"
#include "kxldados/Latin1.h"
#include "platform/Plataforma.h"

KX_IMPLEMENTA_CLASSE(CKXDadosCM_ACTreeAutorizacaoCompra, TKXCMBaseParaDados)

namespace {

using Chaves = std::vector<tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS>;

std::string Nome(const CKXDadosCM_ACAutorizacaoCompra& regra) {
  const std::string codigo(regra.GetCodigo());
  const std::string descricao(regra.GetDescricao());
  const char* const entre = codigo.empty() || descricao.empty() ? "" : " ";
  const std::string nome = codigo + entre + descricao;
  return nome.empty() ? "(sem nome)" : kx::LinhaDeLatin1(nome);
}

// What is shown of one node, `acima` being the key of the node above it.
std::string Linha(const CKXDadosCM_ACTreeAutorizacaoCompra& node, std::uint32_t acima) {
  const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS& chaves = node.GetrACSmall();
  std::string linha = std::to_string(chaves.ChaveEste);
  const char* antes = ": ";
  for (const CKXDadosCM_ACAutorizacaoCompra& regra : node.GetListaAC()) {
    linha += antes + Nome(regra);
    antes = "; ";
  }
  if (chaves.ChaveNivelAnterior != acima) {
    linha += " (acima " + std::to_string(chaves.ChaveNivelAnterior) + ')';
  }
  if (node.GethTI() != nullptr) {
    linha += " (item " + std::to_string(reinterpret_cast<std::uintptr_t>(node.GethTI())) + ')';
  }
  return linha;
}

}  // namespace

CKXDadosCM_ACTreeAutorizacaoCompra::CKXDadosCM_ACTreeAutorizacaoCompra() noexcept = default;

CKXDadosCM_ACTreeAutorizacaoCompra::CKXDadosCM_ACTreeAutorizacaoCompra(
    const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS& chaves)
    : _rACSmall(chaves) {}

CKXDadosCM_ACTreeAutorizacaoCompra::CKXDadosCM_ACTreeAutorizacaoCompra(
    const tagREG_CM_AUTORIZACAO_CMSAUTPS* regra) {
  const CKXDadosCM_ACAutorizacaoCompra& ac = _ListaAC.emplace_back().CopiarDe(regra);
  _rACSmall = {ac.GetChaveEste(), ac.GetChaveNivelAnterior()};
}

// Delegates, so that the descendants copied before a failure are destroyed by the destructor.
CKXDadosCM_ACTreeAutorizacaoCompra::CKXDadosCM_ACTreeAutorizacaoCompra(const Node& outro) : Node() {
  CopiaCampos(outro);
  CopiaNodes(outro);
}

CKXDadosCM_ACTreeAutorizacaoCompra::CKXDadosCM_ACTreeAutorizacaoCompra(Node&& outro) noexcept =
    default;

CKXDadosCM_ACTreeAutorizacaoCompra& CKXDadosCM_ACTreeAutorizacaoCompra::operator=(
    const Node& outro) {
  Copiar(&outro);
  return *this;
}

// The source may be below this node, and would go with the children that are replaced.
CKXDadosCM_ACTreeAutorizacaoCompra& CKXDadosCM_ACTreeAutorizacaoCompra::operator=(
    Node&& outro) noexcept {
  if (this == &outro) return *this;
  Node fonte(std::move(outro));
  _rACSmall = fonte._rACSmall;
  _hTI = fonte._hTI;
  _ListaAC = std::move(fonte._ListaAC);
  RemoveTodosNodes();
  _ExNodes = std::move(fonte._ExNodes);
  MoveDe(fonte);
  return *this;
}

CKXDadosCM_ACTreeAutorizacaoCompra::~CKXDadosCM_ACTreeAutorizacaoCompra() { RemoveTodosNodes(); }

void CKXDadosCM_ACTreeAutorizacaoCompra::OnLimpar() {
  _rACSmall = {};
  _hTI = nullptr;
  _ListaAC.clear();
  RemoveTodosNodes();
  TKXCMBaseParaDados::OnLimpar();
}

void CKXDadosCM_ACTreeAutorizacaoCompra::OnCopiar(const TKXBaseParaDados* origem) {
  if (origem == nullptr || origem == this) return;
  *this = Node(static_cast<const Node&>(*origem));
}

bool CKXDadosCM_ACTreeAutorizacaoCompra::OnEstaVazio() const {
  return TKXCMBaseParaDados::OnEstaVazio() && MesmoConteudo(Node());
}

void CKXDadosCM_ACTreeAutorizacaoCompra::CopiaCampos(const Node& origem) {
  _rACSmall = origem._rACSmall;
  _hTI = origem._hTI;
  _ListaAC = origem._ListaAC;
  TKXCMBaseParaDados::OnCopiar(&origem);
}

// Keys, handle, rules and number of children.
bool CKXDadosCM_ACTreeAutorizacaoCompra::MesmoConteudo(const Node& outro) const {
  return kx::RegistrosIguais(_rACSmall, outro._rACSmall) && _hTI == outro._hTI &&
         _ListaAC == outro._ListaAC && GetQuantidadeNodes() == outro.GetQuantidadeNodes();
}

void CKXDadosCM_ACTreeAutorizacaoCompra::CopiaNodes(const Node& origem) {
  struct Adiante {
    POSITION Onde;
    Node* Pai;
  };
  std::vector<Adiante> pilha;
  if (!origem._ExNodes.IsEmpty()) pilha.push_back({origem._ExNodes.GetHeadPosition(), this});
  while (!pilha.empty()) {
    Node* const pai = pilha.back().Pai;
    const Node& de = origem._ExNodes.GetNext(pilha.back().Onde);
    if (pilha.back().Onde == nullptr) pilha.pop_back();
    Node& novo = pai->_ExNodes.EmplaceTail();
    novo.CopiaCampos(de);
    if (!de._ExNodes.IsEmpty()) pilha.push_back({de._ExNodes.GetHeadPosition(), &novo});
  }
}

bool CKXDadosCM_ACTreeAutorizacaoCompra::operator==(const Node& outro) const {
  struct Adiante {
    POSITION A;
    POSITION B;
  };
  std::vector<Adiante> pilha;
  const Node* a = this;
  const Node* b = &outro;
  while (a->MesmoConteudo(*b)) {
    if (!a->_ExNodes.IsEmpty()) {
      pilha.push_back({a->_ExNodes.GetHeadPosition(), b->_ExNodes.GetHeadPosition()});
    }
    if (pilha.empty()) return true;
    a = &_ExNodes.GetNext(pilha.back().A);
    b = &_ExNodes.GetNext(pilha.back().B);
    if (pilha.back().A == nullptr) pilha.pop_back();
  }
  return false;
}

CKXDadosCM_ACTreeAutorizacaoCompra& CKXDadosCM_ACTreeAutorizacaoCompra::CopiarDe(
    const ListaDeChaves& lista) {
  Limpar();
  Chaves chaves;
  chaves.reserve(static_cast<std::size_t>(lista.GetCount()));
  for (POSITION p = lista.GetHeadPosition(); p != nullptr;) chaves.push_back(lista.GetNext(p));
  Monta(chaves, chaves.data());
  return *this;
}

CKXDadosCM_ACTreeAutorizacaoCompra& CKXDadosCM_ACTreeAutorizacaoCompra::CopiarDe(
    const tagREG_CM_LE_LISTA_AC_CMSAUTPS* lista) {
  Limpar();
  tagREG_CM_LE_LISTA_AC_CMSAUTPS copia;
  if (lista == nullptr ||
      kx::CopiaBloco(&copia, lista, sizeof(copia), CKXDadosCM_ACAutorizacaoCompra::kPosicao) ==
          nullptr ||
      copia.ListaAC == nullptr || copia.QtdAC <= 0) {
    return *this;
  }
  std::vector<RegraLida> regras = LeRegras(copia.ListaAC, static_cast<std::size_t>(copia.QtdAC));
  Chaves chaves;
  chaves.reserve(regras.size());
  for (const RegraLida& regra : regras) chaves.push_back(regra.Small);
  Monta(chaves, regras.data());
  return *this;
}

// The rules up to the first that cannot be read, each read once, in source order.
std::vector<CKXDadosCM_ACTreeAutorizacaoCompra::RegraLida>
CKXDadosCM_ACTreeAutorizacaoCompra::LeRegras(const tagREG_CM_AUTORIZACAO_CMSAUTPS* regras,
                                             std::size_t quantas) {
  quantas = kx::ElementosLegiveis(regras, quantas, sizeof(*regras),
                                  CKXDadosCM_ACAutorizacaoCompra::kPosicao);
  std::vector<RegraLida> lidas;
  lidas.reserve(quantas);
  for (std::size_t i = 0; i < quantas; ++i) {
    lidas.push_back({{regras[i].ChaveEste, regras[i].ChaveNivelAnterior}, {}});
    lidas.back().AC.emplace_back(kx::SemLimpar{}).CopiarDe(&regras[i]);
  }
  return lidas;
}

void CKXDadosCM_ACTreeAutorizacaoCompra::Toma(const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS& chaves) {
  _rACSmall = chaves;
}

void CKXDadosCM_ACTreeAutorizacaoCompra::Toma(RegraLida& regra) {
  _rACSmall = regra.Small;
  _ListaAC = std::move(regra.AC);
}

// The nodes are made in pre-order, the order in which they will be walked. What they take may be
// anywhere in the source, so it is asked for in advance.
template <class R>
void CKXDadosCM_ACTreeAutorizacaoCompra::Monta(const Chaves& chaves, R* registros) {
  constexpr std::size_t kAdiante = 12;
  const std::vector<kx::Lugar> lugares = kx::MontaHierarquia(chaves);
  std::vector<Node*> acima;  // parents that a later child goes to
  Node* pai = this;
  for (std::size_t i = 0; i < lugares.size(); ++i) {
    if (i + kAdiante < lugares.size()) {
      kx::plataforma::Antecipa(&registros[lugares[i + kAdiante].Posicao]);
    }
    const kx::Lugar& lugar = lugares[i];
    Node& novo = pai->_ExNodes.EmplaceTail();
    novo.Toma(registros[lugar.Posicao]);
    if (lugar.TemFilhos) {
      if (lugar.TemIrmao) acima.push_back(pai);
      pai = &novo;
    } else if (!lugar.TemIrmao && !acima.empty()) {
      pai = acima.back();
      acima.pop_back();
    }
  }
}

CKXDadosCM_ACTreeAutorizacaoCompra* CKXDadosCM_ACTreeAutorizacaoCompra::AdicionaNode(
    const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS& chaves) {
  return Anexa(Node(chaves));
}

CKXDadosCM_ACTreeAutorizacaoCompra* CKXDadosCM_ACTreeAutorizacaoCompra::AdicionaNode(
    const tagREG_CM_AUTORIZACAO_CMSAUTPS* regra) {
  return Anexa(Node(regra));
}

CKXDadosCM_ACTreeAutorizacaoCompra* CKXDadosCM_ACTreeAutorizacaoCompra::Anexa(Node&& novo) {
  Node* const pai = AchaNode(novo._rACSmall.ChaveNivelAnterior);
  return pai != nullptr ? &pai->_ExNodes.EmplaceTail(std::move(novo)) : nullptr;
}

CKXDadosCM_ACTreeAutorizacaoCompra& CKXDadosCM_ACTreeAutorizacaoCompra::AdicionaExNodes(
    const Node& node) {
  Node copia(node);
  _ExNodes.EmplaceTail(std::move(copia));
  return *this;
}

// Every child hands its own children over before it is destroyed, so none has any by then. Nodes go
// in pre-order, as they came: in another order the allocator's free lists end up shuffled, and the
// next large tree takes twice as long.
CKXDadosCM_ACTreeAutorizacaoCompra&
CKXDadosCM_ACTreeAutorizacaoCompra::RemoveTodosNodes() noexcept {
  while (!_ExNodes.IsEmpty()) {
    const POSITION primeiro = _ExNodes.GetHeadPosition();
    _ExNodes.Antepoe(_ExNodes.GetAt(primeiro)._ExNodes);
    _ExNodes.RemoveAt(primeiro);
  }
  return *this;
}

CKXDadosCM_ACTreeAutorizacaoCompra* CKXDadosCM_ACTreeAutorizacaoCompra::AchaNode(
    unsigned long chave) {
  return const_cast<Node*>(std::as_const(*this).AchaNode(chave));
}

const CKXDadosCM_ACTreeAutorizacaoCompra* CKXDadosCM_ACTreeAutorizacaoCompra::AchaNode(
    unsigned long chave) const {
  for (auto [node, nivel] : Percorre()) {
    if (node._rACSmall.ChaveEste == chave) return &node;
  }
  return nullptr;
}

bool CKXDadosCM_ACTreeAutorizacaoCompra::DeletarNode(unsigned long chave) {
  for (auto i = Percorre().begin(); i._node != nullptr; ++i) {
    if (i._node->_rACSmall.ChaveEste != chave) continue;
    i._pai->_ExNodes.RemoveAt(i._onde);
    return true;
  }
  return false;
}

// Where a level has more digits than lines are wide, indenting on would take the square of the
// depth.
void CKXDadosCM_ACTreeAutorizacaoCompra::Descreve(kx::Descricao& descricao) const {
  constexpr std::size_t kUltimoRecuo = 40;
  const bool mostraEste = _rACSmall.ChaveEste != 0 || _rACSmall.ChaveNivelAnterior != 0 ||
                          _hTI != nullptr || GetQuantidadeAC() != 0;
  if (mostraEste) descricao.Linha(Linha(*this, 0));
  for (auto i = Percorre().begin(); i._node != nullptr; ++i) {
    const std::size_t nivel = i._nivel - (mostraEste ? 0 : 1);
    descricao.Linha(std::string(2 * std::min(nivel, kUltimoRecuo), ' ') +
                    Linha(*i._node, i._pai->_rACSmall.ChaveEste));
  }
}

// A node as an element of the list of all, with its level.
struct CKXDadosCM_ACTreeAutorizacaoCompra::NoDaLista {
  using Esta = NoDaLista;
  using Registro = tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS;

  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(Nivel));
    v.Local(KX_DO_OBJETO(hTI));
    v.Local(KX_DO_OBJETO(ListaAC));
  }
  void ListaDiferencas(const NoDaLista& depois, kx::Comparacao& saida) const {
    kx::Diferenciador::Objeto(*this, depois, saida);
  }

  Registro _Reg;
  std::uint64_t _Nivel;
  std::uint64_t _hTI;
  CKXVector<CKXDadosCM_ACAutorizacaoCompra> _ListaAC;
};

auto CKXDadosCM_ACTreeAutorizacaoCompra::EmLista() const -> CKXVector<NoDaLista> {
  CKXVector<NoDaLista> lista;
  for (Iterador<const Node> i(*this); i._node != nullptr; ++i) {
    lista.push_back({i._node->_rACSmall, i._nivel, reinterpret_cast<std::uintptr_t>(i._node->_hTI),
                     i._node->_ListaAC});
  }
  return lista;
}

void CKXDadosCM_ACTreeAutorizacaoCompra::ListaDiferencas(const Node& depois,
                                                         kx::Comparacao& saida) const {
  kx::Diferenciador::Valor("Node", true, EmLista(), depois.EmLista(), saida);
}

HTREEITEM CKXDadosCM_ACTreeAutorizacaoCompra::AchaItemArvore(unsigned long chave) const {
  for (Iterador<const Node> i(*this); i._node != nullptr;) {
    const bool achou = i._node->_rACSmall.ChaveEste == chave;
    if (achou && i._node->_hTI != nullptr) return i._node->_hTI;
    i.Avanca(!achou);
  }
  return nullptr;
}

unsigned long CKXDadosCM_ACTreeAutorizacaoCompra::AchaPonteiroArvore(HTREEITEM item) const {
  for (Iterador<const Node> i(*this); i._node != nullptr;) {
    const bool achou = i._node->_hTI == item;
    if (achou && i._node->_rACSmall.ChaveEste != 0) return i._node->_rACSmall.ChaveEste;
    i.Avanca(!achou);
  }
  return 0;
}

bool CKXDadosCM_ACTreeAutorizacaoCompra::EhReferenciaCiclica(unsigned long chave,
                                                             unsigned long procurada) const {
  constexpr std::size_t kFora = ~std::size_t{0};
  std::size_t topo = kFora;  // the level of the node with the key in whose subtree the walk is
  for (Iterador<const Node> i(*this); i._node != nullptr; ++i) {
    const unsigned long esta = i._node->_rACSmall.ChaveEste;
    if (i._nivel <= topo) topo = chave == 0 || esta == chave ? i._nivel : kFora;
    if (topo != kFora && esta == procurada) return true;
  }
  return false;
}

void CKXDadosCM_ACTreeAutorizacaoCompra::LocalizaChaveTodosNosFilhos(
    unsigned long chave, CArray<unsigned long>& chaves) const {
  chaves = {};
  chaves.Add(chave);
  for (POSITION p = _ExNodes.GetHeadPosition(); p != nullptr;) {
    AdicionaChaveTodosNosFilhos(chave, _ExNodes.GetNext(p), chaves);
  }
}

void CKXDadosCM_ACTreeAutorizacaoCompra::AdicionaChaveTodosNosFilhos(
    unsigned long chave, const Node& node, CArray<unsigned long>& chaves) {
  for (Iterador<const Node> i(node); i._node != nullptr;) {
    const bool nomeia = i._node->_rACSmall.ChaveNivelAnterior == chave;
    if (nomeia) {
      chaves.Add(i._node->_rACSmall.ChaveEste);
      AdicionaChaveTodosNosFilhos2(*i._node, chaves);
    }
    i.Avanca(!nomeia);
  }
}

void CKXDadosCM_ACTreeAutorizacaoCompra::AdicionaChaveTodosNosFilhos2(
    const Node& node, CArray<unsigned long>& chaves) {
  for (auto [abaixo, nivel] : node.Percorre()) chaves.Add(abaixo._rACSmall.ChaveEste);
}
