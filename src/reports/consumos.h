#pragma once

#include <string>
#include <vector>

#include "reports/pedido.h"

namespace reports {

/// A line of the consumption map: a vehicle's fills of one type, or a group's.
struct LinhaDeConsumo {
  std::string chave;  // plate, or key of the group
  int tipo = -1;      // index in `Frota::tipos`; -1 without fills
  Valor litros, custo, eurL;
  Valor kmBase, kmFim, distancia;
  std::int64_t contados = 0;
  Valor litrosContados, custoContado;
  Valor l100, margem, eurKm;
  std::string motivo;  // why there is no distance, or "não cabe"
  Valor semData;       // quantity of fills without a date
};

struct MapaDeConsumos {
  std::vector<LinhaDeConsumo> linhas;  // by vehicle, then type
  std::vector<LinhaDeConsumo> grupos;  // by key, then type; by vehicle none
  std::vector<LinhaDeConsumo> totais;  // of all lines, by type
};

/// What the fleet used: from fill to fill, each type by itself. Only fills are looked at.
MapaDeConsumos Consumos(const Frota& frota, const Pedido& pedido);

}  // namespace reports
