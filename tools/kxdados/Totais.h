// The sums over the items of an entry beside the totals that its invoice states.
#pragma once

#include <vector>

#include "ImportaNFe.h"
#include "kxldados/Dinheiro.h"

namespace kxdados {

struct Total {
  const char* Elemento;  // name of the stated total in the invoice
  CKXCurrencyEx Calculado;
  CKXCurrencyEx Declarado;
};

// The totals of which the invoice states or the items hold something, vProd and vNF always. vNF is
// the sum of the other totals as stated, vLiq that of the installments.
std::vector<Total> ComparaTotais(const Nota& nota);

}  // namespace kxdados
