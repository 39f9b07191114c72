// Many threads at once: each with objects of its own, among faults of the guarded copy, and all at
// the first use of what the library makes or installs only then.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "ac/ArvoreAC.h"
#include "cc/DadosCC.h"
#include "compras/KXDadosCompras.h"
#include "core/Checksum.h"
#include "cp/DadosCP.h"
#include "ct/DadosCT.h"
#include "oc/DadosOC.h"
#include "platform/Plataforma.h"
#include "re/DadosRE.h"
#include "sc/DadosSC.h"
#include "tests/apoio/Paginas.h"
#include "tests/apoio/RegistroAleatorio.h"
#include "tests/mensagens/KXMensFalsa.h"

namespace {

constexpr unsigned kFios = 8;

template <class Trabalho>
void EmCadaFio(Trabalho trabalho) {
  std::vector<std::thread> fios;
  for (unsigned fio = 0; fio < kFios; ++fio) fios.emplace_back(trabalho, fio);
  for (std::thread& fio : fios) fio.join();
}

// There, back, copied, moved, cleared; true when nothing was lost.
template <class Classe>
bool VaiEVolta(unsigned semente) {
  using REG = typename Classe::Registro;
  const apoio::RegistroAleatorio<REG> original(semente);
  Classe objeto;
  objeto.CopiarDe(&original.Reg);
  apoio::RegistroEscrito<REG> escrito;
  objeto.CopiarPara(&escrito.Reg);
  Classe volta;
  volta.CopiarDe(&escrito.Reg);
  const Classe copia(objeto);
  const bool inteiro = volta == objeto && copia.CalculaCRC(nullptr) == volta.CalculaCRC(nullptr);
  volta = std::move(objeto);
  const bool movido = volta == copia;
  volta.Limpar();
  return inteiro && movido && volta.EstaVazio();
}

// The record with every array and text of its own where nothing can be read.
template <class REG>
REG Quebrado(const REG& inteiro, char* proibida) {
  REG quebrado = inteiro;
  auto* bytes = reinterpret_cast<unsigned char*>(&quebrado);
  for (const KXCampo& campo : KXMetadados<REG>::kCampos) {
    if (campo.Papel == KXPapel::Lista || campo.Papel == KXPapel::Corrido) {
      std::memcpy(bytes + campo.Posicao, &proibida, sizeof(proibida));
    } else if (campo.Papel == KXPapel::Contado) {
      const KXStringPS texto{10, 0, proibida};
      std::memcpy(bytes + campo.Posicao, &texto, sizeof(texto));
    }
  }
  return quebrado;
}

template <class Classe>
bool SobreviveAFalhas(unsigned semente, const apoio::Paginas& paginas) {
  using REG = typename Classe::Registro;
  const apoio::RegistroAleatorio<REG> original(semente);
  const REG quebrado = Quebrado(original.Reg, paginas.Proibida());
  Classe objeto;
  objeto.CopiarDe(&quebrado);
  apoio::RegistroEscrito<REG> escrito;
  objeto.CopiarPara(&escrito.Reg);
  objeto.CopiarDe(reinterpret_cast<const REG*>(paginas.Proibida()));
  return objeto.EstaVazio();
}

template <class... Classes>
struct Documentos {
  static bool TodosVaoEVoltam(unsigned semente) { return (VaiEVolta<Classes>(semente) && ...); }
  static bool TodosSobrevivem(unsigned semente, const apoio::Paginas& paginas) {
    return (SobreviveAFalhas<Classes>(semente, paginas) && ...);
  }
};
using Todos =
    Documentos<CKXDadosCM_SCSolicitacaoCompra, CKXDadosCM_CotacaoPreco, CKXDadosCM_OrdemCompra,
               CKXDadosCM_ACAutorizacaoCompra, CKXDadosCM_RERegistroEntrada,
               CKXDadosCM_CTConhecimentoTransporte, CKXDadosCM_CCContrato>;

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
  const apoio::Paginas paginas;
  std::atomic<int> erros = 0;
  EmCadaFio([&](unsigned fio) {
    for (unsigned vez = 0; vez < 3; ++vez) {
      const unsigned semente = fio + vez * kFios;
      if (!Todos::TodosVaoEVoltam(semente)) ++erros;
      if (!Todos::TodosSobrevivem(semente, paginas)) ++erros;
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
      const KXRegistroInfo* info = KXProcuraRegistro("tagREG_ENTRADAPS");
      return info != nullptr && info->Tamanho == sizeof(tagREG_ENTRADAPS);
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
