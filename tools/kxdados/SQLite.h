// The database library as this tool uses it: its handles release themselves, its errors are thrown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace kxdados {

// What the database library refused, in Portuguese, UTF-8.
class FalhaDoBanco : public std::runtime_error {
 public:
  FalhaDoBanco(int codigo, const std::string& motivo);
  // Its result code, SQLITE_BUSY for instance.
  int Codigo() const noexcept { return _codigo; }

 private:
  int _codigo;
};

// An open database. Another connection's lock is waited for, a minute at most.
class Banco {
 public:
  // With the flags of sqlite3_open_v2. Throws FalhaDoBanco.
  Banco(const std::string& caminho, int modo);

  // Carries out statements whose rows nobody reads.
  void Executa(const char* sql);
  // The one number that a statement yields.
  std::int64_t Numero(const char* sql);
  // Rows that the last statement changed.
  // Whether no transaction is open: some errors end it.
  bool ForaDeTransacao() const noexcept;
  sqlite3* Alca() const noexcept { return _banco.get(); }

 private:
  struct Fecha {
    void operator()(sqlite3* banco) const noexcept;
  };
  std::unique_ptr<sqlite3, Fecha> _banco;
};

// A statement that was compiled once. Parameters are numbered from 1, columns from 0; what is bound
// must stay where it is until the next Recomeca, and what a row yields stays until the next Passo.
class Instrucao {
 public:
  Instrucao(Banco& banco, const std::string& sql);

  Instrucao& Liga(int posicao, std::int64_t valor);
  Instrucao& Liga(int posicao, std::string_view texto);
  Instrucao& Liga(int posicao, std::span<const std::byte> bytes);
  // Null where there is none.
  template <class T>
  Instrucao& Liga(int posicao, const std::optional<T>& valor) {
    return valor ? Liga(posicao, *valor) : *this;
  }

  // Goes to the next row; false behind the last one.
  bool Passo();
  // Carries out a statement without rows, and makes it ready for the next time.
  void Executa();
  // Before the first row again, with what is bound.
  void Reinicia() noexcept;
  // Ready for the next time, with nothing bound.
  void Recomeca() noexcept;

  std::int64_t Inteiro(int coluna) const;
  std::string_view Texto(int coluna) const;
  std::span<const std::byte> Bytes(int coluna) const;
  std::optional<std::int64_t> TalvezInteiro(int coluna) const;
  std::optional<std::string> TalvezTexto(int coluna) const;

 private:
  void Confere(int resultado) const;

  struct Finaliza {
    void operator()(sqlite3_stmt* instrucao) const noexcept;
  };
  Banco& _banco;
  std::unique_ptr<sqlite3_stmt, Finaliza> _instrucao;
};

}  // namespace kxdados
