#include "embedded/compiler/date_text.h"

#include <array>
#include <charconv>
#include <chrono>
#include <string>

#include "embedded/compiler/conversion.h"
#include "embedded/compiler/server_error.h"
#include "platform/date.h"
#include "platform/date_reader.h"

namespace embedded {
namespace {

using platform::Date;
using platform::DateReader;

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kEmptyText = 2 * kSecondsPerDay;  // 01-01-1900
constexpr int kFirstYear = 1753;

bool ReadDay(DateReader& reader, int& year, int& month, int& day) {
  char first = 0;
  char second = 0;
  if (!reader.Number(4, 4, year)) return false;
  if (!reader.Mark(".-/", first)) return reader.Number(2, 2, month) && reader.Number(2, 2, day);
  return reader.Number(1, 2, month) && reader.Mark(".-/", second) && first == second &&
         reader.Number(1, 2, day);
}

/// A fraction of a second is read and dropped.
bool ReadTime(DateReader& reader, int& secondOfDay) {
  char mark = 0;
  int fraction = 0;
  return reader.Time(2, secondOfDay) && (!reader.Mark(".", mark) || reader.Number(1, 3, fraction));
}

struct DayParts {
  int year;
  int month;
  int day;
  int secondOfDay;
};

DayParts PartsOf(std::int64_t days, int secondOfDay) {
  constexpr std::chrono::sys_days kZero{std::chrono::year{1899} / 12 / 30};
  const std::chrono::year_month_day civil{kZero + std::chrono::days{days}};
  return {static_cast<int>(civil.year()), static_cast<int>(static_cast<unsigned>(civil.month())),
          static_cast<int>(static_cast<unsigned>(civil.day())), secondOfDay};
}

/// Letters of a pattern stand for parts of the date, as in `AppendPart`; other characters for themselves.
const char* PatternOf(int style) {
  switch (style) {
    case 0:
      return "b e Y IMp";
    case 102:
      return "Y.m.d";
    case 103:
      return "d/m/Y";
    case 104:
      return "d.m.Y";
    case 105:
      return "d-m-Y";
    case 111:
      return "Y/m/d";
    case 112:
      return "Ymd";
    case 120:
      return "Y-m-d H:M:S";
    case 121:
      return "Y-m-d H:M:S.000";
    default:
      Refuse(std::to_string(style) +
             " is not a valid style number when converting from datetime to a character string.");
  }
}

void AppendNumber(std::string& text, int number, std::size_t width, char fill) {
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  const auto count = static_cast<std::size_t>(end - digits.data());
  if (count < width) text.append(width - count, fill);
  text.append(digits.data(), count);
}

void AppendPart(std::string& text, char part, const DayParts& parts) {
  constexpr std::array<const char*, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const int hour = parts.secondOfDay / 3600;
  switch (part) {
    case 'Y':
      return AppendNumber(text, parts.year, 4, '0');
    case 'm':
      return AppendNumber(text, parts.month, 2, '0');
    case 'd':
      return AppendNumber(text, parts.day, 2, '0');
    case 'H':
      return AppendNumber(text, hour, 2, '0');
    case 'M':
      return AppendNumber(text, parts.secondOfDay / 60 % 60, 2, '0');
    case 'S':
      return AppendNumber(text, parts.secondOfDay % 60, 2, '0');
    case 'b':
      text += kMonths[static_cast<std::size_t>(parts.month - 1)];
      return;
    case 'e':
      return AppendNumber(text, parts.day, 2, ' ');
    case 'I':
      AppendNumber(text, (hour + 11) % 12 + 1, 2, ' ');
      text += ':';
      return;
    case 'p':
      text += hour < 12 ? "AM" : "PM";
      return;
    default:
      text += part;
  }
}

}  // namespace

bool ReadDateText(std::string_view text, std::int64_t& seconds) {
  if (text.empty()) {
    seconds = kEmptyText;
    return true;
  }
  DateReader reader(text);
  int year = 0;
  int month = 0;
  int day = 0;
  int secondOfDay = 0;
  if (!ReadDay(reader, year, month, day)) return false;
  if (!reader.AtEnd()) {
    char blank = 0;
    if (!reader.Mark(" T", blank) || !ReadTime(reader, secondOfDay) || !reader.AtEnd()) return false;
  }
  Date date;
  if (year < kFirstYear || !Date::TryFromParts(year, month, day, secondOfDay, date)) return false;
  seconds = date.seconds();
  return true;
}

std::string DateToText(std::int64_t seconds, int style) {
  const char* pattern = PatternOf(style);
  const std::int64_t days = Date::FromSeconds(seconds).days();
  const DayParts parts = PartsOf(days, static_cast<int>(seconds - days * kSecondsPerDay));
  std::string text;
  for (; *pattern != '\0'; ++pattern) AppendPart(text, *pattern, parts);
  return text;
}

}  // namespace embedded
