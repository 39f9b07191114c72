// The hierarchy of approval rules: each rule names the rule of the level above it, so the rules of
// a company are a forest. A node is one rule; an unkeyed root holds the forest.
//
//   CKXDadosCM_ACTreeAutorizacaoCompra raiz;
//   raiz.CopiarDe(&lista);                                  // list of rules from the server
//   if (!raiz.EhReferenciaCiclica(chave, novaSuperior)) ... // may go below novaSuperior
//   CArray<unsigned long> chaves;
//   raiz.LocalizaChaveTodosNosFilhos(chave, chaves);        // the rule and all below it
//
// Depth is bounded by memory alone: no operation recurses.
#pragma once

#include <cstdint>
#include <vector>

#include "ac/RegrasAC.h"
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
  // in pre-order, whose key is the record's level above. This node's own key is not looked at.
  // Returns the new node, which this hierarchy owns; null when there is no such descendant.
  CKXDadosCM_ACTreeAutorizacaoCompra* AdicionaNode(
      const tagREG_CM_AUTORIZACAO_SMALL_CMSAUTPS& chaves);
  CKXDadosCM_ACTreeAutorizacaoCompra* AdicionaNode(const tagREG_CM_AUTORIZACAO_CMSAUTPS* regra);

  // Appends a deep copy of the node, which may be this one or part of this hierarchy.
  CKXDadosCM_ACTreeAutorizacaoCompra& AdicionaExNodes(
      const CKXDadosCM_ACTreeAutorizacaoCompra& node);
  // Removes every child, with what is below it.
  CKXDadosCM_ACTreeAutorizacaoCompra& RemoveTodosNodes() noexcept;
  // Direct children alone.
  long long GetQuantidadeNodes() const noexcept { return _ExNodes.GetCount(); }
  // The children themselves.
  Nodes& GetExNodes() noexcept { return _ExNodes; }
  const Nodes& GetExNodes() const noexcept { return _ExNodes; }

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

  // What a visit to a node says of the walk: on to the children, past them, or no further.
  enum class Passo : std::uint8_t { Desce, Pula, Termina };

  template <class N, class Visita>
  static void Percorre(N& raiz, unsigned long chave, Visita visita);
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

  Nodes _ExNodes;
};
