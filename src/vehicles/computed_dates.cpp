#include "vehicles/computed_dates.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/host.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace zorCrmParvel {
namespace {

using platform::Date;

struct MonthOfYear {
  int month;
  int year;
};

/// What the rule of the categories is decided by.
struct Age {
  Age(Date base, int baseYear, Date hoje)
      : ano(baseYear),
        anoHoje(hoje.year()),
        idade(hoje.year() - baseYear),
        passou(std::pair(hoje.month(), hoje.day()) > std::pair(base.month(), base.day()) ? 1 : 0),
        diaPassou(hoje.day() > base.day()),
        mes(base.month()),
        mesHoje(hoje.month()) {}

  int ano;
  int anoHoje;
  int idade;
  int passou;  // 1 when this year's anniversary has gone by; on the day itself 0
  bool diaPassou;
  int mes;
  int mesHoje;
};

/// Yearly from the seventh year, then twice a year around the anniversary. Nothing in the months before the
/// second one.
std::optional<MonthOfYear> TwiceAYear(const Age& a) {
  if (a.idade < 7) return MonthOfYear{a.mes, a.ano + 7 + a.passou};
  if (a.passou == 0) return MonthOfYear{a.mes, a.anoHoje};
  const int second = a.mes + 6;
  if (second > 12) return MonthOfYear{a.mes - 6, a.anoHoje + 1};
  if (second < a.mesHoje || (second == a.mesHoje && a.diaPassou)) return MonthOfYear{a.mes, a.anoHoje + 1};
  if (second == a.mesHoje) return MonthOfYear{second, a.anoHoje};
  return std::nullopt;
}

/// First after some years, then yearly.
MonthOfYear YearlyAfter(int years, const Age& a) {
  return a.idade <= years ? MonthOfYear{a.mes, a.ano + years} : MonthOfYear{a.mes, a.anoHoje + a.passou};
}

/// Years until the first inspection of the categories that are then inspected yearly; 0 for others.
int YearsUntilFirst(const std::string& categoria) {
  if (categoria == "LIGP") return 4;
  if (categoria == "LIGM" || categoria == "RLIG") return 2;
  return categoria == "PREB" ? 1 : 0;
}

bool IsTwiceAYear(const std::string& categoria) {
  static constexpr std::array kCategories = {"PESP", "PESM", "RSRB", "LIGTP", "TESC"};
  return std::find(kCategories.begin(), kCategories.end(), categoria) != kCategories.end();
}

std::optional<Date> LastInspection(const std::string& Matricula, const DataAccessRef& bd) {
  RecordsetRef rs;
  bd->AbrirLeitura(
      "", {"SELECT MAX([Data]) AS Ultima FROM [zor_PV_Inspecoes] WHERE Matricula='", value(Matricula), " '"},
      rs);
  std::optional<Date> last;
  if (rs->RecordCount() > 0)
    if (const platform::Variant ultima = rs->Fields("Ultima").Value(); !ultima.IsNull())
      last = ultima.ToDate();
  rs->Close();
  return last;
}

int NumberIn(const std::string& text) {
  return static_cast<int>(platform::Variant(platform::Trim(text)).ToLong());
}

/// The day of the base in the month that the text begins with and the year that it ends with, cut to the
/// month. Every fourth year counts as a leap year.
Date DayInMonth(int dia, const std::string& mesAno) {
  const std::string month = platform::Left(mesAno, 2);
  const std::string year = platform::Right(mesAno, 4);
  const int mes = NumberIn(month);
  const int ano = NumberIn(year);
  if (mes == 4 || mes == 6 || mes == 9 || mes == 11)
    dia = std::min(dia, 30);
  else if (mes == 2)
    dia = std::min(dia, ano % 4 == 0 ? 29 : 28);
  return Date::Parse(std::to_string(dia) + "-" + platform::Trim(month) + "-" + platform::Trim(year));
}

}  // namespace

Date FimDoPrazoDoSelo(int mesMatricula, Date hoje) {
  const int ano = hoje.year() + (mesMatricula < hoje.month() ? 1 : 0);
  return Date::FromParts(ano, mesMatricula, 1).AddMonths(1).AddDays(-1);
}

void Tools::ProximaInspecao(const std::string& Matricula, std::int16_t AnoMatricula, Date DataMatricula,
                            std::int16_t& Dias, std::string& MesAno, const std::string& Categoria,
                            const DataAccessRef& bd) {
  const Date hoje = platform::Today();
  Date base = DataMatricula;
  int ano = AnoMatricula;
  if (const auto ultima = LastInspection(Matricula, bd)) {
    base = Date::FromParts(ultima->year(), base.month(), base.day());
    ano = base.year();
  }
  const Age age(base, ano, hoje);
  std::optional<MonthOfYear> when;
  if (IsTwiceAYear(Categoria))
    when = TwiceAYear(age);
  else if (const int years = YearsUntilFirst(Categoria); years > 0)
    when = YearlyAfter(years, age);
  else
    return;
  if (when) MesAno = std::to_string(when->month) + " / " + std::to_string(when->year);
  const Date date = DayInMonth(base.day(), MesAno);
  Dias = platform::ToInteger(platform::DaysBetween(hoje, date));
  MesAno = date.ToText();
}

}  // namespace zorCrmParvel
