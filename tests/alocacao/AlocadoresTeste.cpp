// Which allocator each array and text of a record comes from, for every class. That each goes back
// to the same one is watched for by the replaced operators, which end the program otherwise.
#include <gtest/gtest.h>

#include <string_view>

#include "Alocadores.h"
#include "tests/apoio/ContaAlocacoes.h"
#include "tests/apoio/PorClasse.h"

namespace {

using apoio::Classe;
using apoio::Objeto;

// How many of the record's blocks are of the task allocator, and how many are not; the firearm
// description, which is always array new's, apart.
struct Origens {
  int Tarefa = 0;
  int Array = 0;
  int ArmaNaTarefa = 0;

  void Conta(const KXCampo& campo, const void* bloco) {
    const bool arma = std::string_view(campo.Nome) == "ArmaFogo_Descricao";
    (!EhDaTarefa(bloco) ? (arma ? _arma : Array) : (arma ? ArmaNaTarefa : Tarefa))++;
  }
  void Percorre(const KXRegistroInfo& info, const unsigned char* registro) {
    for (const KXCampo& campo : info.Campos) {
      const unsigned char* const ponteiro = apoio::PonteiroDe(campo, registro);
      if (ponteiro == nullptr) continue;
      const auto* const bloco = apoio::Lido<const unsigned char*>(ponteiro);
      if (bloco == nullptr) continue;
      Conta(campo, bloco);
      if (campo.Papel != KXPapel::Lista) continue;
      const auto conta = registro + apoio::ContaDe(info, campo).Posicao;
      for (std::size_t i = 0; i < apoio::Lido<std::uint16_t>(conta); ++i) {
        Percorre(*campo.Elemento, bloco + i * campo.Elemento->Tamanho);
      }
    }
  }

 private:
  int _arma = 0;
};

KX_POR_CLASSE(Alocadores, apoio::ClassesDeRegistro());

// Writes the object, looks at what hangs from the record, and releases it.
void Confere(const Classe& classe, const Objeto& objeto, void (*escreve)(apoio::Base&, void*),
             bool daTarefa) {
  const long long vivas = apoio::AlocacoesVivas();
  std::vector<unsigned char> registro(classe.Info->Tamanho);
  escreve(*objeto, registro.data());
  Origens origens;
  origens.Percorre(*classe.Info, registro.data());
  EXPECT_EQ(daTarefa ? origens.Array : origens.Tarefa, 0);
  EXPECT_EQ(origens.ArmaNaTarefa, 0);
  apoio::Libera(*classe.Info, registro.data(),
                daTarefa ? kx::Alocador::Tarefa : kx::Alocador::Delete);
  EXPECT_EQ(apoio::AlocacoesVivas(), vivas + 1);  // the record itself
}

// The goods receipt and the freight bill travel in task memory, all else in array new's; what a
// class writes for transport is in task memory always.
TEST_P(Alocadores, CadaArrayETextoEDoSeu) {
  if (!AlocadoresDistintos()) GTEST_SKIP() << "here both allocators are the same memory";
  const std::string_view nome = Atual().Nome;
  const bool daTarefa = nome.starts_with("CKXDadosCM_RE") || nome.starts_with("CKXDadosCM_CT");
  const apoio::Registro original(Info(), 25, true);
  const Objeto objeto(Atual(), original.Bytes());
  Confere(Atual(), objeto, Atual().CopiarPara, daTarefa);
  if (Atual().CopiarParaPS != nullptr) Confere(Atual(), objeto, Atual().CopiarParaPS, true);
}

TEST(AlocadorDeTarefas, ContaEFalhaComoOsOutros) {
  const long long vivas = apoio::AlocacoesVivas();
  void* const bloco = kx::plataforma::AlocaTarefa(40);
  EXPECT_EQ(apoio::AlocacoesVivas(), vivas + 1);
  kx::plataforma::LiberaTarefa(bloco);
  kx::plataforma::LiberaTarefa(new char[40]);
  EXPECT_EQ(apoio::AlocacoesVivas(), vivas);
  apoio::FalhaNaAlocacao(1);
  EXPECT_EQ(kx::plataforma::AlocaTarefa(40), nullptr);
  EXPECT_TRUE(apoio::AlocacaoFalhou());
}

TEST(AlocadorDeTarefasDeathTest, OutroNaoLiberaOsSeusBlocos) {
  if (!AlocadoresDistintos()) GTEST_SKIP() << "here both allocators are the same memory";
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(::operator delete[](kx::plataforma::AlocaTarefa(40)), "not its own");
}

}  // namespace
