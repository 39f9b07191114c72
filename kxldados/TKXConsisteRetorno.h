// Result of a validation: the messages that tell whether an object may be saved and, if not, why.
//
//   TKXConsisteRetorno retorno;
//   retorno.AdicionaItem({TKXConsisteRetornoItem::eConsiste::Erro, "Informe o fornecedor."});
//   if (!retorno.EstaVazio()) Mostra(retorno.GetItem(0).GetTexto());
//
// Values: copies are deep, moves are cheap.
#pragma once

#include <cstdint>

#include "kxldados/CKXVector.h"
#include "kxldados/CString.h"
#include "kxldados/TKXBaseParaDados.h"
#include "platform/Exporta.h"

// Modules of the suite, as far as they are named here. Any other number is carried as it is.
enum class KXModulo : std::int32_t {
  Nenhum = 0,
  Compras = 7,
};

// One message: either the code of a message in the message file of a module, or a free text.
class KX_API TKXConsisteRetornoItem {
 public:
  // What the user is asked to do about the message.
  enum class eConsiste : std::int32_t {
    Nenhum = 0,    // nothing
    Aviso = 1,     // the user is told and may go on
    Pergunta = 2,  // the user decides whether to go on
    Erro = 3,      // the object may not be saved
  };

  TKXConsisteRetornoItem() noexcept = default;
  // A code of a message file. The code is kept in 32 bits. The flag travels with the message; its
  // sense belongs to the code.
  TKXConsisteRetornoItem(eConsiste tipo, KXModulo modulo, unsigned long codigo, bool flag) noexcept;
  // A free text, of no module.
  TKXConsisteRetornoItem(eConsiste tipo, const CString& texto);

  // What the message was made of; a free text has no module and no code, a code no text.
  eConsiste GetTipo() const noexcept { return _Tipo; }
  KXModulo GetModulo() const noexcept { return _Modulo; }
  unsigned long GetCodigo() const noexcept { return _Codigo; }
  bool GetFlag() const noexcept { return _Flag; }
  const CString& GetTexto() const noexcept { return _Texto; }

  bool operator==(const TKXConsisteRetornoItem& outro) const = default;

 private:
  eConsiste _Tipo = eConsiste::Nenhum;
  KXModulo _Modulo = KXModulo::Nenhum;
  std::uint32_t _Codigo = 0;
  bool _Flag = false;
  CString _Texto;
};

// The messages in the order in which they were added, and the module whose message file the codes
// of the result belong to. An index outside the collection raises std::out_of_range
// "invalid vector<T> subscript".
class KX_API TKXConsisteRetorno : public TKXBaseParaDados {
  KX_DECLARA_CLASSE(TKXConsisteRetorno)

 public:
  TKXConsisteRetorno() noexcept = default;
  // A result of the module with one message.
  TKXConsisteRetorno(TKXConsisteRetornoItem::eConsiste tipo, KXModulo modulo, unsigned long codigo,
                     bool flag);
  // A result of no module with one message.
  TKXConsisteRetorno(TKXConsisteRetornoItem::eConsiste tipo, const CString& texto);
  TKXConsisteRetorno(const TKXConsisteRetorno& outro) = default;
  TKXConsisteRetorno(TKXConsisteRetorno&& outro) noexcept = default;
  TKXConsisteRetorno& operator=(const TKXConsisteRetorno& outro);
  TKXConsisteRetorno& operator=(TKXConsisteRetorno&& outro) noexcept;
  ~TKXConsisteRetorno() override;

  // The module of the result.
  KXModulo GetModulo() const noexcept { return _Modulo; }
  // Sets the module of the result; its messages keep theirs.
  void SeteModuloCodigoKXMensagem(KXModulo modulo) noexcept { _Modulo = modulo; }

  // Append a message.
  TKXConsisteRetorno& AdicionaItem(const TKXConsisteRetornoItem& item);
  TKXConsisteRetorno& AdicionaItem(TKXConsisteRetornoItem&& item);
  // Removes one message; those after it move down.
  TKXConsisteRetorno& DeletarItem(long long indice);
  // Removes every message; the module stays.
  TKXConsisteRetorno& RemoveTodosItem() noexcept;
  // One message, their number, and all of them.
  const TKXConsisteRetornoItem& GetItem(long long indice) const;
  long long GetQuantidadeItem() const noexcept;
  const CKXVector<TKXConsisteRetornoItem>& GetListaItem() const noexcept { return _ListaItem; }

  // Module and messages equal.
  bool operator==(const TKXConsisteRetorno& outro) const;
  bool operator!=(const TKXConsisteRetorno& outro) const { return !(*this == outro); }

 protected:
  // No message, no module.
  void OnLimpar() override;
  // The module and all messages. The source is taken for a result without a test.
  void OnCopiar(const TKXBaseParaDados* origem) override;
  // operator==; false for an object that is not a result.
  bool OnIgual(const TKXBaseParaDados* outro) const override;
  // True when there is no message, whatever the module.
  bool OnEstaVazio() const override;

 private:
  KXModulo _Modulo = KXModulo::Nenhum;
  CKXVector<TKXConsisteRetornoItem> _ListaItem;
};
