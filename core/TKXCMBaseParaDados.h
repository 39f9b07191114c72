// The base of the purchasing module's data objects: a stored checksum, the line of the import file
// and the texts that other modules compare against.
#pragma once

#include <cstdint>

#include "kxldados/TKXBaseParaDados.h"

class KX_API TKXCMBaseParaDados : public TKXBaseParaDados {
  KX_DECLARA_CLASSE(TKXCMBaseParaDados)

 public:
  TKXCMBaseParaDados() noexcept = default;
  TKXCMBaseParaDados(const TKXCMBaseParaDados&) noexcept = default;
  TKXCMBaseParaDados& operator=(const TKXCMBaseParaDados& outro);
  ~TKXCMBaseParaDados() override = default;

  // The stored checksum, 32 bits; nothing is computed (CalculaCRC does). Neither it nor the import
  // line takes part in equality or emptiness.
  unsigned long Get_CRC() const { return _CRC; }
  TKXCMBaseParaDados& Set_CRC(const unsigned long& valor);

  // Line of the import file from which the object was read, 0 when it was not imported.
  int GetLinhaArquivoImportacao() const { return LinhaArquivoImportacao; }
  TKXCMBaseParaDados& SetLinhaArquivoImportacao(const int& valor);

  // True when two history complements are the same: both empty, or equal in their first three
  // lines. Lines end at any run of carriage returns and line feeds, so empty lines do not count;
  // a missing line is an empty one; what follows the third line is ignored.
  static bool ComparaComplementoHistorico(const CString& a, const CString& b);

  // Message shown when the integration with the stock module fails (Latin-1).
  static const char* GetStringErroIntegracaoESSimples();
  // Marker that makes an otherwise empty purchase-order field non-empty.
  static const char* GetStringPropositalNotEmptyForOC();
  // Placeholder in a history complement that the stock module replaces.
  static const char* GetStringSubstituicaoComplementoES();

 protected:
  void OnLimpar() override;
  void OnCopiar(const TKXBaseParaDados* origem) override;
  void MoveDe(TKXCMBaseParaDados& outro) noexcept;

 private:
  std::uint32_t _CRC = 0;
  std::int32_t LinhaArquivoImportacao = 0;
};
