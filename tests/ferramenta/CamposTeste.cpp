// What the tool measures of a record.
#include <gtest/gtest.h>

#include <vector>

#include "ac/RegistrosAC.h"
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
