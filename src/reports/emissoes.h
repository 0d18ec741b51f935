#pragma once

#include <string>
#include <vector>

#include "reports/pivot.h"

namespace reports {

struct Emissoes {
  std::vector<Intervalo> colunas;
  std::vector<LinhaDoPivot> linhas;  // kg of CO2
  LinhaDoPivot total;
  Soma semFactor;  // quantity of fills in the period whose type has no factor on their day
};

/// The factor of a type on a day: the last that began; absent before the first.
Valor FactorDe(const Tipo& tipo, Dia dia);

/// CO2 of every fill by its type and day.
Emissoes EmissoesDaFrota(const Frota& frota, const Pedido& pedido);

}  // namespace reports
