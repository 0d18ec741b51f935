#include "reports/soma.h"

#include <algorithm>
#include <limits>

#include "host/tools.h"
#include "platform/runtime_error.h"

namespace reports {
namespace {

/// A quotient of the module's, absent where it raises an overflow.
Valor Quociente(Currency (*calcula)(Currency, Currency), const Valor& a, const Valor& b) {
  if (!a || !b || *b == 0) return {};
  try {
    return calcula(*a, *b);
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kOverflow) throw;
    return {};
  }
}

}  // namespace

Valor Soma::valor() const {
  constexpr Largo kMaior = std::numeric_limits<std::int64_t>::max();
  if (total_ > kMaior || total_ < -kMaior) return {};
  return Currency::FromTenThousandths(static_cast<std::int64_t>(total_));
}

Valor Por100(const Valor& quantidade, const Valor& distancia) {
  return Quociente(&zorCrmParvel::Tools::ConsumoMedio, quantidade, distancia);
}

Valor PorUnidade(const Valor& custo, const Valor& quantidade) {
  return Quociente(&zorCrmParvel::Tools::CustoPorKm, custo, quantidade);
}

Currency Parte(Currency valor, std::int64_t parte, std::int64_t todo) {
  __extension__ using Largo = __int128;
  const Largo produto = Largo{valor.tenThousandths()} * std::clamp<std::int64_t>(parte, 0, todo);
  Largo quociente = produto / todo;
  const Largo dobro = (produto < 0 ? -(produto % todo) : produto % todo) * 2;
  if (dobro > todo || (dobro == todo && quociente % 2 != 0)) quociente += produto < 0 ? -1 : 1;
  return Currency::FromTenThousandths(static_cast<std::int64_t>(quociente));
}

}  // namespace reports
