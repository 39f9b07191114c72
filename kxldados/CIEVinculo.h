// Link of a document to its counterpart in the fiscal module. It lives in the object alone and
// never crosses in a record.
#pragma once

#include <cstdint>

#include "kxldados/TKXBaseParaDados.h"
#include "kxldados/Tipos.h"

class KX_API CIEVinculo : public TKXBaseParaDados {
  KX_DECLARA_CLASSE(CIEVinculo)

 public:
  CIEVinculo() noexcept = default;
  CIEVinculo(const CIEVinculo&) noexcept = default;
  CIEVinculo& operator=(const CIEVinculo& outro);
  ~CIEVinculo() override = default;

  // Key of the fiscal document; zero when there is no link.
  const REG_KXDMC& GetChave() const { return _Chave; }
  CIEVinculo& SetChave(const REG_KXDMC& valor);
  // Kind of fiscal document, a code of the fiscal module.
  const std::int32_t& GetTipo() const { return _Tipo; }
  CIEVinculo& SetTipo(const std::int32_t& valor);

  bool operator==(const CIEVinculo& outro) const;
  bool operator!=(const CIEVinculo& outro) const { return !(*this == outro); }

 protected:
  void OnLimpar() override;
  void OnCopiar(const TKXBaseParaDados* origem) override;
  bool OnEstaVazio() const override;

 private:
  REG_KXDMC _Chave{};
  std::int32_t _Tipo = 0;
};
