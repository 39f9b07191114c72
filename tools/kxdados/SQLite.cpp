#include "SQLite.h"

#include <sqlite3.h>

#include <new>

namespace kxdados {

namespace {

std::string Motivo(int codigo, const char* detalhe) {
  switch (codigo & 0xFF) {
    case SQLITE_FULL:
      return "o disco está cheio";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "outro programa o ocupa há mais de um minuto";
    case SQLITE_READONLY:
      return "não se pode gravar nele";
    case SQLITE_CANTOPEN:
      return "não pode ser aberto";
    case SQLITE_NOTADB:
      return "não é um acervo";
    case SQLITE_CORRUPT:
      return "está danificado";
    case SQLITE_IOERR:
      return "não pode ser lido ou gravado (um limite de tamanho, ou um defeito do disco)";
    default:
      return std::string("erro do banco de dados: ") + detalhe;
  }
}

void Recusa(sqlite3* banco, int codigo) {
  if (codigo == SQLITE_NOMEM) throw std::bad_alloc();
  throw FalhaDoBanco(
      codigo, Motivo(codigo, banco == nullptr ? sqlite3_errstr(codigo) : sqlite3_errmsg(banco)));
}

}  // namespace

FalhaDoBanco::FalhaDoBanco(int codigo, const std::string& motivo)
    : std::runtime_error(motivo), _codigo(codigo) {}

void Banco::Fecha::operator()(sqlite3* banco) const noexcept { sqlite3_close(banco); }

Banco::Banco(const std::string& caminho, int modo) {
  constexpr int kEspera = 60000;
  sqlite3* banco = nullptr;
  const int resultado = sqlite3_open_v2(caminho.c_str(), &banco, modo, nullptr);
  _banco.reset(banco);
  if (resultado != SQLITE_OK) Recusa(banco, resultado);
  sqlite3_busy_timeout(banco, kEspera);
}

void Banco::Executa(const char* sql) {
  const int resultado = sqlite3_exec(Alca(), sql, nullptr, nullptr, nullptr);
  if (resultado != SQLITE_OK) Recusa(Alca(), resultado);
}

std::int64_t Banco::Numero(const char* sql) {
  Instrucao instrucao(*this, sql);
  instrucao.Passo();
  return instrucao.Inteiro(0);
}

bool Banco::ForaDeTransacao() const noexcept { return sqlite3_get_autocommit(Alca()) != 0; }

void Instrucao::Finaliza::operator()(sqlite3_stmt* instrucao) const noexcept {
  sqlite3_finalize(instrucao);
}

Instrucao::Instrucao(Banco& banco, const std::string& sql) : _banco(banco) {
  sqlite3_stmt* instrucao = nullptr;
  Confere(sqlite3_prepare_v2(banco.Alca(), sql.c_str(), -1, &instrucao, nullptr));
  _instrucao.reset(instrucao);
}

void Instrucao::Confere(int resultado) const {
  if (resultado != SQLITE_OK) Recusa(_banco.Alca(), resultado);
}

Instrucao& Instrucao::Liga(int posicao, std::int64_t valor) {
  Confere(sqlite3_bind_int64(_instrucao.get(), posicao, valor));
  return *this;
}

Instrucao& Instrucao::Liga(int posicao, std::string_view texto) {
  Confere(sqlite3_bind_text64(_instrucao.get(), posicao, texto.data(), texto.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
  return *this;
}

Instrucao& Instrucao::Liga(int posicao, std::span<const std::byte> bytes) {
  Confere(
      sqlite3_bind_blob64(_instrucao.get(), posicao, bytes.data(), bytes.size(), SQLITE_STATIC));
  return *this;
}

bool Instrucao::Passo() {
  const int resultado = sqlite3_step(_instrucao.get());
  if (resultado == SQLITE_ROW) return true;
  if (resultado != SQLITE_DONE) Recusa(_banco.Alca(), resultado);
  return false;
}

void Instrucao::Executa() {
  while (Passo()) {
  }
  Recomeca();
}

void Instrucao::Reinicia() noexcept { sqlite3_reset(_instrucao.get()); }

void Instrucao::Recomeca() noexcept {
  Reinicia();
  sqlite3_clear_bindings(_instrucao.get());
}

std::int64_t Instrucao::Inteiro(int coluna) const {
  return sqlite3_column_int64(_instrucao.get(), coluna);
}

std::string_view Instrucao::Texto(int coluna) const {
  const auto* texto = reinterpret_cast<const char*>(sqlite3_column_text(_instrucao.get(), coluna));
  const auto tamanho = static_cast<std::size_t>(sqlite3_column_bytes(_instrucao.get(), coluna));
  return texto == nullptr ? std::string_view() : std::string_view(texto, tamanho);
}

std::span<const std::byte> Instrucao::Bytes(int coluna) const {
  const auto* bytes = static_cast<const std::byte*>(sqlite3_column_blob(_instrucao.get(), coluna));
  const auto tamanho = static_cast<std::size_t>(sqlite3_column_bytes(_instrucao.get(), coluna));
  return bytes == nullptr ? std::span<const std::byte>() : std::span(bytes, tamanho);
}

std::optional<std::int64_t> Instrucao::TalvezInteiro(int coluna) const {
  if (sqlite3_column_type(_instrucao.get(), coluna) == SQLITE_NULL) return {};
  return Inteiro(coluna);
}

std::optional<std::string> Instrucao::TalvezTexto(int coluna) const {
  if (sqlite3_column_type(_instrucao.get(), coluna) == SQLITE_NULL) return {};
  return std::string(Texto(coluna));
}

}  // namespace kxdados
