#include <dlfcn.h>
#include <limits.h>
#include <setjmp.h>
#include <signal.h>
#include <stdlib.h>
#if defined(__aarch64__) && defined(__linux__)
#include <sys/auxv.h>
#endif
#include <ucontext.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <new>
#include <string>
#include <vector>

#include "platform/Plataforma.h"

namespace kx::plataforma {

// --- Task allocator -----------------------------------------------------------------------------

#if defined(KX_ALOCADORES_DISTINTOS)

// For tests: a block of this allocator carries a mark before it, so that array new neither takes it
// for its own nor it for array new's, as on Windows.
namespace {

struct alignas(std::max_align_t) Marca {
  std::uint64_t Bits[2];
};
constexpr Marca kMarca{{0x4B58'5461'7265'6661, 0xA10C'0DE5'B10C'0DE5}};

// Where there is no mark, this reads what the allocator keeps before a block: not for a sanitizer.
[[gnu::no_sanitize_address]] bool EhDaTarefa(const void* bloco) noexcept {
  const auto* const marca = static_cast<const volatile std::uint64_t*>(bloco) - 2;
  return marca[0] == kMarca.Bits[0] && marca[1] == kMarca.Bits[1];
}

}  // namespace

void* AlocaTarefa(std::size_t n) noexcept {
  if (n > SIZE_MAX - sizeof(Marca)) return nullptr;
  void* const inicio = ::operator new[](sizeof(Marca) + n, std::nothrow);
  return inicio == nullptr ? nullptr : new (inicio) Marca(kMarca) + 1;
}

void LiberaTarefa(void* bloco) noexcept {
  if (bloco == nullptr) return;
  if (EhDaTarefa(bloco)) {
    bloco = static_cast<Marca*>(bloco) - 1;
    std::memset(bloco, 0, sizeof(Marca));
  }
  ::operator delete[](bloco);
}

#else

void* AlocaTarefa(std::size_t n) noexcept { return ::operator new[](n, std::nothrow); }

void LiberaTarefa(void* bloco) noexcept { ::operator delete[](bloco); }

#endif

// --- Library loader -----------------------------------------------------------------------------

void* CarregaBiblioteca(const char* nome) noexcept {
  try {
    const std::string arquivo = "lib" + std::string(nome) + ".so";
    return dlopen(arquivo.c_str(), RTLD_NOW | RTLD_LOCAL);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* EntradaDaBiblioteca(void* biblioteca, const char* entrada) noexcept {
  return dlsym(biblioteca, entrada);
}

void DescarregaBiblioteca(void* biblioteca) noexcept { dlclose(biblioteca); }

void CaminhoDoModulo(char (&caminho)[kTamanhoCaminho]) noexcept {
  static const char marca = 0;  // any address inside the module
  caminho[0] = '\0';
  Dl_info info{};
  if (dladdr(&marca, &info) == 0 || info.dli_fname == nullptr) return;
  // The loader keeps the path as it was given, a program's own may be relative.
  char completo[PATH_MAX];
  const char* origem = info.dli_fname;
  if (origem[0] != '/' && realpath(origem, completo) != nullptr) origem = completo;
  const std::size_t n = std::min(std::strlen(origem), kTamanhoCaminho - 1);
  std::memcpy(caminho, origem, n);
  caminho[n] = '\0';
}

// --- Window messages ----------------------------------------------------------------------------

std::uint32_t RegistraMensagemJanela(const char* nome) noexcept {
  constexpr std::size_t kPrimeira = 0xC000;
  constexpr std::size_t kUltima = 0xFFFF;
  static std::mutex tranca;
  static std::vector<std::string> nomes;
  try {
    const std::lock_guard guarda(tranca);
    const auto achado = std::find(nomes.begin(), nomes.end(), nome);
    const auto numero = kPrimeira + static_cast<std::size_t>(achado - nomes.begin());
    if (numero > kUltima) return 0;
    if (achado == nomes.end()) nomes.emplace_back(nome);
    return static_cast<std::uint32_t>(numero);
  } catch (const std::bad_alloc&) {
    return 0;
  }
}

// --- Guarded copy and fill ----------------------------------------------------------------------

namespace {

// The jump back into a guarded copy. The compiler's own is a few instructions, half the cost of the
// C library's, and restores no signal mask either: the handler does. On other processors not every
// compiler has it, and ThreadSanitizer must see the jump, to undo what it keeps about the copy that
// was left.
#if defined(__SANITIZE_THREAD__)
#define KX_TSAN
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KX_TSAN
#endif
#endif
#if defined(KX_TSAN) || !defined(__x86_64__)
using Retorno = sigjmp_buf;
#define KX_MARCA_RETORNO(retorno) sigsetjmp(retorno, 0)
#define KX_RETORNA(retorno) siglongjmp(*(retorno), 1)
#else
using Retorno = void* [5];
#define KX_MARCA_RETORNO(retorno) __builtin_setjmp(retorno)
#define KX_RETORNA(retorno) __builtin_longjmp(*(retorno), 1)
#endif

// Where the thread resumes when its guarded copy faults; null outside such a copy. Initial-exec: a
// signal handler must not be the one that allocates the thread's block of variables.
[[gnu::tls_model("initial-exec")]] thread_local Retorno* volatile gRetorno = nullptr;

// The handlers found at installation.
struct sigaction gAnteriorSegv;
struct sigaction gAnteriorBus;

bool TemMarca(const struct sigaction& acao, unsigned marca) {
  return (static_cast<unsigned>(acao.sa_flags) & marca) != 0;
}

// The handler found, as the system would deliver it now: one marked to run once runs once.
struct sigaction TomaAnterior(int sinal) {
  struct sigaction& guardado = sinal == SIGBUS ? gAnteriorBus : gAnteriorSegv;
  const struct sigaction anterior = guardado;
  if (TemMarca(anterior, SA_RESETHAND)) {
    guardado.sa_handler = SIG_DFL;
    guardado.sa_flags = 0;
  }
  return anterior;
}

// What the system does with a signal that nobody handles: a fault happens again on return, at its
// own place; a signal that was sent has to be sent again.
void AplicaPadrao(int sinal, bool falha) {
  struct sigaction padrao {};
  padrao.sa_handler = SIG_DFL;
  sigaction(sinal, &padrao, nullptr);
  if (!falha) raise(sinal);
}

void EntregaAoAnterior(int sinal, siginfo_t* info, void* contexto, bool falha) {
  const struct sigaction anterior = TomaAnterior(sinal);
  const bool completo = TemMarca(anterior, SA_SIGINFO);
  if (!completo && anterior.sa_handler == SIG_IGN && !falha) return;
  // A fault cannot be ignored: the system ends the process.
  if (!completo && (anterior.sa_handler == SIG_DFL || anterior.sa_handler == SIG_IGN)) {
    AplicaPadrao(sinal, falha);
    return;
  }
  // The mask that the earlier handler asked for; the return from the signal undoes it.
  sigset_t mascara = anterior.sa_mask;
  if (!TemMarca(anterior, SA_NODEFER)) sigaddset(&mascara, sinal);
  pthread_sigmask(SIG_BLOCK, &mascara, nullptr);
  if (completo) {
    anterior.sa_sigaction(sinal, info, contexto);
  } else {
    anterior.sa_handler(sinal);
  }
}

void TrataSinal(int sinal, siginfo_t* info, void* contexto) {
  const bool falha = info->si_code > 0;  // raised by the processor, not sent by a process
  if (falha && gRetorno != nullptr) {
    // As the return from the signal would: a handler that called this one may have blocked more.
    pthread_sigmask(SIG_SETMASK, &static_cast<ucontext_t*>(contexto)->uc_sigmask, nullptr);
    KX_RETORNA(gRetorno);
  }
  EntregaAoAnterior(sinal, info, contexto, falha);
}

bool InstalaTratador() {
  struct sigaction nosso {};
  nosso.sa_sigaction = TrataSinal;
  // NODEFER: whether the signal is blocked is up to the handler that was there before.
  nosso.sa_flags = SA_SIGINFO | SA_NODEFER | SA_ONSTACK;
  sigemptyset(&nosso.sa_mask);
  // Read before ours is in force: another thread may fault at once.
  sigaction(SIGSEGV, nullptr, &gAnteriorSegv);
  sigaction(SIGBUS, nullptr, &gAnteriorBus);
  return sigaction(SIGSEGV, &nosso, nullptr) == 0 && sigaction(SIGBUS, &nosso, nullptr) == 0;
}

[[gnu::always_inline]] inline void GaranteTratador() {
  [[maybe_unused]] static const bool instalado = InstalaTratador();
}

void Copia(void* destino, const void* origem, std::size_t n) { std::memmove(destino, origem, n); }
void Preenche(void* destino, int valor, std::size_t n) { std::memset(destino, valor, n); }
void Mede(void* destino, const char* texto, std::size_t limite) {
  const std::size_t tamanho = strnlen(texto, limite);
  std::memcpy(destino, &tamanho, sizeof(tamanho));
}
void Olha(void* /*destino*/, const volatile char* bloco, std::size_t n) {
  constexpr std::size_t kMenorPagina = 4096;
  for (std::size_t i = 0; i < n; i += kMenorPagina) [[maybe_unused]] const char visto = bloco[i];
  [[maybe_unused]] const char ultimo = bloco[n - 1];
}
void Chama(void* contexto, void (*acao)(void*), std::size_t /*n*/) { acao(contexto); }

// Runs the action; null when a fault stopped it. The fences keep the compiler from moving the
// action's memory accesses out of the guarded stretch.
template <auto Acao, class Fonte>
[[gnu::noinline]] void* SemFalha(void* destino, Fonte fonte, std::size_t n) noexcept {
  GaranteTratador();
  Retorno retorno;
  Retorno* const externo = gRetorno;
  if (KX_MARCA_RETORNO(retorno) != 0) {
    gRetorno = externo;
    return nullptr;
  }
  gRetorno = &retorno;
  std::atomic_signal_fence(std::memory_order_seq_cst);
  Acao(destino, fonte, n);
  std::atomic_signal_fence(std::memory_order_seq_cst);
  gRetorno = externo;
  return destino;
}

}  // namespace

void* CopiaProtegida(void* destino, const void* origem, std::size_t n) noexcept {
  if (n == 0) return destino;
  if (destino == nullptr || origem == nullptr) return nullptr;
  return SemFalha<Copia>(destino, origem, n);
}

void* PreencheProtegido(void* destino, int valor, std::size_t n) noexcept {
  if (n == 0) return destino;
  if (destino == nullptr) return nullptr;
  return SemFalha<Preenche>(destino, valor, n);
}

bool MedeProtegido(const char* texto, std::size_t limite, std::size_t& tamanho) noexcept {
  return texto != nullptr && SemFalha<Mede>(&tamanho, texto, limite) != nullptr;
}

bool Protege(void (*acao)(void* contexto), void* contexto) noexcept {
  return SemFalha<Chama>(contexto, acao, 0) != nullptr;
}

bool Legivel(const void* bloco, std::size_t n) noexcept {
  if (n == 0) return true;
  char algum = 0;
  return bloco != nullptr &&
         SemFalha<Olha>(&algum, static_cast<const volatile char*>(bloco), n) != nullptr;
}

bool TemCRC32() noexcept {
#if defined(__aarch64__) && defined(__linux__)
  return (getauxval(AT_HWCAP) & HWCAP_CRC32) != 0;
#else
  return false;
#endif
}

}  // namespace kx::plataforma
