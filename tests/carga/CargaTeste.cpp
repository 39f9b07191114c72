// The library as a program that loads it late, and gives it back, meets it.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <string>

namespace {

TEST(Carga, DescarregaECarregaDeNovo) {
  using Versao = const char* (*)();
  using Numero = std::uint32_t (*)();
  for (int vez = 0; vez < 20; ++vez) {
    ASSERT_EQ(GetModuleHandleA("kxldadoscm.dll"), nullptr) << vez;
    const HMODULE modulo = LoadLibraryA("kxldadoscm.dll");
    ASSERT_NE(modulo, nullptr) << GetLastError();
    const auto entrada = [modulo](const char* nome) {
      return reinterpret_cast<void*>(GetProcAddress(modulo, nome));
    };
    const auto versao = reinterpret_cast<Versao>(entrada("_Z20KXDadosComprasVersaov"));
    const auto numero = reinterpret_cast<Numero>(entrada("_Z31KXDadosComprasMensagemUltimaTabv"));
    ASSERT_TRUE(versao != nullptr && numero != nullptr);
    EXPECT_EQ(std::string(versao()), KX_VERSAO);
    EXPECT_EQ(numero(), RegisterWindowMessageA("CKXEnter::WM_KXENTER_EH_ULTIMA_TAB"));
    EXPECT_NE(FreeLibrary(modulo), 0);
  }
}

}  // namespace
