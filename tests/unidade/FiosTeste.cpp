// Many threads at once: each with objects of its own, among faults of the guarded copy, and all at
// the first use of what the library makes or installs only then.
#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "ac/ArvoreAC.h"
#include "cc/DadosCC.h"
#include "compras/KXDadosCompras.h"
#include "core/Checksum.h"
#include "oc/DadosOC.h"
#include "platform/Plataforma.h"
#include "tests/apoio/Paginas.h"
#include "tests/apoio/Prova.h"
#include "tests/mensagens/KXMensFalsa.h"

namespace {

constexpr unsigned kFios = 8;

template <class Trabalho>
void EmCadaFio(Trabalho trabalho) {
  std::vector<std::thread> fios;
  for (unsigned fio = 0; fio < kFios; ++fio) fios.emplace_back(trabalho, fio);
  for (std::thread& fio : fios) fio.join();
}

// Every class, with records that cannot be read among others.
bool TodasResistem(unsigned semente) {
  apoio::Bytes bytes(semente);
  try {
    for (const apoio::Classe& classe : apoio::ClassesDeRegistro()) apoio::Prova(classe, bytes);
  } catch (const std::runtime_error&) {
    return false;
  }
  return true;
}

bool ArvoreMontaECopia(unsigned fio) {
  CKXDadosCM_ACTreeAutorizacaoCompra::ListaDeChaves chaves;
  for (std::uint32_t chave = 1; chave < 50; ++chave) chaves.AddTail({chave + fio, chave / 2 + fio});
  chaves.AddHead({fio, 0});
  CKXDadosCM_ACTreeAutorizacaoCompra arvore;
  arvore.CopiarDe(chaves);
  const CKXDadosCM_ACTreeAutorizacaoCompra copia(arvore);
  return copia == arvore && copia.GetQuantidadeNodes() == 1;
}

TEST(Fios, CadaUmComSeusObjetosEntreFalhas) {
  const Mensagens mensagens;
  ASSERT_TRUE(mensagens.Carregada());
  mensagens.Estado() = {};
  std::atomic<int> erros = 0;
  EmCadaFio([&](unsigned fio) {
    for (unsigned vez = 0; vez < 3; ++vez) {
      if (!TodasResistem(1 + fio + vez * kFios)) ++erros;
      if (!ArvoreMontaECopia(1 + fio)) ++erros;
    }
  });
  EXPECT_EQ(erros, 0);
  EXPECT_GT(mensagens.Relatos().size(), std::size_t{kFios});
}

// Each of them is what it should be on its very first use, whoever else uses it just then.
using PrimeiroUso = bool (*)(const apoio::Paginas& paginas);
constexpr PrimeiroUso kPrimeirosUsos[] = {
    [](const apoio::Paginas& paginas) {
      const char* dados = paginas.Legivel();
      return kx::CalculaChecksum(dados, 900) == kx::CalculaChecksumTabela(dados, 900);
    },
    [](const apoio::Paginas& paginas) {
      char destino[8];
      return kx::plataforma::CopiaProtegida(destino, paginas.Proibida(), 8) == nullptr;
    },
    [](const apoio::Paginas&) {
      const CKXDadosCM_OrdemCompra ordem;
      return ordem.IsKindOf(CObject::GetThisClass()) &&
             ordem.GetRuntimeClass() != CKXDadosCM_CCContrato::GetThisClass();
    },
    [](const apoio::Paginas&) {
      const KXRegistroInfo* info = KXProcuraRegistro("tagREG_ORDEMPS");
      return info != nullptr && info->Tamanho == sizeof(tagREG_ORDEMPS);
    },
    [](const apoio::Paginas&) {  // too long: the message library is loaded for the report
      const std::string longo(999, 'a');
      return !CKXDadosCM_OrdemCompra().SetComplementoHistorico(longo.c_str()).EstaVazio();
    },
    [](const apoio::Paginas&) {
      const std::uint32_t numero = kx::plataforma::RegistraMensagemJanela("Fios");
      return numero > KXDadosComprasMensagemPodeSetarFocoTab() &&
             numero == kx::plataforma::RegistraMensagemJanela("Fios");
    },
};

// Lets the threads go once all have come, as close together as can be. (MinGW's std::barrier loses
// one of them now and then.)
class Largada {
 public:
  void Espera() {
    const unsigned vez = _vez;
    if (++_chegaram == kFios) {
      _chegaram = 0;
      ++_vez;
    }
    while (_vez == vez) std::this_thread::yield();
  }

 private:
  std::atomic<unsigned> _chegaram = 0;
  std::atomic<unsigned> _vez = 0;
};

// Ends the process, which is a fresh one: nothing was used before.
[[noreturn]] void UsaTudoPelaPrimeiraVez(const apoio::Paginas& paginas) {
  std::atomic<int> erros = 0;
  Largada largada;
  EmCadaFio([&](unsigned) {
    for (const PrimeiroUso usa : kPrimeirosUsos) {
      largada.Espera();
      if (!usa(paginas)) ++erros;
    }
  });
  std::_Exit(erros == 0 ? 0 : 1);
}

TEST(FiosDeathTest, PrimeiroUsoAoMesmoTempo) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const apoio::Paginas paginas;
  for (int vez = 0; vez < 3; ++vez) {
    EXPECT_EXIT(UsaTudoPelaPrimeiraVez(paginas), testing::ExitedWithCode(0), "");
  }
}

}  // namespace
