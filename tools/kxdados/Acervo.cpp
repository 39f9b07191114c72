#include "Acervo.h"

#include <sqlite3.h>
#include <zstd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <thread>

#include "Imagens.h"
#include "Sistema.h"
#include "core/Checksum.h"

namespace kxdados {

namespace {

constexpr int kAplicacao = 0x4B584143;  // "KXAC": whose database it is

// Each brings an archive from one version to the next; the first makes it. What has been published
// is never changed again.
constexpr std::array kMigracoes = {
    R"(CREATE TABLE documento (
         id         INTEGER PRIMARY KEY,
         registro   TEXT NOT NULL,
         chave      TEXT,
         numero     TEXT,
         serie      TEXT,
         emissao    TEXT,
         emitente   TEXT,
         total      INTEGER,
         checksum   INTEGER NOT NULL,
         leiaute    TEXT NOT NULL,
         origem     TEXT NOT NULL,
         gravado    TEXT NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%SZ', 'now')),
         compressao TEXT CHECK (compressao = 'zstd'),
         tamanho    INTEGER NOT NULL,
         soma       INTEGER NOT NULL,
         imagem     BLOB NOT NULL);
       CREATE UNIQUE INDEX documento_chave ON documento (chave, registro);
       CREATE INDEX documento_sem_chave ON documento (checksum) WHERE chave IS NULL;
       CREATE INDEX documento_numero ON documento (numero);
       CREATE INDEX documento_emissao ON documento (emissao);
       CREATE VIEW documento_reais AS
         SELECT id, registro, chave, numero, serie, emissao, emitente, total / 10000.0 AS total,
                origem, gravado
           FROM documento;)",
};

std::int64_t Versao(Banco& banco) { return banco.Numero("PRAGMA user_version"); }

FalhaDoBanco Recusado(const char* motivo) { return {SQLITE_NOTADB, motivo}; }

// Whether there is anything in it.
bool TemEsquema(Banco& banco) {
  if (banco.Numero("PRAGMA application_id") == kAplicacao) {
    if (Versao(banco) > static_cast<std::int64_t>(kMigracoes.size())) {
      throw Recusado("é de uma versão mais nova desta ferramenta");
    }
    return true;
  }
  if (banco.Numero("PRAGMA application_id") != 0 || Versao(banco) != 0 ||
      banco.Numero("SELECT count(*) FROM sqlite_master") != 0) {
    throw Recusado("é um banco de dados de outro programa");
  }
  return false;
}

// Looks at one moment of the database: another program may just be making it.
bool ConfereDono(Banco& banco) {
  banco.Executa("BEGIN");
  const bool tem = TemEsquema(banco);
  banco.Executa("COMMIT");
  return tem;
}

// Two programs may do it at the same time; whoever comes second finds it done.
void Migra(Banco& banco) {
  banco.Executa("BEGIN IMMEDIATE");
  TemEsquema(banco);
  for (auto i = static_cast<std::size_t>(Versao(banco)); i < kMigracoes.size(); ++i) {
    banco.Executa(kMigracoes[i]);
  }
  banco.Executa(("PRAGMA application_id = " + std::to_string(kAplicacao) +
                 "; PRAGMA user_version = " + std::to_string(kMigracoes.size()) + "; COMMIT")
                    .c_str());
}

// Nobody else may have it open while the journal changes, and SQLite does not wait for that.
void LigaWAL(Banco& banco) {
  constexpr int kTentativas = 600;
  constexpr std::chrono::milliseconds kPausa(100);
  for (int i = 1;; ++i) try {
      banco.Executa("PRAGMA journal_mode = WAL");
      return;
    } catch (const FalhaDoBanco& falha) {
      if ((falha.Codigo() & 0xFF) != SQLITE_BUSY || i == kTentativas) throw;
      std::this_thread::sleep_for(kPausa);
    }
}

std::int64_t SomaDe(std::span<const std::byte> bytes) {
  return kx::CalculaChecksum(bytes.data(), bytes.size());
}

Blob Comprime(std::span<const std::byte> imagem) {
  constexpr int kNivel = 1;  // records are mostly zeros: higher ones save no more
  static const std::unique_ptr<ZSTD_CCtx, decltype(&ZSTD_freeCCtx)> contexto(ZSTD_createCCtx(),
                                                                             ZSTD_freeCCtx);
  if (contexto == nullptr) throw std::bad_alloc();
  Blob blob{imagem.size(), true, std::vector<std::byte>(ZSTD_compressBound(imagem.size()))};
  const std::size_t comprimido = ZSTD_compressCCtx(
      contexto.get(), blob.Bytes.data(), blob.Bytes.size(), imagem.data(), imagem.size(), kNivel);
  if (ZSTD_isError(comprimido) != 0 || comprimido > imagem.size() - imagem.size() / 10) {
    return {imagem.size(), false, {imagem.begin(), imagem.end()}};
  }
  blob.Bytes.resize(comprimido);
  blob.Bytes.shrink_to_fit();
  return blob;
}

std::vector<std::byte> Recupera(std::span<const std::byte> guardado, std::int64_t tamanho) {
  constexpr std::int64_t kMaximo = std::int64_t{1} << 30;
  const Falha danificada("imagem", "está danificada");
  if (tamanho < 0 || tamanho > kMaximo) throw danificada;
  const auto dito = ZSTD_getFrameContentSize(guardado.data(), guardado.size());
  if (dito != static_cast<std::uint64_t>(tamanho)) throw danificada;  // before there is room for it
  std::vector<std::byte> imagem(static_cast<std::size_t>(tamanho));
  const std::size_t lidos =
      ZSTD_decompress(imagem.data(), imagem.size(), guardado.data(), guardado.size());
  if (lidos != imagem.size()) throw danificada;
  return imagem;
}

std::vector<std::byte> Recupera(const Blob& blob) {
  if (!blob.Comprimido) return blob.Bytes;
  return Recupera(blob.Bytes, static_cast<std::int64_t>(blob.Tamanho));
}

Banco ParaLer(Banco banco) {
  banco.Executa("PRAGMA query_only = ON");
  if (!ConfereDono(banco)) throw Recusado("não é um acervo");
  return banco;
}

// The name of a database in a folder where nobody can write, so that nobody changes it.
std::string Imutavel(const std::string& caminho) {
  std::string uri = "file:";
  for (const char c : caminho) {
    if (c == '?' || c == '#' || c == '%') {
      constexpr std::string_view kDigitos = "0123456789ABCDEF";
      const auto byte = static_cast<unsigned char>(c);
      uri.append({'%', kDigitos[byte >> 4U], kDigitos[byte & 0xFU]});
    } else {
      uri += c;
    }
  }
  return uri + "?immutable=1";
}

// Whether the row keeps the same image; one that is damaged is another.
bool Guardada(const Instrucao& linha, int coluna, const Blob& blob) try {
  return ImagemDaLinha(linha, coluna) == Recupera(blob);
} catch (const Falha&) {
  return false;
}

class FonteDoAcervo : public Fonte {
 public:
  FonteDoAcervo(const std::string& caminho, const Filtro& filtro)
      : _banco(AbreAcervo(caminho)),
        _filtro(filtro),
        _linhas(_banco, Consulta(std::string(kColunasDaImagem) + ", id, coalesce(chave, '')") +
                            " ORDER BY id") {
    LigaFiltro(_linhas);
  }

  std::optional<Lido> Proximo() override {
    constexpr int kId = 4;
    if (!_linhas.Passo()) return {};
    try {
      _imagem = ImagemDaLinha(_linhas, 0);
      return AbreLido(_imagem, true);
    } catch (const Falha& falha) {
      const std::string chave(_linhas.Texto(kId + 1));
      throw Falha("documento " + std::to_string(_linhas.Inteiro(kId)) +
                      (chave.empty() ? "" : " (" + chave + ")") + ": " + falha.Elemento(),
                  falha.what());
    }
  }

 private:
  // A condition only where there is one to be met, so that its index is used.
  std::string Consulta(const std::string& colunas) const {
    std::string sql = "SELECT " + colunas + " FROM documento WHERE true";
    if (!_filtro.Chave.empty()) sql += " AND chave = ?1";
    if (!_filtro.Numero.empty()) sql += " AND numero = ?2";
    return sql;
  }

  void LigaFiltro(Instrucao& instrucao) const {
    if (!_filtro.Chave.empty()) instrucao.Liga(1, _filtro.Chave);
    if (!_filtro.Numero.empty()) instrucao.Liga(2, _filtro.Numero);
  }

  Banco _banco;
  const Filtro _filtro;
  Instrucao _linhas;
  std::vector<std::byte> _imagem;
};

}  // namespace

bool EhAcervo(const std::string& caminho) {
  constexpr std::string_view kMarca("SQLite format 3\0", 16);
  if (caminho == "-") return false;
  std::array<char, kMarca.size()> inicio{};
  std::ifstream arquivo(Caminho(caminho), std::ios::binary);
  return arquivo.read(inicio.data(), inicio.size()) &&
         std::equal(kMarca.begin(), kMarca.end(), inicio.begin());
}

Banco AbreAcervo(const std::string& caminho) try {
  // To be written where that may be, so that one file is left behind.
  return ParaLer(Banco(caminho, SQLITE_OPEN_READWRITE));
} catch (const FalhaDoBanco& falha) {
  const bool semOndeGravar = (falha.Codigo() & 0xFF) == SQLITE_READONLY;
  if (!semOndeGravar || std::filesystem::exists(Caminho(caminho + "-wal"))) throw;
  return ParaLer(Banco(Imutavel(caminho), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI));
}

Banco AbreOuCriaAcervo(const std::string& caminho) {
  Banco banco(caminho, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  const bool tem = ConfereDono(banco);
  LigaWAL(banco);
  if (!tem || Versao(banco) < static_cast<std::int64_t>(kMigracoes.size())) Migra(banco);
  banco.Executa("PRAGMA synchronous = FULL");
  return banco;
}

std::unique_ptr<Fonte> LeAcervo(const std::string& caminho, const Filtro& filtro) {
  return std::make_unique<FonteDoAcervo>(caminho, filtro);
}

// Compressed bytes may change and still yield the same image, so they have a checksum of their own.
std::vector<std::byte> ImagemDaLinha(const Instrucao& linha, int coluna) {
  const std::span<const std::byte> guardado = linha.Bytes(coluna + 3);
  if (linha.Inteiro(coluna + 2) != SomaDe(guardado)) throw Falha("imagem", "está danificada");
  const std::optional<std::string> compressao = linha.TalvezTexto(coluna);
  if (!compressao) return {guardado.begin(), guardado.end()};
  if (*compressao != "zstd") throw Falha("compressao", "não é conhecida: " + *compressao);
  return Recupera(guardado, linha.Inteiro(coluna + 1));
}

std::uint32_t ChecksumDe(std::span<const std::byte> imagem) {
  constexpr std::size_t kPosicao = 12;
  std::uint32_t checksum = 0;
  std::memcpy(&checksum, imagem.subspan(kPosicao).data(), sizeof(checksum));
  return checksum;
}

std::string TextoDoLeiaute(std::uint64_t impressao) {
  std::array<char, 17> texto{};
  std::snprintf(texto.data(), texto.size(), "%016llx", static_cast<unsigned long long>(impressao));
  return texto.data();
}

Gravador::Gravador(const std::string& caminho, bool substitui, Recusa recusa)
    : _banco(AbreOuCriaAcervo(caminho)),
      _procuraChave(_banco, std::string("SELECT id, checksum, ") + kColunasDaImagem +
                                " FROM documento "
                                "WHERE chave = ?1 AND registro = ?2"),
      _procuraIgual(_banco, std::string("SELECT id, checksum, ") + kColunasDaImagem +
                                " FROM documento "
                                "WHERE chave IS NULL AND checksum = ?1 AND registro = ?2"),
      _insere(_banco,
              "INSERT INTO documento (registro, chave, numero, serie, emissao, emitente, total, "
              "checksum, leiaute, origem, compressao, tamanho, imagem, soma) "
              "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14)"),
      _substitui(_banco,
                 "UPDATE documento SET registro = ?1, chave = ?2, numero = ?3, serie = ?4, "
                 "emissao = ?5, emitente = ?6, total = ?7, checksum = ?8, leiaute = ?9, "
                 "origem = ?10, compressao = ?11, tamanho = ?12, imagem = ?13, soma = ?14, "
                 "gravado = strftime('%Y-%m-%dT%H:%M:%SZ', 'now') WHERE id = ?15"),
      _substituiOutros(substitui),
      _recusa(std::move(recusa)) {}

void Gravador::Grava(const Lido& lido, const std::string& origem) {
  constexpr std::size_t kDocumentos = 500;
  constexpr std::size_t kBytes = std::size_t{32} << 20;
  constexpr std::chrono::seconds kTempo(1);
  const std::vector<std::byte> imagem = ImagemDe(lido);
  const auto agora = std::chrono::steady_clock::now();
  if (_pendentes.empty()) _desde = agora;
  _pendentes.push_back({lido.Info->Nome, ResumoDe(*lido.Info, lido.Registro), ChecksumDe(imagem),
                        TextoDoLeiaute(LeiauteDe(*lido.Info).GetImpressao()), Comprime(imagem),
                        origem});
  _bytes += _pendentes.back().Imagem.Bytes.size();
  if (_pendentes.size() >= kDocumentos || _bytes >= kBytes || agora - _desde >= kTempo) Conclui();
}

void Gravador::Conclui() {
  if (_pendentes.empty()) return;
  Contagem contagem = _contagem;
  try {
    GravaPendentes(contagem);
  } catch (...) {
    _pendentes.clear();
    if (!_banco.ForaDeTransacao()) _banco.Executa("ROLLBACK");
    throw;
  }
  _contagem = contagem;
  _pendentes.clear();
  _bytes = 0;
}

Banco Gravador::Entrega() && {
  Conclui();
  return std::move(_banco);
}

void Gravador::GravaPendentes(Contagem& contagem) {
  _banco.Executa("BEGIN IMMEDIATE");
  for (const Pendente& pendente : _pendentes) GravaUm(pendente, contagem);
  _banco.Executa("COMMIT");
}

void Gravador::GravaUm(const Pendente& pendente, Contagem& contagem) {
  const Achado achado = Procura(pendente);
  if (achado.Igual) {
    ++contagem.Repetidos;
  } else if (achado.Id == 0) {
    Liga(_insere, pendente);
    _insere.Executa();
    ++contagem.Gravados;
  } else if (_substituiOutros) {
    Liga(_substitui, pendente);
    _substitui.Liga(15, achado.Id).Executa();
    ++contagem.Substituidos;
  } else {
    ++contagem.Recusados;
    _recusa(pendente.Origem,
            Falha("acervo", "já há nele outro documento com a mesma chave (--substitui o troca)"));
  }
}

Gravador::Achado Gravador::Procura(const Pendente& pendente) {
  Instrucao& procura = pendente.Dados.Chave ? _procuraChave : _procuraIgual;
  if (pendente.Dados.Chave) {
    procura.Liga(1, *pendente.Dados.Chave);
  } else {
    procura.Liga(1, std::int64_t{pendente.Checksum});
  }
  procura.Liga(2, std::string_view(pendente.Registro));
  Achado achado;
  while (!achado.Igual && procura.Passo()) {
    achado = {procura.Inteiro(0), procura.Inteiro(1) == std::int64_t{pendente.Checksum} &&
                                      Guardada(procura, 2, pendente.Imagem)};
  }
  procura.Recomeca();
  if (!pendente.Dados.Chave && !achado.Igual) return {};
  return achado;
}

void Gravador::Liga(Instrucao& instrucao, const Pendente& pendente) {
  const Resumo& dados = pendente.Dados;
  instrucao.Liga(1, std::string_view(pendente.Registro))
      .Liga(2, dados.Chave)
      .Liga(3, dados.Numero)
      .Liga(4, dados.Serie)
      .Liga(5, dados.Emissao)
      .Liga(6, dados.Emitente)
      .Liga(7, dados.Total)
      .Liga(8, std::int64_t{pendente.Checksum})
      .Liga(9, pendente.Leiaute)
      .Liga(10, pendente.Origem)
      .Liga(12, static_cast<std::int64_t>(pendente.Imagem.Tamanho))
      .Liga(13, std::span<const std::byte>(pendente.Imagem.Bytes))
      .Liga(14, SomaDe(pendente.Imagem.Bytes));
  if (pendente.Imagem.Comprimido) instrucao.Liga(11, std::string_view("zstd"));
}

}  // namespace kxdados
