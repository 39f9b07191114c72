#include <objbase.h>
#include <windows.h>

#include <cstring>
#include <new>
#include <string>

#include "platform/Plataforma.h"

namespace kx::plataforma {

// --- Task allocator -----------------------------------------------------------------------------

void* AlocaTarefa(std::size_t n) noexcept { return CoTaskMemAlloc(n); }

namespace {

// Whether the task allocator made the block. It answers no for certain alone, as where both
// allocators take from one heap it cannot tell them apart, and need not.
bool EhDaTarefa(void* bloco) noexcept {
  IMalloc* alocador = nullptr;
  if (FAILED(CoGetMalloc(1, &alocador))) return true;
  const int resposta = alocador->DidAlloc(bloco);
  alocador->Release();
  return resposta != 0;
}

}  // namespace

void LiberaTarefa(void* bloco) noexcept {
  if (bloco == nullptr) return;
  if (EhDaTarefa(bloco)) {
    CoTaskMemFree(bloco);
  } else {
    ::operator delete[](bloco);
  }
}

// --- Library loader -----------------------------------------------------------------------------

void* CarregaBiblioteca(const char* nome) noexcept {
  try {
    const std::string arquivo = std::string(nome) + ".dll";
    // No box on the screen when something that the library itself needs is missing.
    DWORD modo = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &modo);
    const HMODULE biblioteca = LoadLibraryA(arquivo.c_str());
    SetThreadErrorMode(modo, nullptr);
    return biblioteca;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* EntradaDaBiblioteca(void* biblioteca, const char* entrada) noexcept {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(biblioteca), entrada));
}

void DescarregaBiblioteca(void* biblioteca) noexcept {
  FreeLibrary(static_cast<HMODULE>(biblioteca));
}

void CaminhoDoModulo(char (&caminho)[kTamanhoCaminho]) noexcept {
  static const char marca = 0;  // any address inside the module
  caminho[0] = '\0';
  HMODULE modulo = nullptr;
  if (GetModuleHandleExA(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          &marca, &modulo) == 0) {
    return;
  }
  const DWORD n = GetModuleFileNameA(modulo, caminho, kTamanhoCaminho);
  caminho[n < kTamanhoCaminho ? n : kTamanhoCaminho - 1] = '\0';
}

// --- Window messages ----------------------------------------------------------------------------

std::uint32_t RegistraMensagemJanela(const char* nome) noexcept {
  return RegisterWindowMessageA(nome);
}

// --- Guarded copy and fill ----------------------------------------------------------------------

namespace {

// What is done under guard; `fonte` is an address or a value.
using Acao = void (*)(void* destino, std::uintptr_t fonte, std::size_t n);

// The faults of a bad address, a file mapping that cannot be read and a guard page, which is then
// one no more, end the action. Whatever else happens is looked for further up.
extern "C" [[gnu::used]] int KXFiltraFalha(const EXCEPTION_POINTERS* falha, void* /*quadro*/) {
  switch (falha->ExceptionRecord->ExceptionCode) {
    case EXCEPTION_ACCESS_VIOLATION:
    case EXCEPTION_IN_PAGE_ERROR:
    case EXCEPTION_GUARD_PAGE:
      return EXCEPTION_EXECUTE_HANDLER;
    default:
      return EXCEPTION_CONTINUE_SEARCH;
  }
}

#if defined(_MSC_VER)

bool SobGuarda(void* destino, std::uintptr_t fonte, std::size_t n, Acao acao) noexcept {
  __try {
    acao(destino, fonte, n);
    return true;
  } __except (KXFiltraFalha(GetExceptionInformation(), nullptr)) {
    return false;
  }
}

#else

// GCC has no __try. This is what it compiles to: a call, and the table by which the system's own
// handler finds the filter for a fault inside it, and where to go on. The call is through the
// fourth argument; the first three stay where they are.
extern "C" bool KXSobGuarda(void* destino, std::uintptr_t fonte, std::size_t n, Acao acao) noexcept;

asm(R"(
    .text
    .p2align 4
    .globl KXSobGuarda
    .def KXSobGuarda; .scl 2; .type 32; .endef
    .seh_proc KXSobGuarda
KXSobGuarda:
    subq $40, %rsp
    .seh_stackalloc 40
    .seh_endprologue
.Lkx_inicio:
    call *%r9
    nop
.Lkx_fim:
    movl $1, %eax
    addq $40, %rsp
    ret
.Lkx_falhou:
    xorl %eax, %eax
    addq $40, %rsp
    ret
    .seh_handler __C_specific_handler, @except
    .seh_handlerdata
    .long 1
    .rva .Lkx_inicio, .Lkx_fim, KXFiltraFalha, .Lkx_falhou
    .text
    .seh_endproc
)");

bool SobGuarda(void* destino, std::uintptr_t fonte, std::size_t n, Acao acao) noexcept {
  return KXSobGuarda(destino, fonte, n, acao);
}

#endif

void Copia(void* destino, std::uintptr_t fonte, std::size_t n) {
  std::memmove(destino, reinterpret_cast<const void*>(fonte), n);
}

void Preenche(void* destino, std::uintptr_t valor, std::size_t n) {
  std::memset(destino, static_cast<int>(valor), n);
}

void Mede(void* destino, std::uintptr_t fonte, std::size_t limite) {
  const std::size_t tamanho = strnlen(reinterpret_cast<const char*>(fonte), limite);
  std::memcpy(destino, &tamanho, sizeof(tamanho));
}

void Olha(void* /*destino*/, std::uintptr_t fonte, std::size_t n) {
  constexpr std::size_t kPagina = 4096;
  const auto* const bloco = reinterpret_cast<const volatile char*>(fonte);
  for (std::size_t i = 0; i < n; i += kPagina) [[maybe_unused]] const char visto = bloco[i];
  [[maybe_unused]] const char ultimo = bloco[n - 1];
}

void Chama(void* contexto, std::uintptr_t acao, std::size_t /*n*/) {
  reinterpret_cast<void (*)(void*)>(acao)(contexto);
}

std::uintptr_t Endereco(const void* bloco) { return reinterpret_cast<std::uintptr_t>(bloco); }

}  // namespace

void* CopiaProtegida(void* destino, const void* origem, std::size_t n) noexcept {
  if (n == 0) return destino;
  if (destino == nullptr || origem == nullptr) return nullptr;
  return SobGuarda(destino, Endereco(origem), n, Copia) ? destino : nullptr;
}

void* PreencheProtegido(void* destino, int valor, std::size_t n) noexcept {
  if (n == 0) return destino;
  if (destino == nullptr) return nullptr;
  const auto byte = static_cast<std::uintptr_t>(static_cast<unsigned char>(valor));
  return SobGuarda(destino, byte, n, Preenche) ? destino : nullptr;
}

bool MedeProtegido(const char* texto, std::size_t limite, std::size_t& tamanho) noexcept {
  return texto != nullptr && SobGuarda(&tamanho, Endereco(texto), limite, Mede);
}

bool Protege(void (*acao)(void* contexto), void* contexto) noexcept {
  return SobGuarda(contexto, reinterpret_cast<std::uintptr_t>(acao), 0, Chama);
}

bool Legivel(const void* bloco, std::size_t n) noexcept {
  if (n == 0) return true;
  return bloco != nullptr && SobGuarda(nullptr, Endereco(bloco), n, Olha);
}

bool TemCRC32() noexcept { return false; }

}  // namespace kx::plataforma
