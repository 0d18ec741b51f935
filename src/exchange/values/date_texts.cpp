#include "exchange/values/date_texts.h"

#include <charconv>
#include <cmath>

#include "exchange/values/date_scan.h"
#include "exchange/values/fold.h"

namespace exchange {
namespace {

using platform::Date;

constexpr int kSecondsOfDay = 86400;

/// A whole text of digits, perhaps with decimals; none when it is anything else.
std::optional<double> PlainNumber(std::string text) {
  for (char& c : text)
    if (c == ',') c = '.';
  double value = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

long long WithCentury(const DateScan::Number& year) {
  if (year.digits > 2) return year.value;
  return year.value + (year.value < 30 ? 2000 : 1900);
}

std::optional<Date> Day(long long year, long long month, long long day, int second) {
  Date date;
  if (year > 9999 || month > 12 || day > 31) return std::nullopt;
  if (!Date::TryFromParts(static_cast<int>(year), static_cast<int>(month), static_cast<int>(day), second,
                          date))
    return std::nullopt;
  return date;
}

/// "20240305", "05032024", "20240305083015".
std::optional<Date> FromDigits(const DateScan::Number& number, DateOrder order, int second) {
  long long day = number.value;
  if (number.digits == 14 || number.digits == 12) {
    const long long time = number.digits == 14 ? day % 1000000 : day % 10000 * 100;
    day /= number.digits == 14 ? 1000000 : 10000;
    if (time / 10000 > 23 || time / 100 % 100 > 59 || time % 100 > 59) return std::nullopt;
    second = static_cast<int>((time / 10000 * 60 + time / 100 % 100) * 60 + time % 100);
  } else if (number.digits != 8) {
    return std::nullopt;
  }
  if (day / 10000 >= 1900 && day / 10000 < 2200)
    if (const auto date = Day(day / 10000, day / 100 % 100, day % 100, second)) return date;
  const long long first = day / 1000000;
  const long long next = day / 10000 % 100;
  return order == DateOrder::kMonthFirst ? Day(day % 10000, first, next, second)
                                         : Day(day % 10000, next, first, second);
}

std::optional<Date> WithMonthNamed(const DateScan& scan, DateOrder order, int second) {
  const auto& numbers = scan.numbers();
  if (numbers.size() != 2) return std::nullopt;
  const bool yearFirst = numbers[0].digits > 2 || numbers[0].value > 31 ||
                         (order == DateOrder::kYearFirst && numbers[1].digits <= 2);
  const auto& year = numbers[yearFirst ? 0 : 1];
  return Day(WithCentury(year), scan.month(), numbers[yearFirst ? 1 : 0].value, second);
}

}  // namespace

std::optional<Date> DayOfSerial(double serial, bool calendar1904) {
  if (calendar1904) serial += 1462;
  if (serial < 1 || serial >= 109575) return std::nullopt;
  if (serial < 61) serial += 1;  // spreadsheets count a 29th of February in 1900
  return Date::FromSeconds(std::llround(serial * kSecondsOfDay));
}

std::optional<int> ReadTimeText(std::string_view text) {
  const std::string stripped = Stripped(text);
  if (stripped.find_first_not_of("0123456789") == std::string::npos && stripped.size() >= 3 &&
      stripped.size() <= 6) {
    long time = std::stol(stripped);
    if (stripped.size() <= 4) time *= 100;
    if (time / 10000 > 23 || time / 100 % 100 > 59 || time % 100 > 59) return std::nullopt;
    return static_cast<int>((time / 10000 * 60 + time / 100 % 100) * 60 + time % 100);
  }
  if (const auto share = PlainNumber(stripped); share && *share >= 0 && *share < 1)
    return static_cast<int>(std::llround(*share * kSecondsOfDay)) % kSecondsOfDay;
  const DateScan scan(stripped);
  if (!scan.sound() || !scan.numbers().empty() || scan.secondOfDay() < 0) return std::nullopt;
  return scan.secondOfDay();
}

std::optional<Date> ReadDateText(std::string_view text, DateOrder order, bool calendar1904) {
  const std::string stripped = Stripped(text);
  const std::size_t whole = std::min(stripped.find_first_of(",."), stripped.size());
  if (whole == 5)
    if (const auto serial = PlainNumber(stripped)) return DayOfSerial(*serial, calendar1904);
  const DateScan scan(stripped);
  if (!scan.sound()) return std::nullopt;
  const auto& numbers = scan.numbers();
  const bool timed = scan.secondOfDay() >= 0;
  const int second = timed ? scan.secondOfDay() : 0;
  if (scan.month() > 0) return WithMonthNamed(scan, order, second);
  if (numbers.empty()) return timed ? std::optional(Date::FromSeconds(second)) : std::nullopt;
  if (numbers.size() == 1) return FromDigits(numbers[0], order, second);
  if (numbers.size() != 3) return std::nullopt;
  if (numbers[0].digits > 2 || order == DateOrder::kYearFirst)
    return Day(WithCentury(numbers[0]), numbers[1].value, numbers[2].value, second);
  if (order == DateOrder::kMonthFirst)
    return Day(WithCentury(numbers[2]), numbers[0].value, numbers[1].value, second);
  return Day(WithCentury(numbers[2]), numbers[1].value, numbers[0].value, second);
}

void DateOrders::Look(std::string_view text) {
  const DateScan scan(Stripped(text));
  const auto& numbers = scan.numbers();
  if (!scan.sound() || scan.month() > 0 || numbers.size() != 3 || numbers[0].digits > 2) return;
  const long long first = numbers[0].value;
  const long long second = numbers[1].value;
  if (first == second) return;
  if (first > 12) {
    ++dayFirst_;
  } else if (second > 12) {
    ++monthFirst_;
  } else if (doubt_.empty()) {
    doubt_ = Stripped(text);
  }
}

std::optional<DateOrder> DateOrders::Found() const {
  if (dayFirst_ > 0 && monthFirst_ > 0) return std::nullopt;
  if (dayFirst_ + monthFirst_ == 0 && !doubt_.empty()) return std::nullopt;
  return monthFirst_ > 0 ? DateOrder::kMonthFirst : DateOrder::kDayFirst;
}

}  // namespace exchange
