#pragma once

#include <optional>
#include <string>
#include <vector>

#include "reports/pedido.h"

namespace reports {

/// What a vehicle cost altogether.
struct LinhaDoTotal {
  std::string matricula;
  std::string categoria;
  std::vector<Soma> tipos;  // by `CustoTotal::tipos`
  Soma custo;
  Valor distancia;
  Valor eurKm;
  Valor eurMes;
  Valor l100;  // of the type with the longest distance
  int tipoDoConsumo = -1;
  std::optional<int> lugar;  // by euros a km within the category, equal figures sharing one
  Valor compra;              // purchase less residual value, spread over its years; not part of the cost
  Soma semData;
};

struct CustoTotal {
  std::vector<std::string> tipos;  // keys of the kinds of cost
  std::vector<LinhaDoTotal> linhas;
};

/// Cost, distance and place of every vehicle.
CustoTotal CustoTotalDaFrota(const Frota& frota, const Pedido& pedido);

}  // namespace reports
