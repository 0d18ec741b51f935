#include "platform/date.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>

#include "platform/date_reader.h"
#include "platform/regional.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace platform {
namespace {

using std::chrono::year_month_day;

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kZero{std::chrono::year{1899} / 12 / 30};

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }

year_month_day CivilDay(std::int64_t days) { return year_month_day{kZero + std::chrono::days{days}}; }

bool ReadTime(std::string_view text, int& secondOfDay) {
  DateReader reader(text);
  return reader.Time(1, secondOfDay) && reader.AtEnd();
}

/// Day, month and year, or the other way round when the first number has four digits.
bool ReadDay(std::string_view text, int secondOfDay, Date& out) {
  DateReader reader(text);
  int first = 0;
  int month = 0;
  int last = 0;
  char mark = 0;
  char again = 0;
  if (!reader.Number(1, 4, first) || reader.digits() == 3) return false;
  const bool yearFirst = reader.digits() == 4;
  if (!reader.Mark("-/.", mark) || !reader.Number(1, 2, month) || !reader.Mark("-/.", again)) return false;
  if (again != mark || !reader.Number(1, yearFirst ? 2 : 4, last) || !reader.AtEnd()) return false;
  if (yearFirst) return Date::TryFromParts(first, month, last, secondOfDay, out);
  if (reader.digits() <= 2) last += last < 30 ? 2000 : 1900;
  return Date::TryFromParts(last, month, first, secondOfDay, out);
}

}  // namespace

Date Date::FromParts(int year, int month, int day, int hour, int minute, int second) {
  Date date;
  const bool clock = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  if (!clock || !TryFromParts(year, month, day, (hour * 60 + minute) * 60 + second, date))
    throw RuntimeError(kTypeMismatch);
  return date;
}

bool Date::TryFromParts(int year, int month, int day, int secondOfDay, Date& out) {
  // A part is tested before it is made a part of the calendar, which holds no more than a byte of it.
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return false;
  if (secondOfDay < 0 || secondOfDay >= kSecondsPerDay) return false;
  const year_month_day civil{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                             std::chrono::day{static_cast<unsigned>(day)}};
  if (!civil.ok()) return false;
  const auto days = (std::chrono::sys_days{civil} - kZero).count();
  out = FromSeconds(days * kSecondsPerDay + secondOfDay);
  return true;
}

bool Date::TryParse(std::string_view text, Date& out) {
  const std::string trimmed = Trim(text);
  const auto blank = trimmed.find(' ');
  int secondOfDay = 0;
  if (blank == std::string::npos) {
    if (!ReadTime(trimmed, secondOfDay)) return ReadDay(trimmed, 0, out);
    out = FromSeconds(secondOfDay);
    return true;
  }
  const auto time = trimmed.find_first_not_of(' ', blank);
  return ReadTime(std::string_view(trimmed).substr(time), secondOfDay) &&
         ReadDay(std::string_view(trimmed).substr(0, blank), secondOfDay, out);
}

Date Date::Parse(std::string_view text) {
  Date date;
  if (!TryParse(text, date)) throw RuntimeError(kTypeMismatch);
  return date;
}

std::int64_t Date::days() const { return FloorDiv(seconds_, kSecondsPerDay); }
int Date::year() const { return static_cast<int>(CivilDay(days()).year()); }
int Date::month() const { return static_cast<int>(static_cast<unsigned>(CivilDay(days()).month())); }
int Date::day() const { return static_cast<int>(static_cast<unsigned>(CivilDay(days()).day())); }
int Date::hour() const { return static_cast<int>((seconds_ - days() * kSecondsPerDay) / 3600); }
int Date::minute() const { return static_cast<int>((seconds_ - days() * kSecondsPerDay) / 60 % 60); }
int Date::second() const { return static_cast<int>((seconds_ - days() * kSecondsPerDay) % 60); }
Date Date::DayOnly() const { return FromSeconds(days() * kSecondsPerDay); }
Date Date::AddDays(std::int64_t count) const { return FromSeconds(seconds_ + count * kSecondsPerDay); }

Date Date::AddMonths(int months) const {
  const year_month_day civil = CivilDay(days());
  const auto target = civil.year() / civil.month() + std::chrono::months{months};
  const year_month_day last{target / std::chrono::last};
  const auto day = std::min(civil.day(), last.day());
  return FromParts(static_cast<int>(target.year()), static_cast<int>(static_cast<unsigned>(target.month())),
                   static_cast<int>(static_cast<unsigned>(day)), hour(), minute(), second());
}

std::string Date::ToText() const {
  std::string text;
  if (days() != 0) {
    const char mark = Regional::Current().dateSeparator;
    text = Padded(day(), 2) + mark + Padded(month(), 2) + mark + Padded(year(), 4);
  }
  if (days() == 0 || seconds_ % kSecondsPerDay != 0) {
    if (!text.empty()) text += ' ';
    text += Padded(hour(), 2) + ':' + Padded(minute(), 2) + ':' + Padded(second(), 2);
  }
  return text;
}

Date SystemTime() {
  thread_local std::pair<std::time_t, Date> last{-1,
                                                 Date()};  // a loop asks for the time in each of its turns
  const std::time_t now = std::time(nullptr);
  if (last.first == now) return last.second;
  std::tm local{};
  localtime_r(&now, &local);
  last = {now,
          Date::FromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                          std::min(local.tm_sec, 59))};  // a leap second isn't a time of the day
  return last.second;
}

std::int64_t DaysBetween(Date a, Date b) { return b.days() - a.days(); }

bool EqualsText(Date date, std::string_view text) {
  if (text == "00:00:00" || text == "30-12-1899") return date.IsZero();
  return date.ToText() == text;
}

}  // namespace platform
