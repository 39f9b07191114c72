// Management-account links and the base of the apportionment lines that hold them.
#pragma once

#include <cstdint>

#include "core/ClasseDeRegistro.h"
#include "core/Colecao.h"
#include "core/Membro.h"
#include "core/Registros.h"
#include "core/TKXCMBaseParaDados.h"

// How the management accounts of a line add up to it.
enum class eVariavelSomaGerencial : std::uint8_t { NaoSoma = 0, Quantidade = 1, Valor = 2 };

// One management-account link, over tagREG_GERENCIALPS (24 bytes).
class KX_API TKXGerencial : public TKXBaseParaDados {
  KX_CLASSE_DE_REGISTRO(TKXGerencial, TKXBaseParaDados, tagREG_GERENCIALPS)

#define KX_CLASSE TKXGerencial
#define KX_TABELA "core/tagREG_GERENCIALPS.def"
#include "core/tabela/Acessores.h"
};

// One judicial process of a withholding, over tagREG_PROCESSO_JURIDICOPS (16 bytes).
class KX_API CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD : public TKXBaseParaDados {
  KX_CLASSE_DE_REGISTRO(CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD, TKXBaseParaDados,
                        tagREG_PROCESSO_JURIDICOPS)

#define KX_CLASSE CKXDadosINTEG_EFMovimentoItemProcessoJuridicoEFD
#define KX_TABELA "core/tagREG_PROCESSO_JURIDICOPS.def"
#include "core/tabela/Acessores.h"
};

// Base of the apportionment lines: a collection of management accounts, which each line writes into
// its own record. It has no record form of its own.
class KX_API CKXDadosCM_RateioBase : public TKXCMBaseParaDados {
  KX_CLASSE_SEM_REGISTRO(CKXDadosCM_RateioBase, TKXCMBaseParaDados)
  KX_COLECAO(CKXDadosCM_RateioBase, Gerencial, TKXGerencial)

 protected:
  template <class V>
  static void Partes(V&& v) {
    v.Local(KX_DO_OBJETO(ListaGerencial));
  }
};
