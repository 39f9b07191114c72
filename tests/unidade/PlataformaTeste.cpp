// The platform contract: guarded copy with real faulting pages, memory, libraries and window
// messages. What is one system's alone is in a source of its own.
#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
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
    paginas.Proibida()[-1] = 'q';
    EXPECT_EQ(CopiaProtegida(destino, paginas.Proibida() - 1, 1), destino);
    EXPECT_EQ(destino[0], 'q');
  }
}

TEST(CopiaProtegida, PaginaSoDeLeituraRecusaAEscrita) {
  const Paginas paginas(2);
  apoio::SoLeituraDePaginas(paginas.Legivel(), Paginas::kPagina);
  char byte = 0;
  EXPECT_EQ(CopiaProtegida(&byte, paginas.Legivel(), 1), &byte);
  EXPECT_EQ(byte, 'p');
  EXPECT_EQ(CopiaProtegida(paginas.Legivel(), &byte, 1), nullptr);
  EXPECT_EQ(PreencheProtegido(paginas.Legivel() + Paginas::kPagina - 1, 0, 2), nullptr);
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
  apoio::ProibePaginas(comBuraco.Legivel() + Paginas::kPagina, Paginas::kPagina);
  EXPECT_FALSE(Legivel(comBuraco.Legivel(), 3 * Paginas::kPagina));
  EXPECT_FALSE(Legivel(nullptr, 1));
  EXPECT_TRUE(Legivel(nullptr, 0));
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
  EXPECT_TRUE(std::filesystem::path(caminho).is_absolute()) << caminho;
  EXPECT_TRUE(std::ifstream(caminho).is_open()) << caminho;
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
