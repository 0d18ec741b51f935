#include "exchange/table/cell_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "platform/date_reader.h"

namespace exchange {
namespace {

constexpr double kSecondsADay = 86400;
constexpr double kDays1904 = 1462;       // from the zero date to 01-01-1904
constexpr double kLastSerial = 2958466;  // 01-01-10000
constexpr double kLostDay = 60;          // 29-02-1900, which the calendar of 1900 counts and no other has

/// As short as it can be, with at most 15 figures unless it is whole, without an exponent where that stays
/// readable.
std::string Face(double number) {
  std::array<char, 400> text{};
  const bool whole = std::trunc(number) == number && std::abs(number) < 9e15;
  double shown = number;
  if (!whole) {
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, 15).ptr;
    std::from_chars(text.data(), end, shown);
  }
  const bool plain = number == 0 || (std::abs(number) >= 1e-9 && std::abs(number) < 1e21);
  const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), shown, format).ptr};
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

TableCell TextCell(std::string text) {
  TableCell cell;
  cell.kind = text.empty() ? CellKind::kEmpty : CellKind::kText;
  cell.text = std::move(text);
  return cell;
}

TableCell NumberCell(double number) {
  TableCell cell;
  cell.kind = CellKind::kNumber;
  cell.number = number;
  cell.text = Face(number);
  return cell;
}

TableCell DateCell(platform::Date date) {
  TableCell cell;
  cell.kind = CellKind::kDate;
  cell.date = date;
  cell.text = date.ToText();
  return cell;
}

TableCell TruthCell(bool truth) {
  TableCell cell;
  cell.kind = CellKind::kTruth;
  cell.number = truth ? 1 : 0;
  cell.text = truth ? "VERDADEIRO" : "FALSO";
  return cell;
}

TableCell ErrorCell(std::string name) {
  TableCell cell;
  cell.kind = CellKind::kError;
  cell.text = std::move(name);
  return cell;
}

std::optional<platform::Date> DateOfSerial(double serial, bool calendar1904) {
  if (!(serial >= 0 && serial < kLastSerial)) return std::nullopt;
  double days = serial;
  if (calendar1904) {
    if (serial >= 1) days += kDays1904;
  } else if (serial >= kLostDay && serial < kLostDay + 1) {
    return std::nullopt;
  } else if (serial >= 1 && serial < kLostDay) {
    days += 1;
  }
  if (days >= kLastSerial) return std::nullopt;
  return platform::Date::FromSeconds(std::llround(days * kSecondsADay));
}

TableCell SerialCell(double serial, bool calendar1904) {
  const auto date = DateOfSerial(serial, calendar1904);
  return date ? DateCell(*date) : NumberCell(serial);
}

bool ShowsDate(std::string_view format) {
  for (std::size_t i = 0; i < format.size(); ++i) {
    const char c = Lower(format[i]);
    if (c == ';') return false;  // the section for positive numbers tells
    if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (c == '"' || c == '[') {
      const std::size_t end = format.find(c == '"' ? '"' : ']', i + 1);
      if (end == std::string_view::npos) return false;
      i = end;  // a colour, a condition, a language, or a time that goes beyond a day
    } else if (std::string_view("ymdhs").find(c) != std::string_view::npos) {
      return true;
    } else if (c == 'g' || c == 'e' || c == '0' || c == '#' || c == '?' || c == '@') {
      return false;
    }
  }
  return false;
}

bool IsBuiltInDate(int format) {
  return (format >= 14 && format <= 22) || (format >= 27 && format <= 36) || format == 45 || format == 47 ||
         (format >= 50 && format <= 58);
}

std::optional<double> ReadNumber(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\n')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\n')) text.remove_suffix(1);
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::optional<platform::Date> ReadIsoDate(std::string_view text) {
  platform::DateReader reader(text);
  int year = 0;
  int month = 0;
  int day = 0;
  int second = 0;
  char mark = 0;
  if (!reader.Number(4, 4, year) || !reader.Mark("-", mark) || !reader.Number(1, 2, month) ||
      !reader.Mark("-", mark) || !reader.Number(1, 2, day))
    return std::nullopt;
  if (reader.Mark("T ", mark) && !reader.Time(2, second)) return std::nullopt;
  platform::Date date;
  if (!platform::Date::TryFromParts(year, month, day, second, date)) return std::nullopt;
  return date;
}

}  // namespace exchange
