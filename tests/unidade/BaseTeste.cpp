// The base data object, the record wrapper and the module's base.
#include <gtest/gtest.h>

#include <cstring>

#include "ac/DadosAC.h"
#include "compras/KXDadosCompras.h"
#include "core/ConsisteRetorno.h"
#include "core/DadosRegistro.h"
#include "core/Rateio.h"
#include "core/Situacao.h"
#include "core/TKXCMBaseParaDados.h"
#include "kxldados/CIEVinculo.h"
#include "platform/Plataforma.h"
#include "re/DadosRE.h"
#include "tests/apoio/Paginas.h"

namespace {

tagREG_CM_SITUACAO_PS Cheio() {
  tagREG_CM_SITUACAO_PS registro;
  std::memset(&registro, 0x5A, sizeof(registro));
  return registro;
}

TEST(Situacao, TodoByteContaTambemOsSemAcessor) {
  const tagREG_CM_SITUACAO_PS registro = Cheio();
  CKXDadosCM_Situacao situacao;
  situacao.CopiarDe(&registro);
  for (std::size_t i = 0; i < sizeof(registro); ++i) {
    tagREG_CM_SITUACAO_PS outro = registro;
    reinterpret_cast<unsigned char*>(&outro)[i] ^= 1;
    CKXDadosCM_Situacao diferente;
    diferente.CopiarDe(&outro);
    EXPECT_TRUE(situacao != diferente) << i;
    EXPECT_FALSE(diferente.EstaVazio()) << i;
  }
  tagREG_CM_SITUACAO_PS destino;
  std::memset(&destino, 0xFF, sizeof(destino));
  situacao.CopiarPara(&destino);
  EXPECT_EQ(std::memcmp(&destino, &registro, sizeof(registro)), 0);
  std::memset(&destino, 0xFF, sizeof(destino));
  situacao.CopiarParaPS(&destino);
  EXPECT_EQ(std::memcmp(&destino, &registro, sizeof(registro)), 0);
}

TEST(Registro, ObjetoDeOutraClasse) {
  const tagREG_CM_SITUACAO_PS registro = Cheio();
  CKXDadosCM_Situacao situacao;
  const TKXGerencial outraClasse;
  EXPECT_FALSE(situacao.Igual(&outraClasse));
  EXPECT_FALSE(situacao.Igual(nullptr));
  situacao.CopiarDe(&registro);
  situacao.Copiar(&outraClasse);
  EXPECT_TRUE(situacao.EstaVazio());
  situacao.CopiarDe(&registro);
  situacao.CopiarDe(nullptr);
  EXPECT_TRUE(situacao.EstaVazio());
}

TEST(Registro, CopiaEMemoriaProibida) {
  const tagREG_CM_SITUACAO_PS registro = Cheio();
  CKXDadosCM_Situacao situacao;
  situacao.CopiarDe(&registro);
  CKXDadosCM_Situacao copia;
  copia = situacao;
  EXPECT_TRUE(copia == situacao);
  const apoio::Paginas paginas;
  copia.CopiarDe(reinterpret_cast<const tagREG_CM_SITUACAO_PS*>(paginas.Proibida()));
  EXPECT_TRUE(copia.EstaVazio());
}

// A wrapper with a child array of its own replaces the copied pointer by a deep copy.
class ComLista : public T_KXDadosRegistroComLista<tagREG_FATURA_CONHECIMENTOPS> {
 public:
  mutable int Lidos = 0;
  mutable int Escritos = 0;
  mutable int EscritosPS = 0;

 protected:
  void OnCopiarDe() override { ++Lidos; }
  void OnCopiarPara(tagREG_FATURA_CONHECIMENTOPS* destino) const override {
    ++Escritos;
    destino->ListaItemImposto = nullptr;
  }
  void OnCopiarParaPS(tagREG_FATURA_CONHECIMENTOPS* destino) const override {
    ++EscritosPS;
    destino->ListaItemImposto = nullptr;
  }
};

TEST(Registro, GanchosDaListaCorremDepoisDaCopia) {
  tagREG_ITEM_IMPOSTOPS imposto{};
  tagREG_FATURA_CONHECIMENTOPS registro{};
  registro.NumeroDias = 30;
  registro.ListaItemImposto = &imposto;
  ComLista objeto;
  objeto.CopiarDe(&registro);
  EXPECT_EQ(objeto.Lidos, 1);
  tagREG_FATURA_CONHECIMENTOPS destino{};
  objeto.CopiarPara(&destino);
  EXPECT_EQ(objeto.Escritos, 1);
  EXPECT_EQ(destino.NumeroDias, 30U);
  EXPECT_EQ(destino.ListaItemImposto, nullptr);
  objeto.CopiarParaPS(&destino);
  EXPECT_EQ(objeto.EscritosPS, 1);
}

class BaseExposta : public TKXBaseParaDados {
 public:
  using TKXBaseParaDados::OnFromXML;
  using TKXBaseParaDados::OnGetNomeClasse;
  using TKXBaseParaDados::OnGetVersao;
  using TKXBaseParaDados::OnPodeGravar;
  using TKXBaseParaDados::OnToXML;
};

TEST(Base, PadroesDosGanchos) {
  BaseExposta base;
  unsigned long anterior = 0x12345678;
  EXPECT_TRUE(base.Igual(nullptr));
  EXPECT_TRUE(base.EstaVazio());
  EXPECT_EQ(base.CalculaCRC(&anterior), 0x12345678UL);
  EXPECT_EQ(base.CalculaCRC(nullptr), 0UL);
  EXPECT_TRUE(base.OnGetNomeClasse().IsEmpty());
  EXPECT_TRUE(base.OnToXML().IsEmpty());
  EXPECT_FALSE(base.OnFromXML("x"));
  EXPECT_TRUE(base.OnPodeGravar());
  EXPECT_EQ(base.OnGetVersao(), 1);
}

TEST(Base, ChecksumELinhaAcompanhamACopiaENaoAIgualdade) {
  CKXDadosCM_RateioBase origem;
  origem.Set_CRC(static_cast<unsigned long>(0xFFFFFFFFFULL));
  origem.SetLinhaArquivoImportacao(-7);
  CKXDadosCM_RateioBase copia;
  EXPECT_TRUE(copia == origem);
  EXPECT_TRUE(origem.EstaVazio());
  copia = origem;
  EXPECT_EQ(copia.Get_CRC(), 0xFFFFFFFFUL);
  EXPECT_EQ(copia.GetLinhaArquivoImportacao(), -7);
  CKXDadosCM_RateioBase movido;
  movido = std::move(copia);
  EXPECT_EQ(movido.GetLinhaArquivoImportacao(), -7);
  movido.Limpar();
  EXPECT_EQ(movido.Get_CRC(), 0UL);
  EXPECT_EQ(movido.GetLinhaArquivoImportacao(), 0);
}

TEST(Base, ComplementoHistoricoComparaTresLinhas) {
  const auto compara = &TKXCMBaseParaDados::ComparaComplementoHistorico;
  EXPECT_TRUE(compara("", ""));
  EXPECT_FALSE(compara("a", ""));
  EXPECT_TRUE(compara("a\r\nb\r\nc\r\nd", "a\nb\nc\nx"));
  EXPECT_TRUE(compara("a\r\n\r\nb", "a\nb"));
  EXPECT_FALSE(compara("a\nb\nc", "a\nb\nC"));
  EXPECT_FALSE(compara("a\nb", "a\nb\nc"));
  EXPECT_TRUE(compara("\r\n\r\n", ""));
  EXPECT_FALSE(compara("a b", "a\nb"));
}

TEST(Base, VinculoComparaChaveETipo) {
  const CIEVinculo vinculo = CIEVinculo().SetChave({{1, 2, 2026}, 3}).SetTipo(4);
  EXPECT_TRUE(vinculo == CIEVinculo(vinculo));
  EXPECT_TRUE(vinculo != CIEVinculo(vinculo).SetChave({}));
  EXPECT_TRUE(vinculo != CIEVinculo(vinculo).SetTipo(0));
  EXPECT_FALSE(vinculo.EstaVazio());
}

TEST(Base, MensagensDeJanelaEZeroDaPartida) {
  using kx::plataforma::RegistraMensagemJanela;
  EXPECT_EQ(KXDadosComprasMensagemUltimaTab(),
            RegistraMensagemJanela("CKXEnter::WM_KXENTER_EH_ULTIMA_TAB"));
  EXPECT_EQ(KXDadosComprasMensagemPodeSetarFocoTab(),
            RegistraMensagemJanela("CKXEnter::WM_KXENTER_PODE_SETAR_FOCO_TAB"));
  EXPECT_EQ(KXDadosComprasZero(), CY{0});
  EXPECT_EQ(KXProcuraRegistro("tagREG_ENTRADAPS")->Tamanho, 1368U);
  EXPECT_EQ(KXProcuraRegistro("tagREG_ENTRADA"), nullptr);
}

TEST(Base, TextosConstantes) {
  EXPECT_STREQ(TKXCMBaseParaDados::GetStringErroIntegracaoESSimples(),
               "Ocorreu um problema na integra\xE7\xE3o com o m\xF3\x64ulo Estoque, verifique os "
               "dados informados");
  EXPECT_STREQ(TKXCMBaseParaDados::GetStringPropositalNotEmptyForOC(),
               "proposital not empty for OC");
  EXPECT_STREQ(TKXCMBaseParaDados::GetStringSubstituicaoComplementoES(), "MMAA-NNNNNN");
}

}  // namespace
