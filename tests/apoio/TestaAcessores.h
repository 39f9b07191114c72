// Expands the record table named by KX_TABELA into a test of every accessor of KX_CLASSE, with the
// TestaCampo and TestaTexto of the including file. No include guard on purpose.
#define KX_TESTE(Classe) TEST(VarreduraAcessores, Classe)
#define KX_INICIO(Registro, Larg, Significado) \
  KX_TESTE(KX_CLASSE) {                        \
    KX_CLASSE objeto;
#define KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado)                                      \
  TestaCampo<Tipo>(                                                                                \
      objeto, #Nome, Posicao, [](auto& o, const Tipo& v) -> KX_CLASSE& { return o.Set##Nome(v); }, \
      [](auto& o) -> decltype(auto) { return o.Get##Nome(); });
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Comparado, Significado) \
  KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado)
#define KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado)                 \
  TestaTexto(                                                                 \
      objeto, #Nome, Posicao, Larg,                                           \
      [](auto& o, const CString& v) -> KX_CLASSE& { return o.Set##Nome(v); }, \
      [](auto& o) { return o.Get##Nome(); });
#define KX_HISTORICO(Posicao, Larg, Nome, Comparado, Significado) \
  KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado)
#define KX_FIM(Registro) }
#include KX_TABELA
#undef KX_TESTE
#undef KX_TABELA
#undef KX_CLASSE
