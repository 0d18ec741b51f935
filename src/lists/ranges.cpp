#include "lists/ranges.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <vector>

#include "lists/condition.h"
#include "lists/words.h"
#include "platform/currency.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace lists {
namespace {

using platform::Currency;
using platform::Date;
using platform::RuntimeError;
using platform::Trim;

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr int kMonths = 12;
constexpr int kThirtyDays = 30;
constexpr std::int64_t kWeek = 7;

NumberSpan Days(Date from, Date to) {
  return {static_cast<double>(from.DayOnly().seconds()), static_cast<double>(to.DayOnly().seconds())};
}
NumberSpan Months(Date day, int first, int count) {
  const Date from = Date::FromParts(day.year(), day.month(), 1).AddMonths(first);
  return Days(from, from.AddMonths(count));
}
NumberSpan Weeks(Date day, int first) {
  // The zero date was a Saturday; weeks begin on Mondays.
  const std::int64_t weekday = ((day.days() - 2) % kWeek + kWeek) % kWeek;
  const Date monday = day.AddDays(first * kWeek - weekday);
  return Days(monday, monday.AddDays(kWeek));
}

struct Period {
  const char* name;
  NumberSpan (*span)(Date today);
};

const std::vector<Period>& AllPeriods() {
  static const std::vector<Period> periods = {
      {"hoje", [](Date d) { return Days(d, d.AddDays(1)); }},
      {"ontem", [](Date d) { return Days(d.AddDays(-1), d); }},
      {"esta semana", [](Date d) { return Weeks(d, 0); }},
      {"semana passada", [](Date d) { return Weeks(d, -1); }},
      {"este mês", [](Date d) { return Months(d, 0, 1); }},
      {"mês passado", [](Date d) { return Months(d, -1, 1); }},
      {"próximo mês", [](Date d) { return Months(d, 1, 1); }},
      {"este trimestre", [](Date d) { return Months(d, -((d.month() - 1) % 3), 3); }},
      {"este ano", [](Date d) { return Months(d, 1 - d.month(), kMonths); }},
      {"ano passado", [](Date d) { return Months(d, 1 - d.month() - kMonths, kMonths); }},
      {"últimos 30 dias", [](Date d) { return Days(d.AddDays(-kThirtyDays), d.AddDays(1)); }},
      {"próximos 30 dias", [](Date d) { return Days(d, d.AddDays(kThirtyDays + 1)); }},
  };
  return periods;
}

/// "11-2026" and "2026".
std::optional<NumberSpan> MonthOrYear(const std::string& text) {
  std::vector<int> parts = {0};
  for (char c : text) {
    if (c >= '0' && c <= '9' && parts.back() < 10000)
      parts.back() = parts.back() * 10 + (c - '0');
    else if ((c == '-' || c == '/' || c == '.') && parts.size() < 2)
      parts.push_back(0);
    else
      return {};
  }
  const int year = parts.back();
  if (year < 1753 || year > 9998) return {};
  if (parts.size() == 1) return Months(Date::FromParts(year, 1, 1), 0, kMonths);
  if (parts[0] < 1 || parts[0] > kMonths) return {};
  return Months(Date::FromParts(year, parts[0], 1), 0, 1);
}

std::optional<NumberSpan> OneDate(const std::string& text, Date today) {
  for (const Period& period : AllPeriods())
    if (Folded(period.name) == Folded(text)) return period.span(today);
  if (const auto span = MonthOrYear(text)) return span;
  Date day;
  if (!Date::TryParse(text, day)) return {};
  return Days(day, day.AddDays(1));
}

/// A number with as many decimals as are written: "12" is from 12 up to 13.
std::optional<NumberSpan> OneNumber(const std::string& text) {
  if (text.empty() || text.find_first_not_of("0123456789,.- ") != std::string::npos) return {};
  double number = 0;
  try {
    number = Currency::Parse(text).ToDouble();
  } catch (const RuntimeError&) {
    return {};
  }
  const std::size_t comma = text.find(',');
  const double decimals = comma == std::string::npos ? 0 : static_cast<double>(text.size() - comma - 1);
  const double step = std::pow(10.0, -decimals);
  return number < 0 ? NumberSpan{number - step + step / 1e6, number + step / 1e6}
                    : NumberSpan{number - step / 1e6, number + step - step / 1e6};
}

std::optional<std::pair<std::string, std::string>> Ends(const std::string& text) {
  for (const char* between : {"..", " a ", " A "}) {
    const std::size_t place = text.find(between);
    if (place == std::string::npos) continue;
    return {{Trim(text.substr(0, place)), Trim(text.substr(place + std::string(between).size()))}};
  }
  return {};
}

using ReadOne = std::function<std::optional<NumberSpan>(const std::string&)>;

[[noreturn]] void Refuse(const std::string& text, const char* examples) {
  throw RuntimeError(platform::kTypeMismatch, kFilterSource,
                     "Não se percebe «" + text + "». Escreva, por exemplo, " + examples + ".");
}

/// A range of either kind. `exact`: a number stands for itself in comparisons, and not for those that begin
/// like it.
NumberSpan ReadSpan(const std::string& text, const ReadOne& one, bool exact, const char* examples) {
  const auto read = [&](const std::string& part) {
    const auto span = one(part);
    if (!span) Refuse(text, examples);
    return *span;
  };
  const auto after = [exact](const NumberSpan& s) {
    return exact ? std::nextafter(s.first, kInfinite) : s.second;
  };
  const auto exactly = [&](const std::string& part) {
    NumberSpan span = read(part);
    if (exact) span.first = platform::Currency::Parse(part).ToDouble();
    return span;
  };
  if (const auto ends = Ends(text); ends && !(ends->first.empty() && ends->second.empty()))
    return {ends->first.empty() ? -kInfinite : exactly(ends->first).first,
            ends->second.empty() ? kInfinite : after(exactly(ends->second))};
  if (text.starts_with(">=")) return {exactly(Trim(text.substr(2))).first, kInfinite};
  if (text.starts_with("<=")) return {-kInfinite, after(exactly(Trim(text.substr(2))))};
  if (text.starts_with(">")) return {after(exactly(Trim(text.substr(1)))), kInfinite};
  if (text.starts_with("<")) return {-kInfinite, exactly(Trim(text.substr(1))).first};
  return read(text);
}

}  // namespace

NumberSpan NumberRange(const std::string& text) {
  return ReadSpan(text, OneNumber, true, "12, 10 a 20, > 100 ou <= 50,5");
}

NumberSpan DateRange(const std::string& text, Date today) {
  return ReadSpan(
      text, [today](const std::string& part) { return OneDate(part, today); }, false,
      "24-11-2026, 11-2026, 01-01-2026 a 31-03-2026, este mês ou > 2025");
}

const std::vector<std::string>& Periods() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (const Period& period : AllPeriods()) all.emplace_back(period.name);
    return all;
  }();
  return names;
}

}  // namespace lists
