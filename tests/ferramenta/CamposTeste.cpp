// What the tool measures and shows of a record, and its edge between UTF-8 and Latin-1.
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Latin1.h"
#include "ac/RegistrosAC.h"
#include "oc/RegistrosOC.h"
#include "sc/RegistrosSC.h"
#include "tools/kxdados/Campos.h"

TEST(Campos, ContagemDe32Bits) {
  constexpr std::int32_t kQuantas = 65'538;
  std::vector<tagREG_CM_AUTORIZACAO_CMSAUTPS> regras(kQuantas);
  tagREG_CM_LE_LISTA_AC_CMSAUTPS lista{kQuantas, {}, regras.data()};
  const KXRegistroInfo& info = KXMetadados<tagREG_CM_LE_LISTA_AC_CMSAUTPS>::kInfo;
  EXPECT_EQ(kxdados::MedeRegistro(info, &lista).Bytes, 16 + kQuantas * std::size_t{192});
  lista.QtdAC = -1;
  EXPECT_EQ(kxdados::MedeRegistro(info, &lista).Bytes, 16U);
}

TEST(Campos, BytesETextosDeFora) {
  tagREG_CANCELAMENTO_ORDEM_COMPRAPS cancelamento{};
  cancelamento.Reserva_32[0] = 0x0F;
  cancelamento.Reserva_32[1] = 0xA9;
  std::ostringstream saida;
  kxdados::EscreveCampos(saida, KXMetadados<tagREG_CANCELAMENTO_ORDEM_COMPRAPS>::kInfo,
                         &cancelamento);
  EXPECT_EQ(saida.str().substr(0, 18), "Reserva_32: 0fa900");

  char nome[] = "Silva";
  char sobra[] = "sobra";
  tagREG_SOLICITACAO_COMPRA_FORNECEDORPS fornecedor{};
  fornecedor.TextoNomeFornecedor = nome;
  fornecedor.TamanhoNomeFornecedor = sizeof(nome);
  fornecedor.TextoObservacao = sobra;  // its size says that there is none
  const KXRegistroInfo& info = KXMetadados<tagREG_SOLICITACAO_COMPRA_FORNECEDORPS>::kInfo;
  EXPECT_EQ(kxdados::MedeRegistro(info, &fornecedor).Bytes, 40U + sizeof(nome) + 1);
  saida.str("");
  kxdados::EscreveCampos(saida, info, &fornecedor);
  EXPECT_EQ(saida.str(), "TextoNomeFornecedor: Silva\nTextoObservacao: \n");
}

// The first and the last of every range, and what lies beside them.
TEST(Latin1, LimitesDoUTF8) {
  for (const char* bom :
       {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
        "\xEF\xBF\xBD", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(kxdados::EhUTF8(bom)) << bom;
  }
  for (const char* mau :
       {"\x80", "\xBF", "\xC1\xBF", "\xC2", "\xC2\x7F", "\xC2\xC0", "\xE0\x9F\xBF", "\xED\xA0\x80",
        "\xED\xBF\xBF", "\xE1\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"}) {
    EXPECT_FALSE(kxdados::EhUTF8(mau)) << mau;
  }
  for (const auto& [utf8, latin1] : {std::pair{"\xC2\x9F", "?"},
                                     {"\xC2\xA0", "\xA0"},
                                     {"\xC3\xBF", "\xFF"},
                                     {"\xC4\x80", "?"}}) {
    EXPECT_EQ(kxdados::Latin1DeUTF8(utf8), latin1);
  }
  EXPECT_EQ(kxdados::UTF8DeLatin1("\x1F\x20\x7E\x7F\x80\x9F\xA0\xBF\xC0\xFF"),
            "  ~   \xC2\xA0\xC2\xBF\xC3\x80\xC3\xBF");
}
