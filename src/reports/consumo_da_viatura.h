#pragma once

#include <optional>
#include <vector>

#include "reports/pedido.h"

namespace reports {

/// The sums behind a line of the consumption map; those of several lines add up.
struct SomasDeConsumo {
  Soma litros, custo, semData;
  bool temDistancia = false;
  Soma distancia, litrosContados, custoContado;
  std::int64_t contados = 0;
  Currency maior;  // the largest quantity counted

  void Junta(const SomasDeConsumo& linha);
};

struct ConsumoDoTipo {
  int tipo = -1;
  SomasDeConsumo somas;
  std::optional<Currency> kmBase, kmFim;
  const char* motivo = "";
};

/// The fills of a vehicle in the period, a type after the other; none when there are no fills to tell of.
std::vector<ConsumoDoTipo> ConsumoDaViatura(const Frota& frota, std::size_t viatura, const Periodo& periodo);

}  // namespace reports
