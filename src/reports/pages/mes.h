#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "reports/periodo.h"
#include "reports/soma.h"

namespace reports {

/// A figure of the month beside those that it is measured by.
struct FiguraDoMes {
  std::string nome;   // "Custo"
  std::string valor;  // "1.234,50 €"; "—" where there is none
  std::string antes;  // "mês anterior 1.100,00 € (+12 %)"
  std::string ano;    // "há um ano 980,00 € (+26 %)"
};

/// What the start page tells of the running month as far as it has come, and of leasing contracts whose
/// kilometres go beyond their limit by more than a tenth.
struct ResumoDoMes {
  std::string mes;  // "Novembro de 2026, até ao dia 25"
  std::vector<FiguraDoMes> figuras;
  struct Contrato {
    std::string matricula;
    std::string texto;  // "53.000 km previstos para 40.000; 1.300,00 € a mais"
  };
  std::vector<Contrato> leasing;  // the dearest first
};

ResumoDoMes ResumoDe(const zorCrmParvel::DataAccessRef& bd, Date hoje);

}  // namespace reports
