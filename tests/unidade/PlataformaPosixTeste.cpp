// The platform contract where it speaks of signals: handlers of the process, masks, bus errors.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "platform/Plataforma.h"
#include "tests/apoio/Paginas.h"

namespace {

using namespace kx::plataforma;
using apoio::Paginas;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kComSanitizador = true;
#elif defined(__has_feature)
constexpr bool kComSanitizador =
    __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
constexpr bool kComSanitizador = false;
#endif

bool Bloqueado(int sinal) {
  sigset_t mascara;
  pthread_sigmask(SIG_SETMASK, nullptr, &mascara);
  return sigismember(&mascara, sinal) != 0;
}

TEST(CopiaProtegida, FalhaNaoDeixaSinalBloqueado) {
  const Paginas paginas;
  char destino[8];
  EXPECT_EQ(CopiaProtegida(destino, paginas.Proibida(), sizeof(destino)), nullptr);
  EXPECT_FALSE(Bloqueado(SIGSEGV));
}

// A file mapping beyond the file's end: a bus error.
TEST(CopiaProtegida, ErroDeBarramento) {
  const int arquivo = memfd_create("vazio", 0);
  ASSERT_GE(arquivo, 0);
  void* const alem = mmap(nullptr, Paginas::kPagina, PROT_READ, MAP_SHARED, arquivo, 0);
  char destino[8];
  EXPECT_EQ(CopiaProtegida(destino, alem, sizeof(destino)), nullptr);
  EXPECT_FALSE(Bloqueado(SIGBUS));
  munmap(alem, Paginas::kPagina);
  close(arquivo);
}

// A signal handler with copies of its own interrupts a copy of the same thread, which keeps its
// guard.
const Paginas* gPaginas = nullptr;
std::atomic<int> gAninhadas = 0;
std::atomic<bool> gFim = false;

void CopiaDentroDoSinal(int) {
  char destino[8];
  if (CopiaProtegida(destino, gPaginas->Proibida(), sizeof(destino)) == nullptr) ++gAninhadas;
  CopiaProtegida(destino, gPaginas->Legivel(), sizeof(destino));
}

TEST(CopiaProtegida, DentroDeOutra) {
  if (kComSanitizador) GTEST_SKIP() << "a sanitizer's own copy cannot be left from a handler";
  const Paginas paginas(256);
  gPaginas = &paginas;
  std::vector<char> muito(257 * Paginas::kPagina);
  struct sigaction acao {};
  struct sigaction antes {};
  acao.sa_handler = CopiaDentroDoSinal;
  sigaction(SIGUSR1, &acao, &antes);
  const pthread_t eu = pthread_self();
  std::thread outro([eu] {
    for (int vez = 0; vez < 50; ++vez) {
      pthread_kill(eu, SIGUSR1);
      usleep(200);
    }
    gFim = true;
  });
  while (!gFim) {
    EXPECT_EQ(PreencheProtegido(muito.data(), 0, muito.size()), muito.data());
    EXPECT_EQ(CopiaProtegida(muito.data(), paginas.Legivel(), muito.size()), nullptr);
  }
  outro.join();
  sigaction(SIGUSR1, &antes, nullptr);
  EXPECT_GT(gAninhadas, 0);
}

// --- The process's own handlers, each in a process of its own -----------------------------------

void FalhaForaDaCopia(char* endereco) { *static_cast<volatile char*>(endereco) = 1; }

void Instala(void (*tratador)(int), int marcas = 0) {
  struct sigaction acao {};
  acao.sa_handler = tratador;
  acao.sa_flags = marcas;
  sigaddset(&acao.sa_mask, SIGUSR1);
  sigaction(SIGSEGV, &acao, nullptr);
}

// Uses the guard in both its forms: it is installed once, over the handler of the process.
void UsaAGuarda(const Paginas& paginas) {
  char destino[8];
  if (CopiaProtegida(destino, paginas.Proibida(), sizeof(destino)) != nullptr) _exit(99);
  if (PreencheProtegido(paginas.Proibida(), 0, 1) != nullptr) _exit(99);
}

// By exit, and not at once, so that what ran in the process counts as covered: these handlers run
// for faults of the test's own, not within whatever a signal interrupts.
void SaiCom8(int) { std::exit(Bloqueado(SIGSEGV) && Bloqueado(SIGUSR1) ? 8 : 98); }

void Anuncia(int) {
  static const char texto[] = "uma;";
  if (write(STDERR_FILENO, texto, sizeof(texto) - 1) < 0) _exit(97);
}

char* volatile gEndereco = nullptr;

void SaiCom7(int sinal, siginfo_t* info, void* contexto) {
  std::exit(sinal == SIGSEGV && info->si_addr == gEndereco && contexto != nullptr ? 7 : 98);
}

class OutrasFalhas : public testing::Test {
 protected:
  // A fresh process for each death: there the guard is not installed yet.
  OutrasFalhas() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
  Paginas _paginas;
};
using OutrasFalhasDeathTest = OutrasFalhas;

TEST_F(OutrasFalhasDeathTest, VaoAoTratadorCompleto) {
  const auto processo = [this] {
    struct sigaction acao {};
    acao.sa_sigaction = SaiCom7;
    acao.sa_flags = SA_SIGINFO;
    sigaction(SIGSEGV, &acao, nullptr);
    UsaAGuarda(_paginas);
    gEndereco = _paginas.Proibida() + 5;
    FalhaForaDaCopia(gEndereco);
  };
  EXPECT_EXIT(processo(), testing::ExitedWithCode(7), "");
}

TEST_F(OutrasFalhasDeathTest, VaoAoTratadorSimplesComSuaMascara) {
  const auto processo = [this] {
    Instala(SaiCom8);
    UsaAGuarda(_paginas);
    FalhaForaDaCopia(_paginas.Proibida());
  };
  EXPECT_EXIT(processo(), testing::ExitedWithCode(8), "");
}

TEST_F(OutrasFalhasDeathTest, TratadorDeUmaVezRodaUmaVez) {
  const auto processo = [this] {
    Instala(Anuncia, static_cast<int>(SA_RESETHAND));
    UsaAGuarda(_paginas);
    FalhaForaDaCopia(_paginas.Proibida());
  };
  EXPECT_EXIT(processo(), testing::KilledBySignal(SIGSEGV), "^uma;$");
}

TEST_F(OutrasFalhasDeathTest, SemTratadorOProcessoMorre) {
  const auto falha = [this](void (*padrao)(int)) {
    Instala(padrao);
    UsaAGuarda(_paginas);
    FalhaForaDaCopia(_paginas.Proibida());
  };
  EXPECT_EXIT(falha(SIG_DFL), testing::KilledBySignal(SIGSEGV), "");
  EXPECT_EXIT(falha(SIG_IGN), testing::KilledBySignal(SIGSEGV), "");
}

TEST_F(OutrasFalhasDeathTest, SinalEnviadoTemOEfeitoDeAntes) {
  const auto envia = [this](void (*padrao)(int)) {
    Instala(padrao);
    UsaAGuarda(_paginas);
    raise(SIGSEGV);
    std::exit(6);
  };
  EXPECT_EXIT(envia(SIG_IGN), testing::ExitedWithCode(6), "");
  EXPECT_EXIT(envia(SIG_DFL), testing::KilledBySignal(SIGSEGV), "");
  EXPECT_EXIT(envia(SaiCom8), testing::ExitedWithCode(8), "");
}

struct sigaction gGuarda;

void ChamaAGuarda(int sinal, siginfo_t* info, void* contexto) {
  gGuarda.sa_sigaction(sinal, info, contexto);
}

TEST_F(OutrasFalhasDeathTest, TratadorPosteriorQueChamaAGuardaAMantem) {
  const auto processo = [this] {
    UsaAGuarda(_paginas);
    struct sigaction acao {};
    acao.sa_sigaction = ChamaAGuarda;
    acao.sa_flags = SA_SIGINFO;
    sigaction(SIGSEGV, &acao, &gGuarda);
    UsaAGuarda(_paginas);
    UsaAGuarda(_paginas);
    std::exit(Bloqueado(SIGSEGV) ? 98 : 5);
  };
  EXPECT_EXIT(processo(), testing::ExitedWithCode(5), "");
}

}  // namespace
