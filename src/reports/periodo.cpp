#include "reports/periodo.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace reports {
namespace {

constexpr std::size_t kMaximoDeColunas = 1200;

Date DataDe(Dia dia) { return Date().AddDays(dia); }

Dia FimDoMes(Dia dia) {
  const Date data = DataDe(dia);
  return Date::FromParts(data.year(), data.month(), 1).AddMonths(1).days() - 1;
}

Dia FimDaColuna(Dia dia, Coluna coluna) {
  const Date data = DataDe(dia);
  if (coluna == Coluna::kMes) return FimDoMes(dia);
  const int mes = coluna == Coluna::kAno ? 12 : (data.month() + 2) / 3 * 3;
  return FimDoMes(Date::FromParts(data.year(), mes, 1).days());
}

std::string NomeDaColuna(Dia dia, Coluna coluna) {
  const Date data = DataDe(dia);
  const std::string ano = platform::Padded(data.year(), 4);
  switch (coluna) {
    case Coluna::kMes:
      return ano + "-" + platform::Padded(data.month(), 2);
    case Coluna::kTrimestre:
      return ano + "-T" + std::to_string((data.month() + 2) / 3);
    case Coluna::kAno:
      break;
  }
  return ano;
}

}  // namespace

std::string TextoDoDia(Dia dia) {
  const Date data = DataDe(dia);
  return platform::Padded(data.year(), 4) + "-" + platform::Padded(data.month(), 2) + "-" +
         platform::Padded(data.day(), 2);
}

Periodo Periodo::Ano(int ano) {
  return {Date::FromParts(ano, 1, 1).days(), Date::FromParts(ano, 12, 31).days()};
}

Periodo Periodo::Trimestre(int ano, int trimestre) {
  const Date primeiro = Date::FromParts(ano, trimestre * 3 - 2, 1);
  return {primeiro.days(), primeiro.AddMonths(3).days() - 1};
}

Periodo Periodo::Mes(int ano, int mes) {
  const Date primeiro = Date::FromParts(ano, mes, 1);
  return {primeiro.days(), primeiro.AddMonths(1).days() - 1};
}

Periodo Periodo::Ultimos12Meses(Date hoje) {
  const Date primeiro = Date::FromParts(hoje.year(), hoje.month(), 1);
  return {primeiro.AddMonths(-12).days(), primeiro.days() - 1};
}

std::optional<int> Periodo::MesesInteiros() const {
  const Date primeiro = DataDe(de);
  const Date depois = DataDe(ate + 1);
  if (ate < de || primeiro.day() != 1 || depois.day() != 1) return {};
  return (depois.year() - primeiro.year()) * 12 + depois.month() - primeiro.month();
}

Periodo Periodo::Anterior() const {
  if (const auto meses = MesesInteiros()) return {DataDe(de).AddMonths(-*meses).days(), de - 1};
  return {de - (ate - de + 1), de - 1};
}

double Periodo::Meses() const {
  constexpr double kDiasDoMes = 30.4375;
  if (const auto meses = MesesInteiros()) return *meses;
  return static_cast<double>(ate - de + 1) / kDiasDoMes;
}

std::vector<Intervalo> ColunasDe(const Periodo& periodo, Coluna coluna) {
  std::vector<Intervalo> colunas;
  for (Dia dia = periodo.de; dia <= periodo.ate;) {
    if (colunas.size() == kMaximoDeColunas)
      throw platform::RuntimeError(platform::kOverflow, "relatório",
                                   "O período tem mais de 1200 colunas. Encurte-o, ou escolha colunas por "
                                   "trimestre ou por ano.");
    const Dia fim = std::min(FimDaColuna(dia, coluna), periodo.ate);
    colunas.push_back({NomeDaColuna(dia, coluna), {dia, fim}});
    dia = fim + 1;
  }
  return colunas;
}

std::size_t ColunaDoDia(const std::vector<Intervalo>& colunas, Dia dia) {
  const auto depois = std::upper_bound(colunas.begin(), colunas.end(), dia,
                                       [](Dia d, const Intervalo& coluna) { return d < coluna.dias.de; });
  return static_cast<std::size_t>(depois - colunas.begin()) - 1;
}

}  // namespace reports
