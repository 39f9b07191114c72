#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "kxldados/CString.h"
#include "kxldados/Latin1.h"

TEST(Texto, ConstroiDeQualquerFonte) {
  EXPECT_TRUE(CString().IsEmpty());
  EXPECT_TRUE(CString(nullptr).IsEmpty());
  EXPECT_TRUE(CString("abc", -1).IsEmpty());
  EXPECT_EQ(CString("ab\0c"), "ab");
  EXPECT_EQ(CString("ab\0c", 4).Vista(), std::string_view("ab\0c", 4));
  EXPECT_EQ(CString(std::string_view("abcd").substr(1, 2)), "bc");
}

TEST(Texto, OrdenaPorByteSemSinal) {
  EXPECT_LT(CString("z"), CString("\xE1"));
  EXPECT_LT(CString("ab"), "abc");
  EXPECT_GT("b", CString("a"));
  EXPECT_NE(CString("a"), "A");
  EXPECT_EQ(CString("b").Compare("a"), 1);
  EXPECT_EQ(CString().Compare(nullptr), 0);
  EXPECT_EQ(CString("JO\xC3O").CompareNoCase("jo\xE3o"), 0);
  EXPECT_EQ(CString("Z").CompareNoCase("\xE1"), -1);
}

TEST(Texto, CaixaSegueAPaginaDeCodigo) {
  CString s = "a\xE0\xFE\xF7\xDF\xFF\x9A\x9C\x9E z`{";
  EXPECT_EQ(s.MakeUpper(), "A\xC0\xDE\xF7\xDF\x9F\x8A\x8C\x8E Z`{");
  EXPECT_EQ(s.MakeLower(), "a\xE0\xFE\xF7\xDF\xFF\x9A\x9C\x9E z`{");
  EXPECT_EQ(CString("\xD7@[").MakeLower(), "\xD7@[");
}

// Cutting, searching and changing are tried at length by fuzz/Textos.cpp; here, null pointers.
TEST(Texto, PonteiroNuloNaoEhTexto) {
  CString s = "aaa";
  EXPECT_EQ(s.Insert(-1, nullptr) + s.Replace(nullptr, "b") + s.Find(nullptr), 3);
  EXPECT_EQ(s.Replace("aa", nullptr), 1);
  EXPECT_EQ(s.Trim(nullptr), "a");
  int inicio = 0;
  EXPECT_EQ(s.Tokenize(nullptr, inicio), "a");
  EXPECT_EQ(s.Tokenize(nullptr, inicio), "");
  EXPECT_EQ(inicio, -1);
  EXPECT_EQ(s.Tokenize("a", inicio), "");
  EXPECT_THROW(s.SetAt(1, 'x'), std::out_of_range);
  s.SetAt(0, ',');
  EXPECT_EQ(s.Replace(',', ';') + s.Replace("", "x"), 1);
  EXPECT_EQ(s, ";");
}

TEST(Texto, ConcatenaConsigoMesmo) {
  CString s = "ab";
  s += s;
  s += s.GetString();
  s += 'c';
  s += nullptr;
  EXPECT_EQ("<" + s + '>', "<ababababc>");
}

TEST(Texto, FormataQualquerTamanho) {
  CString s = "abc";
  s.Format("%s-%05d", s.GetString(), 42);
  EXPECT_EQ(s, "abc-00042");
  s.Format("%5000d", 7);
  EXPECT_EQ(s.GetLength(), 5000);
  EXPECT_EQ(s[4999], '7');
}

TEST(Texto, MovidoFicaVazio) {
  CString longo(std::string(100, 'x'));
  const CString destino = std::move(longo);
  EXPECT_EQ(destino.GetLength(), 100);
  EXPECT_TRUE(longo.IsEmpty());
  static_assert(std::is_nothrow_move_constructible_v<CString> &&
                std::is_nothrow_move_assignable_v<CString>);
}

// Zeros among the characters tell apart what would pass through a pointer.
TEST(Texto, EntraESaiDeTextosPadrao) {
  const std::string padrao("ab\0c", 4);
  const CString s = padrao;
  EXPECT_EQ(std::string(s), padrao);
  EXPECT_TRUE(s == padrao && padrao == s && s == std::string_view(padrao) &&
              s != std::string("ab"));
  EXPECT_TRUE(s > std::string("ab") && std::string_view("b") > s &&
              CString("\xE1") > std::string("z"));
  std::ostringstream saida;
  saida << std::setw(6) << std::setfill('.') << s << CString();
  EXPECT_EQ(saida.str(), ".." + padrao);
}

// The first and the last of every range, and what lies beside them.
TEST(Latin1, LimitesDoUTF8) {
  for (const char* bom :
       {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
        "\xEF\xBF\xBD", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(kx::EhUTF8(bom)) << bom;
  }
  for (const char* mau :
       {"\x80", "\xBF", "\xC1\xBF", "\xC2", "\xC2\x7F", "\xC2\xC0", "\xE0\x9F\xBF", "\xED\xA0\x80",
        "\xED\xBF\xBF", "\xE1\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"}) {
    EXPECT_FALSE(kx::EhUTF8(mau)) << mau;
  }
  for (const auto& [utf8, latin1] : {std::pair{"\xC2\x9F", "\x9F"},
                                     {"\xC2\xA0", "\xA0"},
                                     {"\xC3\xBF", "\xFF"},
                                     {"\xC4\x80", "?"}}) {
    EXPECT_EQ(kx::Latin1DeUTF8(utf8), latin1);
  }
  EXPECT_EQ(kx::LinhaDeLatin1("\x1F\x20\x7E\x7F\x80\x9F\xA0\xBF\xC0\xFF"),
            "  ~   \xC2\xA0\xC2\xBF\xC3\x80\xC3\xBF");
}
