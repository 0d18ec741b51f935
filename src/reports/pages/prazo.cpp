#include "reports/pages/prazo.h"

namespace reports {

const std::vector<PalavraDePrazo>& Prazos() {
  static const std::vector<PalavraDePrazo> kPrazos = {
      {Prazo::kMes, "mes", "Este mês"},
      {Prazo::kMesAnterior, "mes-anterior", "Mês anterior"},
      {Prazo::kTrimestre, "trimestre", "Este trimestre"},
      {Prazo::kTrimestreAnterior, "trimestre-anterior", "Trimestre anterior"},
      {Prazo::kAno, "ano", "Este ano"},
      {Prazo::kAnoAnterior, "ano-anterior", "Ano anterior"},
      {Prazo::k12Meses, "12meses", "Últimos 12 meses"},
      {Prazo::kDias, "dias", "De … até …"},
  };
  return kPrazos;
}

Periodo PeriodoDe(Prazo prazo, Date hoje, const Periodo& dias) {
  const Date antes = hoje.AddMonths(prazo == Prazo::kMesAnterior ? -1 : -3);
  const auto trimestre = [](Date dia) { return Periodo::Trimestre(dia.year(), (dia.month() + 2) / 3); };
  switch (prazo) {
    case Prazo::kMes:
      return Periodo::Mes(hoje.year(), hoje.month());
    case Prazo::kMesAnterior:
      return Periodo::Mes(antes.year(), antes.month());
    case Prazo::kTrimestre:
      return trimestre(hoje);
    case Prazo::kTrimestreAnterior:
      return trimestre(antes);
    case Prazo::kAno:
      return Periodo::Ano(hoje.year());
    case Prazo::kAnoAnterior:
      return Periodo::Ano(hoje.year() - 1);
    case Prazo::k12Meses:
      return Periodo::Ultimos12Meses(hoje);
    case Prazo::kDias:
      break;
  }
  return dias;
}

}  // namespace reports
