#include <iostream>
#include <map>

#include "Acervo.h"
#include "Falha.h"
#include "Imagens.h"
#include "Mostra.h"
#include "Progresso.h"
#include "Resumo.h"

namespace kxdados {

namespace {

// The columns of the query, in its order.
enum Coluna {
  Id,
  Registro,
  Chave,
  Numero,
  Serie,
  Emissao,
  Emitente,
  Total,
  Checksum,
  Leiaute,
  Guardada
};

std::string Consulta() {
  return std::string(
             "SELECT id, registro, chave, numero, serie, emissao, emitente, total, checksum, "
             "leiaute, ") +
         kColunasDaImagem +
         ", typeof(registro) = 'text' AND typeof(total) IN ('integer', 'null')"
         " AND typeof(chave) IN ('text', 'null') AND typeof(numero) IN ('text', 'null')"
         " AND typeof(serie) IN ('text', 'null') AND typeof(emissao) IN ('text', 'null')"
         " AND typeof(emitente) IN ('text', 'null') FROM documento ORDER BY id";
}

Resumo ResumoDaLinha(const Instrucao& linha) {
  return {linha.TalvezTexto(Chave),   linha.TalvezTexto(Numero),   linha.TalvezTexto(Serie),
          linha.TalvezTexto(Emissao), linha.TalvezTexto(Emitente), linha.TalvezInteiro(Total)};
}

// Throws Falha where the row says something else than its image.
void ConfereLinha(const Instrucao& linha) {
  constexpr int kTamanho = Guardada + 1;
  constexpr int kTipos = Guardada + 4;
  const std::vector<std::byte> guardada = ImagemDaLinha(linha, Guardada);
  std::vector<std::byte> aberta = guardada;
  const Lido lido = AbreLido(aberta, true);
  const auto exige = [](bool confere, const char* coluna) {
    if (!confere) throw Falha(coluna, "não é o que a imagem diz");
  };
  exige(linha.Texto(Registro) == lido.Info->Nome, "registro");
  exige(linha.Inteiro(Checksum) == std::int64_t{ChecksumDe(guardada)}, "checksum");
  exige(linha.Texto(Leiaute) == TextoDoLeiaute(LeiauteDe(*lido.Info).GetImpressao()), "leiaute");
  exige(linha.Inteiro(kTamanho) == static_cast<std::int64_t>(guardada.size()), "tamanho");
  exige(linha.Inteiro(kTipos) != 0 && ResumoDaLinha(linha) == ResumoDe(*lido.Info, lido.Registro),
        "chave, numero, serie, emissao, emitente ou total");
  if (ImagemDe(lido) != guardada) throw Falha("imagem", "não é a que o registro dá de novo");
}

std::string NomeDaLinha(const std::string& caminho, const Instrucao& linha) {
  return caminho + ": documento " + std::to_string(linha.Inteiro(Id)) +
         (linha.TalvezTexto(Chave) ? " (" + std::string(linha.Texto(Chave)) + ")" : std::string());
}

// Whether all that a new archive has is there; more may be.
bool ConfereEsquema(const std::string& caminho, Banco& banco) {
  bool certo = true;
  Banco novo = AbreOuCriaAcervo("");
  Instrucao esperado(novo, "SELECT name, sql FROM sqlite_master");
  Instrucao achado(banco, "SELECT 1 FROM sqlite_master WHERE name = ?1 AND sql = ?2");
  while (esperado.Passo()) {
    achado.Recomeca();
    achado.Liga(1, esperado.Texto(0)).Liga(2, esperado.Texto(1));
    if (achado.Passo()) continue;
    EscreveErro(caminho,
                Falha("banco de dados", "falta, ou é outro: " + std::string(esperado.Texto(0))));
    certo = false;
  }
  return certo;
}

bool ConfereBanco(const std::string& caminho, Banco& banco) {
  bool certo = ConfereEsquema(caminho, banco);
  Instrucao verificacao(banco, "PRAGMA integrity_check");
  while (verificacao.Passo()) {
    const std::string dito(verificacao.Texto(0));
    if (dito == "ok") continue;
    EscreveErro(caminho, Falha("banco de dados", dito));
    certo = false;
  }
  return certo;
}

}  // namespace

int ConfereAcervo(const std::string& caminho) try {
  Banco banco = AbreAcervo(caminho);
  bool certo = ConfereBanco(caminho, banco);
  std::map<std::string, std::int64_t> quantos;
  std::int64_t errados = 0;
  Progresso progresso(banco.Numero("SELECT count(*) FROM documento"));
  Instrucao linha(banco, Consulta());
  while (linha.Passo()) {
    progresso.Avanca();
    try {
      ++quantos[std::string(linha.Texto(Registro))];
      ConfereLinha(linha);
    } catch (const Falha& falha) {
      EscreveErro(NomeDaLinha(caminho, linha), falha);
      ++errados;
    }
  }
  for (const auto& [registro, n] : quantos) std::cout << registro << ": " << n << '\n';
  std::cout << "com erro: " << errados << '\n';
  return certo && errados == 0 ? 0 : 1;
} catch (const FalhaDoBanco& falha) {
  EscreveErro(caminho, Falha("acervo", falha.what()));
  return 1;
}

}  // namespace kxdados
