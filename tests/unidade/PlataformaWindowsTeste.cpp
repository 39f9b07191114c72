// The platform contract where it speaks of Windows: structured exceptions, and the system's own
// answers about memory, modules and messages.
#include "compras/KXDadosCompras.h"
#include "platform/Plataforma.h"
#include "tests/apoio/Paginas.h"
// After the library's headers.
#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include <cstdlib>

namespace {

using namespace kx::plataforma;
using apoio::Paginas;

TEST(CopiaProtegida, EnderecosQueNinguemTem) {
  char destino[64];
  for (const std::uintptr_t endereco :
       {std::uintptr_t{0x10}, std::uintptr_t{0xFFFF}, std::uintptr_t{0x0000'1234'0000'0000},
        std::uintptr_t{0x8000'0000'0000'0000},  // not canonical
        ~std::uintptr_t{7}}) {
    char* const ruim = reinterpret_cast<char*>(endereco);
    EXPECT_EQ(CopiaProtegida(destino, ruim, 8), nullptr) << endereco;
    EXPECT_EQ(CopiaProtegida(ruim, destino, 8), nullptr) << endereco;
    EXPECT_EQ(PreencheProtegido(ruim, 0, 8), nullptr) << endereco;
    EXPECT_FALSE(Legivel(ruim, 8)) << endereco;
  }
}

TEST(CopiaProtegida, PaginaDeGuardaFalhaUmaVez) {
  const Paginas paginas;
  DWORD antes = 0;
  ASSERT_NE(VirtualProtect(paginas.Legivel(), 1, PAGE_READWRITE | PAGE_GUARD, &antes), 0);
  char byte = 0;
  EXPECT_EQ(CopiaProtegida(&byte, paginas.Legivel(), 1), nullptr);
  EXPECT_EQ(CopiaProtegida(&byte, paginas.Legivel(), 1), &byte);
  EXPECT_EQ(byte, 'p');
}

// --- Handlers of the process: they come first, or get what is not the copies' -------------------

const Paginas* gPaginas = nullptr;
int gVistas = 0;

LONG CALLBACK CopiaNoTratador(EXCEPTION_POINTERS* falha) {
  // The second of them comes from within, and is the inner copy's.
  if (++gVistas == 1) {
    char destino[8];
    if (CopiaProtegida(destino, gPaginas->Proibida(), sizeof(destino)) != nullptr) gVistas = 99;
    if (falha->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION) gVistas = 98;
  }
  return EXCEPTION_CONTINUE_SEARCH;
}

LONG CALLBACK AbreAPagina(EXCEPTION_POINTERS* /*falha*/) {
  DWORD antes = 0;
  VirtualProtect(gPaginas->Proibida(), 1, PAGE_READWRITE, &antes);
  return EXCEPTION_CONTINUE_EXECUTION;
}

class ComTratador {
 public:
  explicit ComTratador(PVECTORED_EXCEPTION_HANDLER tratador)
      : _tratador(AddVectoredExceptionHandler(1, tratador)) {}
  ComTratador(const ComTratador&) = delete;
  ComTratador& operator=(const ComTratador&) = delete;
  ~ComTratador() { RemoveVectoredExceptionHandler(_tratador); }

 private:
  void* _tratador;
};

TEST(CopiaProtegida, DentroDeOutra) {
  const Paginas paginas;
  gPaginas = &paginas;
  gVistas = 0;
  const ComTratador tratador(CopiaNoTratador);
  char destino[8];
  EXPECT_EQ(CopiaProtegida(destino, paginas.Proibida(), sizeof(destino)), nullptr);
  EXPECT_EQ(gVistas, 2);
}

TEST(CopiaProtegida, TratadorQueConsertaAPaginaEOuvido) {
  const Paginas paginas;
  gPaginas = &paginas;
  const ComTratador tratador(AbreAPagina);
  char destino[8] = "xxxxxxx";
  EXPECT_EQ(CopiaProtegida(destino, paginas.Proibida(), sizeof(destino)), destino);
  EXPECT_EQ(destino[0], '\0');
}

LONG WINAPI SaiCom7(EXCEPTION_POINTERS* falha) {
  const bool certa = falha->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION &&
                     falha->ExceptionRecord->ExceptionInformation[1] ==
                         reinterpret_cast<ULONG_PTR>(gPaginas->Proibida()) + 5;
  TerminateProcess(GetCurrentProcess(), certa ? 7 : 98);
  return EXCEPTION_CONTINUE_SEARCH;
}

TEST(OutrasFalhasDeathTest, VaoAoTratadorDoProcesso) {
  GTEST_FLAG_SET(catch_exceptions, false);  // or the test program itself is the handler
  const Paginas paginas;
  const auto processo = [&] {
    char destino[8];
    gPaginas = &paginas;
    SetUnhandledExceptionFilter(SaiCom7);
    if (CopiaProtegida(destino, paginas.Proibida(), 8) != nullptr) std::_Exit(99);
    *static_cast<volatile char*>(paginas.Proibida() + 5) = 1;
  };
  EXPECT_EXIT(processo(), testing::ExitedWithCode(7), "");
}

// What is no fault passes by the copies' filter: here an exception raised inside of one, by a
// handler that it called.
LONG CALLBACK Levanta(EXCEPTION_POINTERS* falha) {
  constexpr DWORD kNosso = 0xE0001234;
  if (falha->ExceptionRecord->ExceptionCode == kNosso) TerminateProcess(GetCurrentProcess(), 6);
  RaiseException(kNosso, 0, 0, nullptr);
  return EXCEPTION_CONTINUE_SEARCH;
}

TEST(OutrasFalhasDeathTest, ExcecaoQueNaoEFalhaPassa) {
  const Paginas paginas;
  const auto processo = [&] {
    const ComTratador tratador(Levanta);
    char destino[8];
    CopiaProtegida(destino, paginas.Proibida(), 8);
  };
  EXPECT_EXIT(processo(), testing::ExitedWithCode(6), "");
}

// --- The system's own answers -------------------------------------------------------------------

TEST(Alocador, EOdeTarefasDoSistema) {
  IMalloc* alocador = nullptr;
  ASSERT_EQ(CoGetMalloc(1, &alocador), S_OK);
  void* const bloco = AlocaTarefa(40);
  EXPECT_EQ(alocador->DidAlloc(bloco), 1);
  EXPECT_GE(alocador->GetSize(bloco), 40U);
  LiberaTarefa(bloco);
  void* const deles = CoTaskMemAlloc(8);
  LiberaTarefa(deles);
  alocador->Release();
  EXPECT_EQ(AlocaTarefa(~std::size_t{0} / 2), nullptr);
}

TEST(Bibliotecas, CaminhoEODoSistema) {
  char nosso[kTamanhoCaminho];
  char deles[kTamanhoCaminho];
  CaminhoDoModulo(nosso);
  // The library, or this program where it is linked into it.
  GetModuleFileNameA(GetModuleHandleA("kxldadoscm.dll"), deles, kTamanhoCaminho);
  EXPECT_STREQ(nosso, deles);
}

TEST(MensagensDeJanela, NumerosDoSistema) {
  const std::pair<std::uint32_t, const char*> mensagens[] = {
      {KXDadosComprasMensagemUltimaTab(), "CKXEnter::WM_KXENTER_EH_ULTIMA_TAB"},
      {KXDadosComprasMensagemPodeSetarFocoTab(), "CKXEnter::WM_KXENTER_PODE_SETAR_FOCO_TAB"},
      {RegistraMensagemJanela("Teste::Uma"), "TESTE::UMA"}};
  for (const auto& [numero, nome] : mensagens) {
    EXPECT_EQ(numero, RegisterWindowMessageA(nome)) << nome;
    EXPECT_GE(numero, 0xC000U);
  }
  EXPECT_EQ(RegistraMensagemJanela(""), 0U);
}

}  // namespace
