// The sums over the parts of a document beside the totals that it states.
#pragma once

#include <vector>

#include "kxldados/Dinheiro.h"

namespace kxdados {

struct Nota;

struct Total {
  const char* Elemento;  // name of the stated total in the document
  CKXCurrencyEx Calculado;
  CKXCurrencyEx Declarado;
};

// The totals of which the invoice states or the items hold something, vProd and vNF always. vNF is
// the sum of the other totals as stated, vLiq that of the installments.
std::vector<Total> ComparaTotais(const Nota& nota);

}  // namespace kxdados
