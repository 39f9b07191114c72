// All that documents share, in one include: the base data objects, the record wrappers, the status
// and validation results, the apportionment base, the financial objects, images, texts and
// checksums. Each header below is its own manual; a program that uses one document includes that
// document's header (re/DadosRE.h...) and needs nothing of this.
#pragma once

#include "core/Checksum.h"
#include "core/ConsisteRetorno.h"
#include "core/DadosRegistro.h"
#include "core/Financeiro.h"
#include "core/Imagem.h"
#include "core/Rateio.h"
#include "core/Situacao.h"
#include "core/TKXCMBaseParaDados.h"
#include "core/TextoFixo.h"
