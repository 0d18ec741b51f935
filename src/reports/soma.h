#pragma once

#include <cstdint>
#include <optional>

#include "platform/currency.h"

namespace reports {

using platform::Currency;

/// A figure that may be absent: unknown, or more than money holds.
using Valor = std::optional<Currency>;

/// An exact sum of any number of amounts. Only what is asked of it at the end has to fit.
class Soma {
 public:
  Soma() = default;
  explicit Soma(Currency valor) : total_(valor.tenThousandths()) {}
  Soma& operator+=(Currency valor) {
    total_ += valor.tenThousandths();
    return *this;
  }
  Soma& operator-=(Currency valor) {
    total_ -= valor.tenThousandths();
    return *this;
  }
  Soma& operator+=(const Soma& outra) {
    total_ += outra.total_;
    return *this;
  }
  Soma& operator-=(const Soma& outra) {
    total_ -= outra.total_;
    return *this;
  }
  bool EZero() const { return total_ == 0; }
  /// Absent when it does not fit.
  Valor valor() const;

 private:
  __extension__ using Largo = __int128;
  Largo total_ = 0;
};

/// `Tools::ConsumoMedio`, absent when the distance is 0, a part is absent or the outcome does not fit.
Valor Por100(const Valor& quantidade, const Valor& distancia);
/// `Tools::CustoPorKm` with the same absences.
Valor PorUnidade(const Valor& custo, const Valor& quantidade);
/// `parte / todo` of an amount, half to even at four decimals; `parte` is brought between 0 and `todo`.
Currency Parte(Currency valor, std::int64_t parte, std::int64_t todo);

}  // namespace reports
