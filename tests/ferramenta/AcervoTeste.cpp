// The archive: what is booked there, shown, compared and verified.
#include <iostream>
#include <sstream>

#include "Acervo.h"
#include "Execucao.h"
#include "Mostra.h"
#include "core/Imagem.h"
#include "oc/DadosOC.h"

namespace {

namespace fs = std::filesystem;
using namespace kx::literais;

constexpr const char* kNota = "01_atacado_st_ipi_3parcelas.xml";

class AcervoTeste : public FerramentaTeste {
 protected:
  // Whatever the tool says of it, its database is opened apart.
  void Muda(const std::string& acervo, const std::string& sql) {
    kxdados::Banco banco(acervo, kEscreve);
    banco.Executa(sql.c_str());
  }
  std::int64_t Numero(const std::string& acervo, const std::string& sql) {
    return kxdados::Banco(acervo, kEscreve).Numero(sql.c_str());
  }

  static constexpr int kEscreve = 2;  // SQLITE_OPEN_READWRITE
  const std::string _exemplos = (fs::path(KX_RAIZ) / "examples/notas").string();
  const std::string _acervo = (_pasta / "compras.db").string();
  const std::string _outro = (_pasta / "outro.db").string();
};

CKXDadosCM_OrdemCompra Ordem(const char* codigo, CY frete) {
  CKXDadosCM_OrdemCompra ordem;
  ordem.SetCodigo(codigo).SetRegChaveEsteOC({{23, 11, 2026}, 7}).SetValorFrete(frete);
  return ordem;
}

std::string Bytes(const CKXDadosCM_OrdemCompra& ordem) {
  const auto imagem = kx::Imagem(ordem);
  return {reinterpret_cast<const char*>(imagem.data()), imagem.size()};
}

TEST_F(AcervoTeste, GuardaCadaDocumentoUmaVez) {
  const Execucao primeira = Executa({"importa", "--grava", _acervo, _exemplos});
  EXPECT_EQ(primeira.Status, 0) << primeira.Erros;
  const auto quantos = Numero(_acervo, "SELECT count(*) FROM documento");
  EXPECT_EQ(primeira.Saida, _acervo + ": gravados " + std::to_string(quantos) +
                                ", já gravados 0, substituídos 0, recusados 0\n");
  EXPECT_GT(quantos, 1);
  const Execucao segunda = Executa({"importa", "--grava", _acervo, _exemplos});
  EXPECT_TRUE(Contem(segunda.Saida, "gravados 0, já gravados " + std::to_string(quantos)))
      << segunda.Saida;
  EXPECT_EQ(Numero(_acervo, "SELECT count(*) FROM documento"), quantos);
  EXPECT_EQ(Executa({"confere", _acervo}).Status, 0);

  // Lines of JSON, and bare images, are the same documents again.
  const std::string linhas = Executa({"mostra", "--json", _acervo}).Saida;
  EXPECT_EQ(Ocorrencias(linhas, "\n"), static_cast<std::size_t>(quantos));
  EXPECT_EQ(Executa({"grava", _outro}, linhas).Status, 0);
  EXPECT_EQ(Executa({"confere", _outro}).Status, 0);
  EXPECT_EQ(Executa({"compara", _acervo, _outro}).Status, 0);
  EXPECT_EQ(Executa({"mostra", "--json", _outro}).Saida, linhas);
  const std::string imagens = Executa({"mostra", "--imagem", _acervo}).Saida;
  EXPECT_EQ(Executa({"compara", _acervo, "-"}, imagens).Status, 0);
}

TEST_F(AcervoTeste, DizOQueOsDocumentosSao) {
  const std::string nota = _exemplos + "/" + kNota;
  ASSERT_EQ(Executa({"importa", "--grava", _acervo, nota}).Status, 0);
  kxdados::Banco banco(_acervo, kEscreve);
  kxdados::Instrucao linha(
      banco,
      "SELECT registro, chave, numero, serie, emissao, emitente, total, origem "
      "FROM documento");
  ASSERT_TRUE(linha.Passo());
  const std::string xml = NotaDeExemplo(kNota);
  const std::string chave(linha.Texto(1));
  EXPECT_EQ(linha.Texto(0), "tagREG_ENTRADAPS");
  EXPECT_TRUE(Contem(xml, "Id=\"NFe" + chave + "\"")) << chave;
  EXPECT_TRUE(Contem(xml, "<nNF>" + std::string(linha.Texto(2)) + "</nNF>"));
  EXPECT_TRUE(Contem(xml, "<serie>" + std::string(linha.Texto(3)) + "</serie>"));
  EXPECT_TRUE(Contem(xml, "<dhEmi>" + std::string(linha.Texto(4)) + "T"));
  EXPECT_TRUE(Contem(xml, "<CNPJ>" + std::string(linha.Texto(5)) + "</CNPJ>"));
  std::ostringstream total;
  total << linha.Inteiro(6) / 10000 << '.' << linha.Inteiro(6) / 1000 % 10
        << linha.Inteiro(6) / 100 % 10;
  EXPECT_TRUE(Contem(xml, "<vNF>" + total.str() + "</vNF>")) << total.str();
  EXPECT_EQ(linha.Texto(7), nota);

  EXPECT_TRUE(Contem(Executa({"mostra", "--chave", chave, _acervo}).Saida, "tagREG_ENTRADAPS"));
  EXPECT_EQ(Executa({"mostra", "--chave", chave, "--numero", "0", _acervo}).Status, 1);
}

TEST_F(AcervoTeste, MesmaChaveEOutroConteudo) {
  const std::string json = Executa({"mostra", "--json"}, Bytes(Ordem("A", "1,00"_rs))).Saida;
  const std::string outra = Executa({"mostra", "--json"}, Bytes(Ordem("A", "2,00"_rs))).Saida;
  ASSERT_EQ(Executa({"grava", _acervo}, json).Status, 0);
  const Execucao recusada = Executa({"grava", _acervo}, "\n" + outra + json);
  EXPECT_EQ(recusada.Status, 1);
  EXPECT_TRUE(Contem(recusada.Erros, "linha 2: acervo: ")) << recusada.Erros;
  EXPECT_TRUE(Contem(recusada.Saida, "já gravados 1, substituídos 0, recusados 1"));
  EXPECT_EQ(Executa({"mostra", "--json", _acervo}).Saida, json);
  EXPECT_EQ(Executa({"grava", "--substitui", _acervo}, outra).Status, 0);
  EXPECT_EQ(Executa({"mostra", "--json", _acervo}).Saida, outra);
  EXPECT_EQ(Executa({"confere", _acervo}).Status, 0);
}

TEST_F(AcervoTeste, LinhaRuimEDitaEAsOutrasSaoGravadas) {
  const std::string json = Executa({"mostra", "--json"}, Bytes(Ordem("A", "1,00"_rs))).Saida;
  const Execucao execucao =
      Executa({"grava", _acervo}, Troca(json, "\"1.00\"", "\"um\"") + "{\n" + json);
  EXPECT_EQ(execucao.Status, 1);
  EXPECT_TRUE(Contem(execucao.Erros, "linha 1: ValorFrete: ")) << execucao.Erros;
  EXPECT_TRUE(Contem(execucao.Erros, "linha 2: ")) << execucao.Erros;
  EXPECT_EQ(Ocorrencias(execucao.Erros, "\n"), 2U) << execucao.Erros;
  EXPECT_EQ(Executa({"mostra", "--json", _acervo}).Saida, json);
}

TEST_F(AcervoTeste, ComparaPelasChaves) {
  const std::string antes =
      Bytes(Ordem("A", "1,00"_rs)) + Bytes(Ordem("B", "1,00"_rs).SetRegChaveEsteOC({}));
  const std::string depois =
      Bytes(Ordem("C", {}).SetRegChaveEsteOC({})) + Bytes(Ordem("A", "2,00"_rs));
  const std::string a = Escreve("a", antes);
  const Execucao execucao = Executa({"compara", a, "-"}, depois);
  EXPECT_EQ(execucao.Status, 1) << execucao.Erros;
  EXPECT_EQ(execucao.Saida,
            "tagREG_ORDEMPS 2026-11-23/7: ValorFrete: 1,00 -> 2,00\n"
            "tagREG_ORDEMPS número B série : retirado\n"
            "tagREG_ORDEMPS número C série : acrescentado\n");
  EXPECT_TRUE(Contem(Executa({"compara", "--json", a, "-"}, depois).Saida,
                     "{\"documento\":\"tagREG_ORDEMPS 2026-11-23/7\",\"caminho\":\"ValorFrete\""));
  EXPECT_EQ(Executa({"compara", a, "--numero", "A", "B"}).Status, 1);
  EXPECT_EQ(Executa({"compara", a, "--numero", "A", "A"}).Status, 0);
  EXPECT_EQ(Executa({"compara", a, "--numero", "A", "Z"}).Status, 2);
  EXPECT_EQ(Executa({"compara", a}).Status, 2);
  EXPECT_EQ(Executa({"compara", a, a + "nada"}).Status, 2);
}

// Standard streams of this program, for commands that are called here.
class Calados {
 public:
  Calados() : _saida(std::cout.rdbuf(_texto.rdbuf())), _erros(std::cerr.rdbuf(_texto.rdbuf())) {}
  Calados(const Calados&) = delete;
  Calados& operator=(const Calados&) = delete;
  ~Calados() {
    std::cout.rdbuf(_saida);
    std::cerr.rdbuf(_erros);
  }

 private:
  std::ostringstream _texto;
  std::streambuf* _saida;
  std::streambuf* _erros;
};

TEST_F(AcervoTeste, CadaByteMudadoEDito) {
  ASSERT_EQ(Executa({"importa", "--grava", _acervo, _exemplos + "/" + kNota}).Status, 0);
  kxdados::Banco banco(_acervo, kEscreve);
  banco.Executa("PRAGMA synchronous = OFF");
  kxdados::Instrucao linha(banco, "SELECT imagem FROM documento");
  ASSERT_TRUE(linha.Passo());
  std::vector<std::byte> imagem(linha.Bytes(0).begin(), linha.Bytes(0).end());
  linha.Recomeca();
  kxdados::Instrucao muda(banco, "UPDATE documento SET imagem = ?1");
  const Calados calados;
  for (std::byte& byte : imagem) {
    byte ^= std::byte{0x10};
    muda.Liga(1, std::span<const std::byte>(imagem)).Executa();
    EXPECT_EQ(kxdados::ConfereAcervo(_acervo), 1) << &byte - imagem.data();
    EXPECT_EQ(kxdados::Mostra({{_acervo}, {}, true, false}), 1) << &byte - imagem.data();
    byte ^= std::byte{0x10};
  }
  muda.Liga(1, std::span<const std::byte>(imagem)).Executa();
  EXPECT_EQ(kxdados::ConfereAcervo(_acervo), 0);
  banco.Executa(
      "PRAGMA ignore_check_constraints = ON; CREATE TEMP TABLE antes AS SELECT * FROM documento");
  for (const std::string coluna :
       {"chave", "numero", "serie", "emissao", "emitente", "total", "checksum", "leiaute",
        "registro", "tamanho", "compressao", "soma"}) {
    banco.Executa(("UPDATE documento SET " + coluna + " = 99").c_str());
    EXPECT_EQ(kxdados::ConfereAcervo(_acervo), 1) << coluna;
    banco.Executa(
        ("UPDATE documento SET " + coluna + " = (SELECT " + coluna + " FROM antes)").c_str());
  }
  EXPECT_EQ(kxdados::ConfereAcervo(_acervo), 0);
  for (const char* muda :
       {"UPDATE documento SET total = total + 0.4", "DROP VIEW documento_reais"}) {
    banco.Executa(muda);
    EXPECT_EQ(kxdados::ConfereAcervo(_acervo), 1) << muda;
    banco.Executa("UPDATE documento SET total = (SELECT total FROM antes)");
  }
  banco.Executa("UPDATE documento SET tamanho = 1 << 30");
  const Execucao execucao = Executa({"compara", _acervo, _acervo});
  EXPECT_EQ(execucao.Status, 2);
  EXPECT_TRUE(Contem(execucao.Erros, "tagREG_ENTRADAPS 3")) << execucao.Erros;
}

TEST_F(AcervoTeste, OQueNaoEAcervo) {
  const std::string nota = _exemplos + "/" + kNota;
  ASSERT_EQ(Executa({"importa", "--grava", _acervo, nota}).Status, 0);
  const std::string bytes = LeArquivo(_acervo);
  const std::string cortado = Escreve("cortado.db", bytes.substr(0, bytes.size() / 2));
  const std::string deOutro = Escreve("deOutro.db", bytes);
  Muda(deOutro, "PRAGMA application_id = 1");
  const std::string novo = Escreve("novo.db", bytes);
  Muda(novo, "PRAGMA user_version = 99");
  const std::string vazioDeOutro = Escreve("vazioDeOutro.db", "");
  Muda(vazioDeOutro, "PRAGMA application_id = 1; PRAGMA user_version = 7");
  for (const std::string& ruim :
       {cortado, deOutro, novo, vazioDeOutro, Escreve("nota.db", "<NFe/>")}) {
    const std::string antes = LeArquivo(ruim);
    for (const auto& argumentos : std::vector<std::vector<std::string>>{
             {"confere", ruim}, {"importa", "--grava", ruim, nota}, {"mostra", ruim}}) {
      const Execucao execucao = Executa(argumentos);
      EXPECT_EQ(execucao.Status, 1) << ruim;
      EXPECT_EQ(Ocorrencias(execucao.Erros, "\n"), 1U) << execucao.Erros;
    }
    EXPECT_EQ(LeArquivo(ruim), antes);
  }
  EXPECT_EQ(Executa({"confere", _outro}).Status, 1);
  EXPECT_FALSE(fs::exists(_outro));
  EXPECT_EQ(Executa({"importa", "--grava", Escreve("vazio.db", ""), nota}).Status, 0);
  for (const char* nenhum : {"", ":memory:"}) EXPECT_EQ(Executa({"grava", nenhum}).Status, 2);
}

}  // namespace
