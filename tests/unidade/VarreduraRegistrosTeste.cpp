// Sweeps over every class with a record: what the tables promise holds for all of them.
#include <gtest/gtest.h>

#include <tuple>
#include <type_traits>
#include <utility>

#include "tests/apoio/ClassesDeRegistro.h"
#include "tests/apoio/Igualdade.h"
#include "tests/apoio/Paginas.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

constexpr unsigned kSementes = 20;

template <class Classe>
class VarreduraRegistros : public ::testing::Test {
 public:
  static constexpr const KXRegistroInfo& kInfo = KXMetadados<typename Classe::Registro>::kInfo;

  static Classe Le(const typename Classe::Registro& registro) {
    Classe objeto;
    objeto.CopiarDe(&registro);
    return objeto;
  }
};
TYPED_TEST_SUITE(VarreduraRegistros, apoio::ClassesDeRegistro);

TYPED_TEST(VarreduraRegistros, RegistroVaiEVoltaByteAByte) {
  using REG = typename TypeParam::Registro;
  for (unsigned semente = 0; semente < kSementes; ++semente) {
    const apoio::RegistroAleatorio<REG> original(semente);
    apoio::RegistroEscrito<REG> copia;
    this->Le(original.Reg).CopiarPara(&copia.Reg);
    EXPECT_EQ(apoio::Diferenca(this->kInfo, &original.Reg, &copia.Reg), "") << semente;
  }
}

TYPED_TEST(VarreduraRegistros, ObjetoVaiEVoltaIgual) {
  using REG = typename TypeParam::Registro;
  for (unsigned semente = 0; semente < kSementes; ++semente) {
    const apoio::RegistroAleatorio<REG> original(semente);
    TypeParam objeto = this->Le(original.Reg);
    apoio::RegistroEscrito<REG> escrito;
    objeto.CopiarPara(&escrito.Reg);
    const TypeParam volta = this->Le(escrito.Reg);
    EXPECT_TRUE(objeto == volta);
    EXPECT_EQ(objeto.CalculaCRC(nullptr), volta.CalculaCRC(nullptr));
  }
}

TYPED_TEST(VarreduraRegistros, CopiaAtribuicaoEMovimento) {
  using REG = typename TypeParam::Registro;
  const apoio::RegistroAleatorio<REG> original(7);
  TypeParam objeto = this->Le(original.Reg);
  const TypeParam copia(objeto);
  TypeParam atribuido;
  atribuido = copia;
  EXPECT_TRUE(copia == objeto);
  EXPECT_TRUE(atribuido == objeto);
  const TypeParam& mesmo = objeto;
  objeto = mesmo;
  objeto = std::move(const_cast<TypeParam&>(mesmo));
  objeto.Copiar(nullptr);
  EXPECT_TRUE(objeto == copia);
  atribuido.Limpar();
  static_cast<TKXBaseParaDados&>(atribuido) = copia;
  EXPECT_TRUE(atribuido == copia);

  TypeParam movido(std::move(objeto));
  EXPECT_TRUE(movido == copia);
  atribuido.Limpar();
  atribuido = std::move(movido);
  EXPECT_TRUE(atribuido == copia);
  movido.CopiarDe(&original.Reg);
  EXPECT_TRUE(movido == copia);
}

TYPED_TEST(VarreduraRegistros, LimparEOrigemNulaDeixamVazio) {
  using REG = typename TypeParam::Registro;
  const apoio::RegistroAleatorio<REG> original(3);
  TypeParam objeto = this->Le(original.Reg);
  EXPECT_FALSE(objeto.EstaVazio());
  objeto.Limpar();
  EXPECT_TRUE(objeto.EstaVazio());
  EXPECT_TRUE(objeto == TypeParam());

  if constexpr (std::is_base_of_v<TKXCMBaseParaDados, TypeParam>) {
    objeto.SetLinhaArquivoImportacao(5);
    EXPECT_EQ(objeto.CopiarDe(&original.Reg).GetLinhaArquivoImportacao(), 0);
  }
  objeto.CopiarDe(static_cast<const REG*>(nullptr));
  EXPECT_TRUE(objeto.EstaVazio());
  apoio::RegistroEscrito<REG> escrito;
  objeto.CopiarPara(&escrito.Reg);
  const REG zero{};
  EXPECT_EQ(apoio::Diferenca(this->kInfo, &zero, &escrito.Reg), "");
}

// Arrays and texts are hung only into a record that could be written.
TYPED_TEST(VarreduraRegistros, MemoriaProibidaNaoSeEscreveNemSeLe) {
  using REG = typename TypeParam::Registro;
  const apoio::Paginas paginas;
  auto* const proibido = reinterpret_cast<REG*>(paginas.Proibida());
  const apoio::RegistroAleatorio<REG> original(9);
  TypeParam objeto = this->Le(original.Reg);
  objeto.CopiarPara(proibido);
  objeto.CopiarPara(static_cast<REG*>(nullptr));
  EXPECT_TRUE(objeto == this->Le(original.Reg));
  objeto.CopiarDe(proibido);
  EXPECT_TRUE(objeto.EstaVazio());
}

TYPED_TEST(VarreduraRegistros, IgualdadeSegueATabela) {
  using REG = typename TypeParam::Registro;
  const apoio::RegistroAleatorio<REG> original(11);
  const TypeParam objeto = this->Le(original.Reg);
  for (const KXCampo& campo : this->kInfo.Campos) {
    if (!apoio::TemAcessor(campo) && campo.Papel != KXPapel::Reserva) continue;
    REG alterado = original.Reg;
    auto* byte = reinterpret_cast<unsigned char*>(&alterado) + campo.Posicao;
    *byte = static_cast<unsigned char>(*byte == 'x' ? 'y' : 'x');
    apoio::ZeraOQueNaoViaja(this->kInfo, reinterpret_cast<unsigned char*>(&alterado));
    const bool mudou = std::memcmp(&alterado, &original.Reg, sizeof(REG)) != 0;
    EXPECT_EQ(objeto == this->Le(alterado), !mudou || !apoio::EhComparado(this->kInfo, campo))
        << campo.Nome;
  }
}

TYPED_TEST(VarreduraRegistros, IgualdadeVeOUltimoCaractereDoCampo) {
  using REG = typename TypeParam::Registro;
  for (const KXCampo& campo : this->kInfo.Campos) {
    if (campo.Tipo != KXTipoCampo::Texto || !campo.Comparado) continue;
    REG a{};
    std::memset(reinterpret_cast<char*>(&a) + campo.Posicao, 'a', campo.Largura);
    REG b = a;
    reinterpret_cast<char*>(&b)[campo.Posicao + campo.Largura - 1] = 'b';
    EXPECT_FALSE(this->Le(a) == this->Le(b)) << campo.Nome;
  }
}

TYPED_TEST(VarreduraRegistros, IgualdadeVeFilhosETextos) {
  using REG = typename TypeParam::Registro;
  const apoio::RegistroAleatorio<REG> original(5);
  const TypeParam objeto = this->Le(original.Reg);
  for (const KXCampo& campo : this->kInfo.Campos) {
    REG alterado = original.Reg;
    auto* bytes = reinterpret_cast<unsigned char*>(&alterado);
    if (campo.Papel == KXPapel::Conta || campo.Papel == KXPapel::Tamanho) {
      const std::uint16_t menos = campo.Papel == KXPapel::Conta ? 1 : 2;
      std::uint16_t quantos = 0;
      std::memcpy(&quantos, bytes + campo.Posicao, sizeof(quantos));
      if (quantos < menos) continue;
      quantos = static_cast<std::uint16_t>(quantos - menos);
      std::memcpy(bytes + campo.Posicao, &quantos, sizeof(quantos));
    } else if (campo.Papel == KXPapel::Contado) {
      auto& texto = *reinterpret_cast<KXStringPS*>(bytes + campo.Posicao);
      if (texto.Tamanho < 2) continue;
      texto.Tamanho -= 2;
    } else if (campo.Papel == KXPapel::Terminado) {
      auto& texto = *reinterpret_cast<char**>(bytes + campo.Posicao);
      if (texto == nullptr) continue;
      texto = nullptr;
    } else {
      continue;
    }
    EXPECT_FALSE(objeto == this->Le(alterado)) << campo.Nome;
  }
}

// What equality does not see, or no record carries, is copied, moved and cleared all the same.
// `partes` gives the values of such parts, all of them set in the object.
template <class Classe, class Partes>
void ConferePartes(const Classe& cheio, Partes partes) {
  Classe copia(cheio);
  Classe atribuido;
  atribuido = cheio;
  EXPECT_EQ(partes(copia), partes(cheio));
  EXPECT_EQ(partes(atribuido), partes(cheio));

  Classe movido(std::move(copia));
  EXPECT_EQ(partes(movido), partes(cheio));
  Classe destino;
  destino = std::move(atribuido);
  EXPECT_EQ(partes(destino), partes(cheio));

  const typename Classe::Registro zero{};
  EXPECT_EQ(partes(movido.CopiarDe(&zero)), partes(Classe()));
  destino.Limpar();
  EXPECT_EQ(partes(destino), partes(Classe()));
}

TEST(VarreduraPartes, OQueAIgualdadeNaoVeOuNaoViaja) {
  const CIEVinculo vinculo = CIEVinculo().SetTipo(3);
  const CKXDadosCM_CancelamentoOrdemCompra cancelamento;
  ConferePartes(CKXDadosCM_OrdemCompra().SetVinculo(vinculo).AdicionaLogs("a").AdicionaCancelamento(
                    cancelamento),
                [](const CKXDadosCM_OrdemCompra& o) {
                  return std::tuple(o.GetVinculo().GetTipo(), o.GetQuantidadeLogs(),
                                    o.GetQuantidadeCancelamento());
                });
  ConferePartes(CKXDadosCM_ItemOrdemCompra().SetExpandirGrid(true),
                [](const CKXDadosCM_ItemOrdemCompra& i) { return i.GetExpandirGrid(); });
  ConferePartes(CKXDadosCM_CotacaoPreco().AdicionaLogs("a"),
                [](const CKXDadosCM_CotacaoPreco& c) { return c.GetQuantidadeLogs(); });
  ConferePartes(CKXDadosCM_ItemCotacaoPreco().SetDesconsiderarRateio(true),
                [](const CKXDadosCM_ItemCotacaoPreco& i) { return i.GetDesconsiderarRateio(); });
  ConferePartes(CKXDadosCM_RERegistroEntrada()
                    .SetVinculo(vinculo)
                    .SetFornecedorRecebimento(1)
                    .SetIgnorarVerificacaoAssocicaoOCProduto(2)
                    .SetIgnorarDestinosDiferentesProduto(3)
                    .SetIgnorarDestinosDiferentesServico(4)
                    .SetLiberouAlteracaoVlrUnitOC(true)
                    .SetIntegrar(true),
                [](const CKXDadosCM_RERegistroEntrada& e) {
                  return std::tuple(e.GetVinculo().GetTipo(), e.GetFornecedorRecebimento(),
                                    e.GetIgnorarVerificacaoAssocicaoOCProduto(),
                                    e.GetIgnorarDestinosDiferentesProduto(),
                                    e.GetIgnorarDestinosDiferentesServico(),
                                    e.GetLiberouAlteracaoVlrUnitOC(), e.GetIntegrar());
                });
  ConferePartes(CKXDadosCM_REItemAssociacaoREOC().SetCancelarItem(true).SetEhIncluirTodos(true),
                [](const CKXDadosCM_REItemAssociacaoREOC& i) {
                  return std::tuple(i.GetCancelarItem(), i.GetEhIncluirTodos());
                });
  ConferePartes(CKXDadosCM_CTConhecimentoTransporte().SetVinculo(vinculo).AdicionaLogs("a"),
                [](const CKXDadosCM_CTConhecimentoTransporte& c) {
                  return std::tuple(c.GetVinculo().GetTipo(), c.GetQuantidadeLogs());
                });
  ConferePartes(CKXDadosCM_CCContrato().SetVinculo(vinculo),
                [](const CKXDadosCM_CCContrato& c) { return c.GetVinculo().GetTipo(); });
  ConferePartes(CKXDadosCM_CCClassificacao().SetValorRateio(CY{1}),
                [](const CKXDadosCM_CCClassificacao& c) { return c.GetValorRateio().int64; });
  ConferePartes(CKXDadosCM_CCParcela().SetValorJuros(CY{1}),
                [](const CKXDadosCM_CCParcela& p) { return p.GetValorJuros().int64; });
}

// A text whose bytes after the terminator are not zero, as a careless sender leaves them.
TYPED_TEST(VarreduraRegistros, TextoSeComparaAteOTerminador) {
  using REG = typename TypeParam::Registro;
  const apoio::RegistroAleatorio<REG> original(13);
  for (const KXCampo& campo : this->kInfo.Campos) {
    if (!apoio::EhTextoFixo(campo)) continue;
    REG a = original.Reg;
    REG b = original.Reg;
    char* textoA = reinterpret_cast<char*>(&a) + campo.Posicao;
    char* textoB = reinterpret_cast<char*>(&b) + campo.Posicao;
    std::memset(textoA, 'z', campo.Largura);
    std::memset(textoB, 'w', campo.Largura);
    textoA[0] = textoB[0] = 'a';
    textoA[1] = textoB[1] = '\0';
    EXPECT_TRUE(this->Le(a) == this->Le(b)) << campo.Nome;
  }
}

TYPED_TEST(VarreduraRegistros, ContaSemArrayEArraySemConta) {
  using REG = typename TypeParam::Registro;
  REG registro{};
  for (const KXCampo& campo : this->kInfo.Campos) {
    auto* inicio = reinterpret_cast<unsigned char*>(&registro) + campo.Posicao;
    if (campo.Papel == KXPapel::Conta) std::memset(inicio, 0xFF, 2);
  }
  EXPECT_TRUE(this->Le(registro).EstaVazio());

  registro = {};
  unsigned char naoLido = 0;
  unsigned char* array = &naoLido;
  for (const KXCampo& campo : this->kInfo.Campos) {
    auto* inicio = reinterpret_cast<unsigned char*>(&registro) + campo.Posicao;
    if (campo.Papel == KXPapel::Lista) std::memcpy(inicio, &array, sizeof(array));
  }
  EXPECT_TRUE(this->Le(registro).EstaVazio());
}

TYPED_TEST(VarreduraRegistros, ClasseDeExecucao) {
  const TypeParam objeto;
  EXPECT_EQ(objeto.GetRuntimeClass(), TypeParam::GetThisClass());
  EXPECT_TRUE(objeto.IsKindOf(TKXBaseParaDados::GetThisClass()));
  EXPECT_TRUE(objeto.IsKindOf(CObject::GetThisClass()));
  EXPECT_FALSE(objeto.IsKindOf(CIEVinculo::GetThisClass()));
  EXPECT_EQ(TypeParam::GetThisClass()->m_nObjectSize, sizeof(TypeParam));
}

}  // namespace
