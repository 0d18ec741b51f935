#pragma once

#include <vector>

#include "alerts/alert_rules.h"
#include "host/data_access.h"
#include "platform/screen/grid.h"

namespace zorCrmParvel {

/// How many rows of an alert list stand in each band.
struct ContagemDeAlertas {
  long linhas = 0;  // all of them, those in no band too
  long passadas = 0;
  long muitoBreves = 0;
  long breves = 0;

  bool operator==(const ContagemDeAlertas&) const = default;
};

/// The band that a condition of the alert lists puts a row in.
inline Tools::Faixa FaixaDe(const platform::FormatCondition& condicao) {
  return static_cast<Tools::Faixa>(condicao.band);
}

/// Counts the rows by the first condition that each meets, as a grid would colour them, and reads them all.
/// Error 3265 on a condition whose column isn't there.
ContagemDeAlertas ContarFaixas(const RecordsetRef& linhas,
                               const std::vector<platform::FormatCondition>& condicoes);

}  // namespace zorCrmParvel
