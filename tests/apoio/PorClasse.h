// Tests that run once for each class.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/apoio/Classes.h"
#include "tests/apoio/RegistroAleatorio.h"

namespace apoio {

class PorClasse : public testing::TestWithParam<const Classe*> {
 public:
  static std::vector<const Classe*> Ponteiros(const std::vector<Classe>& classes) {
    std::vector<const Classe*> ponteiros;
    for (const Classe& classe : classes) ponteiros.push_back(&classe);
    return ponteiros;
  }
  static std::string Nome(const testing::TestParamInfo<const Classe*>& info) {
    return info.param->Nome;
  }

 protected:
  const Classe& Atual() const { return *GetParam(); }
  const KXRegistroInfo& Info() const { return *Atual().Info; }
};

}  // namespace apoio

// Declares the suite over these classes.
#define KX_POR_CLASSE(Suite, Quais)                                                             \
  class Suite : public apoio::PorClasse {};                                                     \
  INSTANTIATE_TEST_SUITE_P(Todas, Suite, testing::ValuesIn(apoio::PorClasse::Ponteiros(Quais)), \
                           apoio::PorClasse::Nome)
