// What the tool measures and shows of a record.
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <vector>

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
