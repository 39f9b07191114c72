#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <stdexcept>
#include <type_traits>

#include "kxldados/CArray.h"
#include "kxldados/CKXVector.h"
#include "kxldados/CList.h"
#include "kxldados/CString.h"

namespace {

template <class F>
void EsperaRecusa(const char* texto, F&& acao) {
  try {
    acao();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const std::out_of_range& erro) {
    EXPECT_STREQ(erro.what(), texto);
  }
}

constexpr const char* kErroVetor = "invalid vector<T> subscript";
constexpr const char* kErroArray = "invalid CArray subscript";

template <class T>
CKXVector<T> Valores(const CList<T>& lista) {
  CKXVector<T> valores;
  for (POSITION p = lista.GetHeadPosition(); p != nullptr;) valores.push_back(lista.GetNext(p));
  return valores;
}

}  // namespace

TEST(Vetor, IndiceTestadoForaEhRecusadoSemEfeito) {
  CKXVector<CString> v{"a", "b", "c"};
  const CKXVector<CString> antes = v;
  for (const long long indice : {3LL, -1LL, LLONG_MIN, LLONG_MAX}) {
    EsperaRecusa(kErroVetor, [&] { v.at(static_cast<std::size_t>(indice)); });
    EsperaRecusa(kErroVetor, [&] { v.Troca(indice, 0); });
    EsperaRecusa(kErroVetor, [&] { v.Troca(0, indice); });
    EsperaRecusa(kErroVetor, [&] { v.Deleta(indice); });
  }
  EXPECT_EQ(v, antes);
}

TEST(Vetor, TrocaEDeleta) {
  CKXVector<CString> v{"a", "b", "c"};
  v.Troca(0, 2);
  v.Troca(1, 1);
  EXPECT_EQ(v, (CKXVector<CString>{"c", "b", "a"}));
  v.Deleta(0);
  EXPECT_EQ(v, (CKXVector<CString>{"b", "a"}));
  EXPECT_FALSE(v == CKXVector<CString>{"b"});
}

TEST(Vetor, CresceMovendoEAceitaElementoSeu) {
  CKXVector<std::unique_ptr<int>> soMove;
  soMove.emplace_back(std::make_unique<int>(1));
  soMove.reserve(soMove.capacity() + 1);
  EXPECT_EQ(*soMove.at(0), 1);
  CKXVector<CString> v{CString(std::string(50, 'x'))};
  while (v.size() < 9) v.push_back(v[0]);
  EXPECT_EQ(v.back(), v.front());
  const CKXVector<CString> destino = std::move(v);
  EXPECT_TRUE(v.empty());
  EXPECT_EQ(destino.size(), 9u);
  static_assert(std::is_nothrow_move_constructible_v<CKXVector<CString>> &&
                std::is_nothrow_move_assignable_v<CKXVector<CString>>);
}

TEST(Lista, LigaERetiraEmQualquerLugar) {
  CList<int> lista;
  EXPECT_EQ(lista.GetHeadPosition(), nullptr);
  const POSITION dois = lista.AddTail(2);
  lista.AddTail(3);
  lista.AddHead(1);
  EXPECT_EQ(Valores(lista), (CKXVector<int>{1, 2, 3}));
  lista.RemoveAt(dois);
  EXPECT_EQ(Valores(lista), (CKXVector<int>{1, 3}));
  lista.RemoveAt(lista.Find(3));
  lista.AddTail(4);
  lista.RemoveAt(lista.GetHeadPosition());
  lista.AddHead(0);
  EXPECT_EQ(Valores(lista), (CKXVector<int>{0, 4}));
  EXPECT_EQ(lista.GetCount(), 2);
  lista.RemoveAll();
  EXPECT_TRUE(lista.IsEmpty());
  lista.AddHead(5);
  EXPECT_EQ(Valores(lista), CKXVector<int>{5});
}

TEST(Lista, ProcuraDaPosicaoDada) {
  CList<int> lista;
  for (const int valor : {7, 8, 7}) lista.AddTail(valor);
  POSITION p = lista.Find(7);
  EXPECT_EQ(p, lista.GetHeadPosition());
  EXPECT_EQ(lista.GetNext(p), 7);
  p = lista.Find(7, p);
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(lista.GetNext(p), 7);
  EXPECT_EQ(p, nullptr);
  EXPECT_EQ(lista.Find(9), nullptr);
}

TEST(Lista, CopiasSaoIndependentes) {
  CList<CString> lista;
  lista.AddTail("a");
  CList<CString> copia = lista;
  copia.AddTail("b");
  EXPECT_EQ(Valores(lista), CKXVector<CString>{"a"});
  lista = copia;
  EXPECT_EQ(Valores(lista), (CKXVector<CString>{"a", "b"}));
  lista = std::move(copia);
  EXPECT_EQ(lista.GetCount(), 2);
  EXPECT_TRUE(copia.IsEmpty());
}

TEST(Array, InsereRetiraERecusaForaDoTamanho) {
  CArray<unsigned long> a;
  EXPECT_EQ(a.Add(1), 0);
  EXPECT_EQ(a.Add(3), 1);
  a.InsertAt(1, 2);
  a.InsertAt(3, 4);
  a.RemoveAt(0);
  a.SetAt(0, 9);
  a[1] = 8;
  EXPECT_EQ(a.GetAt(0) * 100 + a[1] * 10 + a.ElementAt(2), 984u);
  for (const std::ptrdiff_t indice : {std::ptrdiff_t{-1}, std::ptrdiff_t{3}, PTRDIFF_MAX}) {
    EsperaRecusa(kErroArray, [&] { a[indice] = 0; });
    EsperaRecusa(kErroArray, [&] { a.SetAt(indice, 0); });
    EsperaRecusa(kErroArray, [&] { a.RemoveAt(indice); });
  }
  EsperaRecusa(kErroArray, [&] { a.InsertAt(4, 0); });
  EsperaRecusa(kErroArray, [&] { a.SetSize(-1); });
  a.SetSize(4);
  EXPECT_EQ(a[3], 0u);
  a.RemoveAll();
  EXPECT_TRUE(a.IsEmpty());
}
