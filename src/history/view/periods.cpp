#include "history/view/periods.h"

namespace history {

using platform::Date;

const std::vector<Period>& Periods() {
  static const std::vector<Period> periods = {{"Desde sempre"},      {"Hoje", 1},
                                              {"Últimos 7 dias", 7}, {"Últimos 30 dias", 30},
                                              {"Este ano", 0, 0},    {"O ano passado", 0, 1}};
  return periods;
}

void Apply(const Period& period, Date now, Filter& filter) {
  if (period.yearsBack >= 0) {
    const int year = now.year() - period.yearsBack;
    filter.from = Date::FromParts(year, 1, 1);
    if (period.yearsBack > 0) filter.to = Date::FromParts(year, 12, 31);
  } else if (period.days > 0) {
    filter.from = Date::FromParts(now.year(), now.month(), now.day()).AddDays(1 - period.days);
  }
}

}  // namespace history
