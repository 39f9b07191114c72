// Expands the record table named by KX_TABELA into a test of every accessor of KX_CLASSE, with the
// TestaCampo and TestaTexto of the including file. No include guard on purpose.
#define KX_TESTE(Classe) TEST(VarreduraAcessores, Classe)
#define KX_INICIO(Registro, Larg, Significado)                                               \
  KX_TESTE(KX_CLASSE) {                                                                      \
    KX_CLASSE objeto;                                                                        \
    const Alvo alvo{objeto,                                                                  \
                    reinterpret_cast<const unsigned char*>(&std::as_const(objeto).GetReg()), \
                    sizeof(objeto.GetReg())};
#define KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado)                                \
  TestaCampo(alvo, #Nome, Posicao, sizeof(Tipo), [](Base& base, const void* bytes) {         \
    auto& o = static_cast<KX_CLASSE&>(base);                                                 \
    const auto& v = *static_cast<const Tipo*>(bytes);                                        \
    return &o.Set##Nome(v) == &o && o.Get##Nome() == v && std::as_const(o).Get##Nome() == v; \
  });
#define KX_PARTE(Posicao, Tipo, Nome, Caminho, Comparado, Significado) \
  KX_CAMPO(Posicao, Tipo, Nome, Comparado, Significado)
#define KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado)                                  \
  TestaTexto(alvo, #Nome, Posicao, Larg, [](Base& base, const CString& valor, CString& lido) { \
    auto& o = static_cast<KX_CLASSE&>(base);                                                   \
    const bool devolveSe = &o.Set##Nome(valor) == &o;                                          \
    lido = o.Get##Nome();                                                                      \
    return devolveSe;                                                                          \
  });
#define KX_HISTORICO(Posicao, Larg, Nome, Comparado, Significado) \
  KX_TEXTO(Posicao, Larg, Nome, Comparado, Significado)
#define KX_FIM(Registro) }
#include KX_TABELA
#undef KX_TESTE
#undef KX_TABELA
#undef KX_CLASSE
