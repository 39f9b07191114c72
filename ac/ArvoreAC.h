// The hierarchy of approval rules: each rule names the rule of the level above it, so the rules of
// a company are a forest. A node is one rule; an unkeyed root holds the forest.
//
//   CKXDadosCM_ACTreeAutorizacaoCompra raiz;
//   raiz.CopiarDe(&lista);                                  // list of rules from the server
//   if (!raiz.EhReferenciaCiclica(chave, novaSuperior)) ... // may go below novaSuperior
//   CArray<unsigned long> chaves;
//   raiz.LocalizaChaveTodosNosFilhos(chave, chaves);        // the rule and all below it
//
//   raiz.AdicionaExNodes(CKXDadosCM_ACTreeAutorizacaoCompra(regra));  // of the top level
//   raiz.AdicionaNode(regra);                                         // below its level above
//   if (auto* node = raiz.AchaNode(chave)) node->GetPtrAC(0)->SetCodigo("DIR");
//   for (auto [node, nivel] : raiz.Percorre()) Mostra(node, nivel);   // those above first
//   std::cout << raiz;                                                // a line for each
//   raiz.DeletarNode(chave);                                          // with all below it
//
// Depth is bounded by memory alone: no operation recurses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "ac/RegrasAC.h"
#include "core/Descreve.h"
#include "core/Diferenca.h"
#include "core/Membro.h"
#include "kxldados/CArray.h"
#include "kxldados/CList.h"

// Handle of the tree-view item that displays a node; stored and compared, never dereferenced.
struct _TREEITEM;
using HTREEITEM = _TREEITEM*;

// One node with its subtree: the keys of the rule and of the level above (rACSmall), the tree-view
// item (hTI, null when not shown), the rules attached to it (AC) and its child nodes.
//
// Children are held by value, in the order in which they were added. A child's address stays valid
// until that child is removed, whatever happens to its siblings; assigning to a node, clearing it
// and rebuilding it remove its children. Copies are deep and refer to the same tree-view items.
// Equality compares keys, handles, rules and children, in depth.
//
// Building, copying, comparing and the searches throw std::bad_alloc; copying then leaves the node
// as it was, building leaves it with fewer descendants. Keys have 32 bits: a search for a larger
// one finds nothing.
class KX_API CKXDadosCM_ACTreeAutorizacaoCompra : public TKXCMBaseParaDados {
  KX_DECLARA_CLASSE(CKXDadosCM_ACTreeAutorizacaoCompra)

 public:
  // The child nodes, and the keys of rules in a list, as the hierarchy is built from.
  using Nodes = CList<CKXDadosCM_ACTreeAutorizacaoCompra>;
  using ListaDeChaves =
      CList<tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS, const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS&>;

  CKXDadosCM_ACTreeAutorizacaoCompra() noexcept;
  // A node with those keys and no rule.
  explicit CKXDadosCM_ACTreeAutorizacaoCompra(const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS& chaves);
  // A node with that rule, its keys those of the rule. Null gives an empty rule.
  explicit CKXDadosCM_ACTreeAutorizacaoCompra(const tagREG_CM_AUTORIZACAO_CMSAUTPS* regra);
  CKXDadosCM_ACTreeAutorizacaoCompra(const CKXDadosCM_ACTreeAutorizacaoCompra& outro);
  CKXDadosCM_ACTreeAutorizacaoCompra(CKXDadosCM_ACTreeAutorizacaoCompra&& outro) noexcept;
  CKXDadosCM_ACTreeAutorizacaoCompra& operator=(const CKXDadosCM_ACTreeAutorizacaoCompra& outro);
  CKXDadosCM_ACTreeAutorizacaoCompra& operator=(
      CKXDadosCM_ACTreeAutorizacaoCompra&& outro) noexcept;
  ~CKXDadosCM_ACTreeAutorizacaoCompra() override;

  bool operator==(const CKXDadosCM_ACTreeAutorizacaoCompra& outro) const;
  bool operator!=(const CKXDadosCM_ACTreeAutorizacaoCompra& outro) const {
    return !(*this == outro);
  }

  KX_MEMBRO(CKXDadosCM_ACTreeAutorizacaoCompra, tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS, rACSmall)
  KX_MEMBRO(CKXDadosCM_ACTreeAutorizacaoCompra, HTREEITEM, hTI)
  KX_COLECAO(CKXDadosCM_ACTreeAutorizacaoCompra, AC, CKXDadosCM_ACAutorizacaoCompra)

  // Clear this node and build the hierarchy of the records below it; the list of rules gives every
  // node its rule as well. Neither source is kept.
  //
  // Records without a level above become children of this node, in source order. The others follow
  // their parents, each attached as its parent's last child as soon as it can be, the first in the
  // source first. Records whose parent is missing, or that name each other, are left out without a
  // message. Of several nodes with the key of a parent, the one in the index takes the children,
  // and when the index has none, the first in pre-order: the children of this node enter the index,
  // and those attached by pre-order, each in place of what was there; those attached by the index
  // do not. The cost is linear in the number of records, in any order of them.
  //
  // A null list, a count that is not positive and a null array give an empty node; rules that
  // cannot be read end the list.
  CKXDadosCM_ACTreeAutorizacaoCompra& CopiarDe(const ListaDeChaves& lista);
  CKXDadosCM_ACTreeAutorizacaoCompra& CopiarDe(const tagREG_CM_LE_LISTA_AC_CMSAUTPS* lista);

  // Attaches one record to the hierarchy as it stands: as the last child of the first descendant,
  // in pre-order, whose key is the record's level above, the one that AchaNode finds. This node's
  // own key is not looked at, so a rule of the top level is attached by AdicionaExNodes instead.
  // Returns the new node, which this hierarchy owns; null when there is no such descendant.
  CKXDadosCM_ACTreeAutorizacaoCompra* AdicionaNode(
      const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS& chaves);
  CKXDadosCM_ACTreeAutorizacaoCompra* AdicionaNode(const tagREG_CM_AUTORIZACAO_CMSAUTPS* regra);

  // Appends a deep copy of the node, which may be this one or part of this hierarchy, as the last
  // child: on the root, a rule of the top level. Its level above is not looked at.
  CKXDadosCM_ACTreeAutorizacaoCompra& AdicionaExNodes(
      const CKXDadosCM_ACTreeAutorizacaoCompra& node);
  // Removes every child, with what is below it.
  CKXDadosCM_ACTreeAutorizacaoCompra& RemoveTodosNodes() noexcept;
  // Direct children alone.
  long long GetQuantidadeNodes() const noexcept { return _ExNodes.GetCount(); }
  // The children themselves.
  Nodes& GetExNodes() noexcept { return _ExNodes; }
  const Nodes& GetExNodes() const noexcept { return _ExNodes; }

  // The first descendant in pre-order with that key, this node not included; null when there is
  // none. It belongs to this hierarchy.
  CKXDadosCM_ACTreeAutorizacaoCompra* AchaNode(unsigned long chave);
  const CKXDadosCM_ACTreeAutorizacaoCompra* AchaNode(unsigned long chave) const;
  // Removes the node that AchaNode finds, with what is below it; false when there is none.
  bool DeletarNode(unsigned long chave);

  // A step of a walk.
  template <class N>
  struct Passo {
    N& Node;            // the node that is visited
    std::size_t Nivel;  // 0 for the children of the node on which the walk was asked for
  };
  // Stands behind the last node.
  struct FimDoPercurso {};

  // An input iterator over nodes: the one where the walk begins, then those below it.
  template <class N>
  class Iterador {
   public:
    // What the algorithms of the standard library ask for.
    using value_type = Passo<N>;
    using difference_type = std::ptrdiff_t;

    // At that node, whose level does not count.
    explicit Iterador(N& raiz) noexcept : _node(&raiz) {}

    // The node and its level.
    Passo<N> operator*() const noexcept { return {*_node, _nivel - 1}; }
    // To the next node. Throws std::bad_alloc.
    Iterador& operator++() {
      Avanca(true);
      return *this;
    }
    void operator++(int) { Avanca(true); }
    // Behind the last node.
    bool operator==(FimDoPercurso) const noexcept { return _node == nullptr; }

   private:
    friend class CKXDadosCM_ACTreeAutorizacaoCompra;

    // A list of children that is not yet at its end. A list leaves the stack with its last node, so
    // a chain needs one place of it, however long.
    struct Adiante {
      POSITION Onde;
      N* Pai;
      std::size_t Nivel;
    };

    // To the next node; past what is below this one, where that is not wanted.
    void Avanca(bool desce) {
      if (desce && !_node->_ExNodes.IsEmpty()) {
        _pilha.push_back({_node->_ExNodes.GetHeadPosition(), _node, _nivel + 1});
      }
      if (_pilha.empty()) {
        _node = nullptr;
        return;
      }
      Adiante& lista = _pilha.back();
      _pai = lista.Pai;
      _onde = lista.Onde;
      _nivel = lista.Nivel;
      _node = &_pai->_ExNodes.GetNext(lista.Onde);
      if (lista.Onde == nullptr) _pilha.pop_back();
    }

    std::vector<Adiante> _pilha;
    N* _node;
    N* _pai = nullptr;         // null at the beginning
    POSITION _onde = nullptr;  // of the node, in its parent's list
    std::size_t _nivel = 0;    // 0 at the beginning
  };

  // A walk down from a node, without recursion: what Percorre returns.
  template <class N>
  class Percurso {
   public:
    // Below that node, which must outlive the walk.
    Percurso(N& raiz) noexcept : _raiz(&raiz) {}
    // At the first node below it; behind the last.
    Iterador<N> begin() const {
      Iterador<N> primeiro(*_raiz);
      ++primeiro;
      return primeiro;
    }
    FimDoPercurso end() const noexcept { return {}; }

   private:
    N* _raiz;
  };

  // The descendants for a range-for, in pre-order: each before what is below it, siblings in their
  // order. This node is not among them.
  //
  //   for (auto [node, nivel] : raiz.Percorre()) ...
  //
  // Meanwhile the node that is visited may get and lose children, which are visited next; nothing
  // else of the hierarchy may be added, removed or moved. A step throws std::bad_alloc.
  Percurso<CKXDadosCM_ACTreeAutorizacaoCompra> Percorre() & noexcept { return {*this}; }
  Percurso<const CKXDadosCM_ACTreeAutorizacaoCompra> Percorre() const& noexcept { return {*this}; }
  // Of a temporary, which would be gone before the first step.
  Percurso<const CKXDadosCM_ACTreeAutorizacaoCompra> Percorre() const&& = delete;

  // A line for each node in pre-order, indented by two blanks a level as far as the fortieth:
  //
  //   10: PRE Presidencia
  //     20: DIR Diretoria
  //
  // The key, then code and description of each of its rules. What is unusual follows: the level
  // above, "(acima 7)", where it is not the key of the node above, and the tree-view item, if it
  // has one. This node comes first, unless it has nothing to show, as a root; operator<< writes the
  // same.
  void Descreve(kx::Descricao& descricao) const;

  // What kx::Diferencas answers of two hierarchies (core/Diferenca.h). Nodes are elements of one
  // list in pre-order, this one the first, and their level is a value of theirs: "Node[3].Nivel".
  void ListaDiferencas(const CKXDadosCM_ACTreeAutorizacaoCompra& depois,
                       kx::Comparacao& saida) const;

  // The tree-view item of the first node in pre-order, this one included, with that key; null when
  // there is none. A node with the key and no item is passed over together with what is below it.
  HTREEITEM AchaItemArvore(unsigned long chave) const;
  // The key of the first node in pre-order, this one included, with that item; 0 when there is
  // none. A node with the item and key 0 is passed over together with what is below it.
  unsigned long AchaPonteiroArvore(HTREEITEM item) const;

  // True when a node with key `procurada` is in the subtree of a node with key `chave`, the node
  // itself included: `chave` below `procurada` would then close a cycle. With `chave` 0, whether
  // `procurada` is the key of any node, this one included.
  bool EhReferenciaCiclica(unsigned long chave, unsigned long procurada) const;

  // Replaces the contents of the array by the key and the keys of all nodes below it, in pre-order:
  // every descendant of this node that names the key as its level above, with its whole subtree.
  void LocalizaChaveTodosNosFilhos(unsigned long chave, CArray<unsigned long>& chaves) const;

 protected:
  void OnLimpar() override;
  void OnCopiar(const TKXBaseParaDados* origem) override;
  bool OnEstaVazio() const override;

 private:
  using Node = CKXDadosCM_ACTreeAutorizacaoCompra;

  // A rule that was read, before its node exists.
  struct RegraLida {
    tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS Small;
    CKXVector<CKXDadosCM_ACAutorizacaoCompra> AC;
  };

  static std::vector<RegraLida> LeRegras(const tagREG_CM_AUTORIZACAO_CMSAUTPS* regras,
                                         std::size_t quantas);
  template <class R>
  KX_LOCAL void Monta(const std::vector<tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS>& chaves,
                      R* registros);
  void Toma(const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS& chaves);
  void Toma(RegraLida& regra);
  Node* Anexa(Node&& novo);
  static void AdicionaChaveTodosNosFilhos(unsigned long chave, const Node& node,
                                          CArray<unsigned long>& chaves);
  static void AdicionaChaveTodosNosFilhos2(const Node& node, CArray<unsigned long>& chaves);
  void CopiaCampos(const Node& origem);
  void CopiaNodes(const Node& origem);
  bool MesmoConteudo(const Node& outro) const;
  struct NoDaLista;
  CKXVector<NoDaLista> EmLista() const;

  Nodes _ExNodes;
};
