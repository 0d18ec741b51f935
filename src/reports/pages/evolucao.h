#pragma once

#include <string>
#include <vector>

#include "host/data_access.h"
#include "reports/pages/grafico.h"
#include "reports/periodo.h"

namespace reports {

/// A vehicle over time, in charts: consumption, cost by kind, kilometres, cost a kilometre; beside its
/// category where that has other vehicles.
struct Evolucao {
  std::string titulo;  // "10-GJ-10 · Renault Clio · LIGEIROS"
  std::vector<Grafico> graficos;
};

/// Reads and computes the months of a period. Error 5 when there is no such vehicle and no event of one.
Evolucao EvolucaoDa(const zorCrmParvel::DataAccessRef& bd, const std::string& matricula,
                    const Periodo& periodo);

}  // namespace reports
