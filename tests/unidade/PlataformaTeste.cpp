// The platform contract: guarded copy with real faulting pages, handlers of the process, memory,
// libraries and window messages.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <set>
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

TEST(CopiaProtegida, FalhaDevolveNuloQuantasVezesForem) {
  const Paginas paginas;
  char destino[64];
  for (int vez = 0; vez < 3; ++vez) {
    EXPECT_EQ(CopiaProtegida(destino, paginas.Proibida(), 8), nullptr);
    EXPECT_EQ(CopiaProtegida(paginas.Proibida(), destino, 8), nullptr);
    EXPECT_EQ(CopiaProtegida(destino, paginas.Proibida() - 4, 8), nullptr);
    EXPECT_EQ(PreencheProtegido(paginas.Proibida() - 4, 0, 8), nullptr);
    EXPECT_EQ(CopiaProtegida(destino, nullptr, 1), nullptr);
    EXPECT_EQ(PreencheProtegido(nullptr, 0, 1), nullptr);
    EXPECT_FALSE(Bloqueado(SIGSEGV));
    paginas.Proibida()[-1] = 'q';
    EXPECT_EQ(CopiaProtegida(destino, paginas.Proibida() - 1, 1), destino);
    EXPECT_EQ(destino[0], 'q');
  }
}

TEST(MedeProtegido, TextoAteOFimDaPaginaESemTerminador) {
  constexpr std::size_t kSemFim = std::numeric_limits<std::ptrdiff_t>::max();
  const Paginas paginas;
  std::size_t tamanho = 77;
  EXPECT_FALSE(MedeProtegido(paginas.Legivel(), kSemFim, tamanho));
  EXPECT_FALSE(MedeProtegido(paginas.Proibida(), kSemFim, tamanho));
  EXPECT_FALSE(MedeProtegido(nullptr, kSemFim, tamanho));
  EXPECT_EQ(tamanho, 77U);
  paginas.Proibida()[-1] = '\0';
  EXPECT_TRUE(MedeProtegido(paginas.Legivel(), kSemFim, tamanho));
  EXPECT_EQ(tamanho, Paginas::kPagina - 1);
  EXPECT_TRUE(MedeProtegido(paginas.Legivel(), 5, tamanho));
  EXPECT_EQ(tamanho, 5U);
}

TEST(Legivel, AtePrimeiroByteProibido) {
  const Paginas paginas;
  EXPECT_TRUE(Legivel(paginas.Legivel(), Paginas::kPagina));
  EXPECT_TRUE(Legivel(paginas.Proibida() - 1, 1));
  EXPECT_FALSE(Legivel(paginas.Legivel(), Paginas::kPagina + 1));
  EXPECT_FALSE(Legivel(paginas.Proibida() - 1, 2));
  const Paginas comBuraco(3);
  mprotect(comBuraco.Legivel() + Paginas::kPagina, Paginas::kPagina, PROT_NONE);
  EXPECT_FALSE(Legivel(comBuraco.Legivel(), 3 * Paginas::kPagina));
  EXPECT_FALSE(Legivel(nullptr, 1));
  EXPECT_TRUE(Legivel(nullptr, 0));
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

// The sizes that a compiler turns into plain moves when it can see them.
template <std::size_t N>
void EsperaFalha(const Paginas& paginas) {
  struct {
    char Bytes[N];
  } registro;
  EXPECT_EQ(CopiaProtegida(&registro, paginas.Proibida(), sizeof(registro)), nullptr);
  EXPECT_EQ(PreencheProtegido(paginas.Proibida(), 0, sizeof(registro)), nullptr);
  EXPECT_EQ(CopiaProtegida(&registro, paginas.Legivel(), sizeof(registro)), &registro);
  EXPECT_EQ(std::memcmp(&registro, paginas.Legivel(), sizeof(registro)), 0);
}

TEST(CopiaProtegida, TamanhosConstantesPequenos) {
  const Paginas paginas;
  EsperaFalha<1>(paginas);
  EsperaFalha<2>(paginas);
  EsperaFalha<4>(paginas);
  EsperaFalha<8>(paginas);
  EsperaFalha<16>(paginas);
  EsperaFalha<24>(paginas);
  EsperaFalha<40>(paginas);
}

TEST(CopiaProtegida, VariosFiosAoMesmoTempo) {
  const Paginas paginas;
  std::atomic<int> erros = 0;
  std::vector<std::thread> fios;
  for (int fio = 0; fio < 4; ++fio) {
    fios.emplace_back([&] {
      char destino[32];
      for (int vez = 0; vez < 500; ++vez) {
        if (CopiaProtegida(destino, paginas.Proibida(), sizeof(destino)) != nullptr) ++erros;
        if (CopiaProtegida(destino, paginas.Legivel(), sizeof(destino)) != destino) ++erros;
      }
    });
  }
  for (std::thread& fio : fios) fio.join();
  EXPECT_EQ(erros, 0);
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

// --- Memory, libraries, messages ----------------------------------------------------------------

TEST(Alocador, LiberaOsSeusEOsDeArrayNew) {
  char* const bloco = static_cast<char*>(AlocaTarefa(40));
  ASSERT_NE(bloco, nullptr);
  std::memset(bloco, 1, 40);
  LiberaTarefa(bloco);
  LiberaTarefa(new char[40]);
  LiberaTarefa(nullptr);
}

TEST(Bibliotecas, AusentesDaoNulo) {
  EXPECT_EQ(CarregaBiblioteca("KXNaoExiste"), nullptr);
  void* const mensagens = CarregaBiblioteca("KXMens");
  ASSERT_NE(mensagens, nullptr);
  EXPECT_NE(EntradaDaBiblioteca(mensagens, "KXTrataErroExported"), nullptr);
  EXPECT_EQ(EntradaDaBiblioteca(mensagens, "KXNaoExiste"), nullptr);
  DescarregaBiblioteca(mensagens);
}

TEST(Bibliotecas, CaminhoDoModuloECompleto) {
  char caminho[kTamanhoCaminho];
  CaminhoDoModulo(caminho);
  EXPECT_EQ(caminho[0], '/');
  EXPECT_EQ(access(caminho, R_OK), 0) << caminho;
}

TEST(MensagensDeJanela, MesmoNomeMesmoNumero) {
  std::vector<std::vector<std::uint32_t>> numeros(4);
  std::vector<std::thread> fios;
  for (std::size_t fio = 0; fio < numeros.size(); ++fio) {
    fios.emplace_back([&numeros, fio] {
      for (int i = 0; i < 50; ++i) {
        numeros[fio].push_back(RegistraMensagemJanela(("Teste" + std::to_string(i)).c_str()));
      }
    });
  }
  for (std::thread& fio : fios) fio.join();
  const std::set<std::uint32_t> distintos(numeros[0].begin(), numeros[0].end());
  EXPECT_EQ(distintos.size(), 50U);
  EXPECT_TRUE(*distintos.begin() >= 0xC000 && *distintos.rbegin() <= 0xFFFF);
  for (const auto& deUmFio : numeros) EXPECT_EQ(deUmFio, numeros[0]);
}

}  // namespace
