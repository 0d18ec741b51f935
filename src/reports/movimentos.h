#pragma once

#include <string>
#include <vector>

#include "reports/pedido.h"

namespace reports {

struct Movimento {
  const Evento* evento;
  Soma litros;  // of fills, from the first event of the group to this one
  Soma custo;
};

struct Movimentos {
  std::vector<Movimento> linhas;  // by vehicle or driver, then in order
  Soma litros, custo;             // of all
  std::int64_t semData = 0;       // events without a date that the filters let through
};

/// Every event of the period with running totals by vehicle, or by driver.
Movimentos MovimentosDaFrota(const Frota& frota, const Pedido& pedido);

}  // namespace reports
