// Every class over a flat record, as the headers of the rooms declare them: the sweeps run over
// this list.
#pragma once

#include <gtest/gtest.h>

#include "gerado/Cabecalhos.inc"

namespace apoio {

template <class, class... Classes>
struct Lista {
  using Tipos = ::testing::Types<Classes...>;
};

#define KX_CLASSE_COM_REGISTRO(Classe, Cabecalho) , Classe
#define KX_CLASSE_OUTRA(Classe, Cabecalho)
using ClassesDeRegistro = Lista<void
#include "gerado/Classes.def"
                                >::Tipos;
#undef KX_CLASSE_OUTRA
#undef KX_CLASSE_COM_REGISTRO

}  // namespace apoio
