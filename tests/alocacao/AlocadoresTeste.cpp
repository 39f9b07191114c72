// Which allocator each array and text of a record comes from, for every class. That each goes back
// to the same one is watched for by the replaced operators, which end the program otherwise.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "Alocadores.h"
#include "tests/apoio/ClassesDeRegistro.h"
#include "tests/apoio/ContaAlocacoes.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace {

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
  void Percorre(const KXRegistroInfo& info, const void* registro) {
    const auto* const bytes = static_cast<const unsigned char*>(registro);
    for (const KXCampo& campo : info.Campos) {
      const bool contado = campo.Papel == KXPapel::Contado;
      if (!contado && campo.Papel != KXPapel::Lista && campo.Papel != KXPapel::Corrido &&
          campo.Papel != KXPapel::Terminado) {
        continue;
      }
      const unsigned char* bloco = nullptr;
      const std::size_t desvio = contado ? offsetof(KXStringPS, Texto) : 0;
      std::memcpy(&bloco, bytes + campo.Posicao + desvio, sizeof(bloco));
      if (bloco == nullptr) continue;
      Conta(campo, bloco);
      if (campo.Papel != KXPapel::Lista) continue;
      std::uint16_t quantos = 0;
      std::memcpy(&quantos, bytes + apoio::ContaDe(info, campo).Posicao, sizeof(quantos));
      for (std::size_t i = 0; i < quantos; ++i) {
        Percorre(*campo.Elemento, bloco + i * campo.Elemento->Tamanho);
      }
    }
  }

 private:
  int _arma = 0;
};

template <class Classe>
class Alocadores : public ::testing::Test {
 protected:
  using REG = typename Classe::Registro;

  void SetUp() override {
    if (!AlocadoresDistintos()) GTEST_SKIP() << "here both allocators are the same memory";
  }

  // Writes the object, looks at what hangs from the record, and releases it.
  void Confere(Classe& objeto, auto escreve, bool daTarefa) {
    const long long vivas = apoio::AlocacoesVivas();
    REG registro{};
    escreve(objeto, &registro);
    Origens origens;
    origens.Percorre(KXMetadados<REG>::kInfo, &registro);
    EXPECT_EQ(daTarefa ? origens.Array : origens.Tarefa, 0);
    EXPECT_EQ(origens.ArmaNaTarefa, 0);
    kx::LiberaRegistro(&registro, daTarefa ? kx::Alocador::Tarefa : kx::Alocador::Delete);
    EXPECT_EQ(apoio::AlocacoesVivas(), vivas);
  }
};
TYPED_TEST_SUITE(Alocadores, apoio::ClassesDeRegistro);

// The goods receipt and the freight bill travel in task memory, all else in array new's; what a
// class writes for transport is in task memory always.
TYPED_TEST(Alocadores, CadaArrayETextoEDoSeu) {
  using REG = typename TypeParam::Registro;
  const std::string_view nome = TypeParam::GetThisClass()->m_lpszClassName;
  const bool daTarefa = nome.starts_with("CKXDadosCM_RE") || nome.starts_with("CKXDadosCM_CT");
  for (unsigned semente = 25; semente < 29; ++semente) {
    const apoio::RegistroAleatorio<REG> original(semente, true);
    TypeParam objeto;
    objeto.CopiarDe(&original.Reg);
    this->Confere(
        objeto, [](TypeParam& o, REG* r) { o.CopiarPara(r); }, daTarefa);
    if constexpr (requires(REG * r) { objeto.CopiarParaPS(r); }) {
      this->Confere(
          objeto, [](TypeParam& o, REG* r) { o.CopiarParaPS(r); }, true);
    }
  }
}

}  // namespace
