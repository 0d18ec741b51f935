#include "events/expense_rules.h"

namespace zorCrmParvel::RegrasDeGastos {

using platform::Currency;

const char* Quantidade(bool combustivel, Currency quantidade) {
  return combustivel && quantidade <= 0 ? "O Tipo de Gasto exige quantidade superior a zero!" : nullptr;
}

const char* Custo(Currency custo) { return custo <= 0 ? "Deve ser superior zero!" : nullptr; }

const char* Km(bool combustivel, Currency km, Currency anterior) {
  if (!combustivel) return nullptr;
  if (km <= 0) return "O tipo de Gasto exige quilometragem superior a zero!";
  return km < anterior ? "Existe uma quilometragem superior para esta viatura em Gasto anterior." : nullptr;
}

}  // namespace zorCrmParvel::RegrasDeGastos
