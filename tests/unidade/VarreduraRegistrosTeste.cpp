// Sweeps over every class: what the tables and the headers promise holds for all of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <utility>

#include "core/Checksum.h"
#include "core/Financeiro.h"
#include "kxldados/CIEVinculo.h"
#include "tests/apoio/Igualdade.h"
#include "tests/apoio/Paginas.h"
#include "tests/apoio/PorClasse.h"
#include "tests/apoio/Prova.h"

namespace {

using apoio::Classe;
using apoio::Objeto;
using apoio::Registro;

KX_POR_CLASSE(VarreduraClasses, apoio::Classes());
KX_POR_CLASSE(VarreduraRegistros, apoio::ClassesDeRegistro());

using Copia = std::vector<unsigned char>;
Copia CopiaDe(const Registro& registro, const KXRegistroInfo& info) {
  return {registro.Bytes(), registro.Bytes() + info.Tamanho};
}

TEST_P(VarreduraRegistros, ResisteAQualquerRegistro) {
  for (unsigned semente = 1; semente <= 60; ++semente) {
    SCOPED_TRACE(semente);
    apoio::Bytes bytes(semente);
    apoio::Prova(Atual(), bytes);
  }
}

TEST_P(VarreduraRegistros, RegistroVaiEVoltaByteAByte) {
  for (unsigned semente = 0; semente < 10; ++semente) {
    const Registro original(Info(), semente);
    Registro copia(Info());
    Objeto(Atual(), original.Bytes()).CopiarPara(copia.Bytes());
    EXPECT_EQ(apoio::Diferenca(Info(), original.Bytes(), copia.Bytes()), "") << semente;
  }
}

TEST_P(VarreduraRegistros, OrigemNulaDeixaVazioELinhaNaoFica) {
  const Registro original(Info(), 3);
  Objeto objeto(Atual(), original.Bytes());
  EXPECT_FALSE(objeto->EstaVazio());
  if (auto* const base = dynamic_cast<TKXCMBaseParaDados*>(&*objeto)) {
    base->SetLinhaArquivoImportacao(5);
    objeto.CopiarDe(original.Bytes());
    EXPECT_EQ(base->GetLinhaArquivoImportacao(), 0);
  }
  EXPECT_TRUE(objeto.CopiarDe(nullptr)->EstaVazio());
  EXPECT_TRUE(Atual().DeRegistro(nullptr)->EstaVazio());
  Registro escrito(Info());
  objeto.CopiarPara(escrito.Bytes());
  const std::vector<unsigned char> zero(Info().Tamanho);
  EXPECT_EQ(apoio::Diferenca(Info(), zero.data(), escrito.Bytes()), "");
}

// Arrays and texts are hung only into a record that could be written.
TEST_P(VarreduraRegistros, MemoriaProibidaNaoSeEscreveNemSeLe) {
  const apoio::Paginas paginas;
  const Registro original(Info(), 9);
  Objeto objeto(Atual(), original.Bytes());
  objeto.CopiarPara(paginas.Proibida());
  objeto.CopiarPara(nullptr);
  EXPECT_TRUE(objeto == Objeto(Atual(), original.Bytes()));
  EXPECT_TRUE(objeto.CopiarDe(paginas.Proibida())->EstaVazio());
}

TEST_P(VarreduraRegistros, IgualdadeSegueATabela) {
  const Registro aleatorio(Info(), 11);
  const Copia original = CopiaDe(aleatorio, Info());
  const Objeto objeto(Atual(), original.data());
  for (const KXCampo& campo : Info().Campos) {
    if (!apoio::TemAcessor(campo) && campo.Papel != KXPapel::Reserva) continue;
    Copia alterado = original;
    unsigned char& byte = alterado[campo.Posicao];
    byte = byte == 'x' ? 'y' : 'x';
    apoio::ZeraOQueNaoViaja(Info(), alterado.data());
    EXPECT_EQ(objeto.IgualNasDiferencas(Objeto(Atual(), alterado.data())),
              alterado == original || !apoio::EhComparado(Info(), campo))
        << campo.Nome;
  }
}

// To the last character of the field, and not beyond the terminator, where a careless sender leaves
// what was there.
TEST_P(VarreduraRegistros, TextoSeComparaInteiroAteOTerminador) {
  const Registro aleatorio(Info(), 13);
  const auto iguais = [&](const Copia& a, const Copia& b) {
    return Objeto(Atual(), a.data()).IgualNasDiferencas(Objeto(Atual(), b.data()));
  };
  for (const KXCampo& campo : Info().Campos) {
    if (!apoio::EhTextoFixo(campo)) continue;
    Copia a = CopiaDe(aleatorio, Info());
    std::fill_n(a.begin() + campo.Posicao, campo.Largura, 'a');
    Copia b = a;
    b[campo.Posicao + campo.Largura - 1U] = 'b';
    EXPECT_EQ(iguais(a, b), !campo.Comparado) << campo.Nome;
    a[campo.Posicao + 1U] = b[campo.Posicao + 1U] = '\0';
    EXPECT_TRUE(iguais(a, b)) << campo.Nome;
  }
}

TEST_P(VarreduraClasses, ClasseDeExecucaoECopiaDeSiOuDeNada) {
  Objeto objeto(Atual());
  EXPECT_EQ(objeto->GetRuntimeClass(), Atual().DeExecucao);
  EXPECT_EQ(Atual().DeExecucao->m_nObjectSize, Atual().Tamanho);
  EXPECT_TRUE(objeto->IsKindOf(apoio::Base::GetThisClass()));
  EXPECT_TRUE(objeto->IsKindOf(CObject::GetThisClass()));
  EXPECT_EQ(objeto->IsKindOf(CIEVinculo::GetThisClass()),
            Atual().DeExecucao == CIEVinculo::GetThisClass());
  EXPECT_FALSE(objeto->IsKindOf(nullptr));
  Objeto& mesmo = objeto;
  objeto = mesmo;
  objeto = std::move(mesmo);
  objeto->Copiar(nullptr);
  EXPECT_TRUE(objeto == Objeto(Atual()));
  EXPECT_TRUE(objeto->EstaVazio());
}

// The checksum of a class is that of its stored record, from 0, or continues what is passed in; an
// installment's is its own.
TEST(VarreduraChecksum, EhDoRegistroSozinhoOuNaoHa) {
  std::set<std::string> doRegistro;
  for (const Classe& classe : apoio::ClassesDeRegistro()) {
    const Registro original(*classe.Info, 21);
    const Objeto objeto(classe, original.Bytes());
    unsigned long anterior = 99;
    const unsigned long crc = objeto->CalculaCRC(&anterior);
    if (crc == kx::CalculaChecksum(classe.Registro(*objeto), classe.Info->Tamanho)) {
      doRegistro.insert(classe.Nome);
    } else if (classe.DeExecucao != CKXDadosCM_Parcela::GetThisClass()) {
      EXPECT_EQ(crc, 99UL) << classe.Nome;
    }
  }
  const std::set<std::string> esperadas{
      "CKXDadosCM_RERegistroEntrada", "CKXDadosCM_REItemProduto",
      "CKXDadosCM_REItemServico",     "CKXDadosCM_REEntradaEstoque",
      "CKXDadosCM_ItemOrdemCompra",   "CKXDadosCM_CTNotaFiscal",
      "CKXDadosCM_CTRateio",          "CKXDadosCM_CTConhecimentoTransporte"};
  EXPECT_EQ(doRegistro, esperadas);
}

// Each part of the one is in the other as well, or all are as in an object that was just made.
void EsperaPartes(const Classe& classe, const Objeto& objeto, const Objeto& esperado) {
  for (const apoio::Parte& parte : classe.Partes) {
    EXPECT_TRUE(parte.Iguais(*objeto, *esperado)) << parte.Nome;
  }
}

TEST_P(VarreduraClasses, PartesSeCopiamMovemELimpam) {
  const Objeto novo(Atual());
  Objeto cheio(Atual());
  for (const apoio::Parte& parte : Atual().Partes) {
    EXPECT_TRUE(parte.Enche(*cheio)) << parte.Nome;
    EXPECT_FALSE(parte.Iguais(*cheio, *novo)) << parte.Nome;
  }
  Objeto copia(cheio);
  EsperaPartes(Atual(), copia, cheio);
  Objeto atribuido(Atual());
  atribuido = cheio;
  EsperaPartes(Atual(), atribuido, cheio);
  Objeto movido(std::move(copia));
  EsperaPartes(Atual(), movido, cheio);
  atribuido = novo;
  EsperaPartes(Atual(), atribuido, novo);
  atribuido = std::move(movido);
  EsperaPartes(Atual(), atribuido, cheio);
  atribuido->Limpar();
  EsperaPartes(Atual(), atribuido, novo);
  if (Atual().Info != nullptr) EsperaPartes(Atual(), cheio.CopiarDe(nullptr), novo);
}

// The name of a row, or of a part, without what it says of itself.
std::string NomeDoPendente(std::string nome) {
  for (const std::string prefixo : {"Lista", "Qtd", "Texto", "Tamanho"}) {
    if (nome.starts_with(prefixo)) return nome.substr(prefixo.size());
  }
  return nome;
}

const std::string kCondicao = "CondicaoPagamento";

// What the part alone makes of an object: nothing to say of one that equality sees, that a record
// carries and that makes an object not empty.
std::string OQueFalta(const Classe& classe, const apoio::Parte& parte) {
  const Objeto novo(classe);
  Objeto objeto(classe);
  parte.Enche(*objeto);
  std::string falta = objeto.IgualNasDiferencas(novo) ? " nao-comparada" : "";
  if (objeto->EstaVazio()) falta += " vazia";
  if (classe.Info == nullptr) return falta;
  Registro escrito(*classe.Info);
  objeto.CopiarPara(escrito.Bytes());
  for (const KXCampo& campo : classe.Info->Campos) {
    // What hangs from the record is in the rows of the part's name; the condition has three.
    const auto* inicio = escrito.Bytes() + campo.Posicao;
    const bool vazio = std::all_of(inicio, inicio + campo.Largura, [](auto c) { return c == 0; });
    if (campo.Papel < KXPapel::Contado || vazio || parte.Nome == kCondicao) continue;
    EXPECT_EQ(NomeDoPendente(campo.Nome), NomeDoPendente(parte.Nome)) << classe.Nome;
  }
  const Objeto volta(classe, escrito.Bytes());
  if (parte.Iguais(*volta, *novo)) return falta + " nao-viaja";
  return parte.Iguais(*volta, *objeto) ? falta : falta + " viaja-em-parte";
}

// The lines with a point in leiautes.txt of the rooms.
TEST(VarreduraPartes, SaoComoDocumentadas) {
  std::set<std::string> partes;
  for (const Classe& classe : apoio::Classes()) {
    for (const apoio::Parte& parte : classe.Partes) {
      const std::string falta = OQueFalta(classe, parte);
      if (!falta.empty()) partes.insert(std::string(classe.Nome) + "." + parte.Nome + falta);
    }
  }
  std::set<std::string> documentadas;
  std::ifstream salas(KX_RAIZ "/cmake/salas.txt");
  for (std::string sala; salas >> sala;) {
    std::ifstream arquivo(KX_RAIZ "/" + sala + "/leiautes.txt");
    for (std::string linha; std::getline(arquivo, linha);) {
      if (linha.substr(0, linha.find(' ')).find('.') < linha.size()) documentadas.insert(linha);
    }
  }
  EXPECT_EQ(partes, documentadas);
}

}  // namespace
