#pragma once

#include <vector>

#include "reports/periodo.h"

namespace reports {

/// A period as a page offers it, by its place around today.
enum class Prazo {
  kMes,
  kMesAnterior,
  kTrimestre,
  kTrimestreAnterior,
  kAno,
  kAnoAnterior,
  k12Meses,
  kDias  // from one day to another
};

struct PalavraDePrazo {
  Prazo prazo;
  const char* chave;   // "mes-anterior", as it is kept
  const char* titulo;  // "Mês anterior"
};
const std::vector<PalavraDePrazo>& Prazos();

/// The days of a period on a day; `dias` for `kDias`.
Periodo PeriodoDe(Prazo prazo, Date hoje, const Periodo& dias);

}  // namespace reports
