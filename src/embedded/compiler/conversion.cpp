#include "embedded/compiler/conversion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "embedded/compiler/date_text.h"
#include "embedded/compiler/server_error.h"
#include "platform/stored_dates.h"
#include "platform/text.h"

namespace embedded {
namespace {

constexpr std::int64_t kUnit = 10000;
__extension__ using Wide = __int128;

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

[[noreturn]] void FailToRead(std::string_view text, const char* textType, const std::string& type) {
  Refuse("Conversion failed when converting the " + std::string(textType) + " value '" + std::string(text) +
         "' to data type " + type + ".");
}

[[noreturn]] void Overflow(Kind kind) {
  Refuse("Arithmetic overflow error converting expression to data type " + std::string(NameOf(kind)) + ".");
}

bool TakeSign(std::string_view& digits) {
  const bool negative = digits.starts_with('-');
  if (negative || digits.starts_with('+')) digits.remove_prefix(1);
  return negative;
}

std::int64_t ReadWhole(std::string_view text, Kind kind, const char* textType) {
  std::string_view digits = Trimmed(text);
  if (digits.empty()) return 0;
  if (kind == Kind::kBit && platform::EqualsIgnoringCase(digits, "true")) return 1;
  if (kind == Kind::kBit && platform::EqualsIgnoringCase(digits, "false")) return 0;
  const bool negative = TakeSign(digits);
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos)
    FailToRead(text, textType, NameOf(kind));
  std::int64_t value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc{}) Overflow(kind);
  return WholeToKind(negative ? -value : value, kind);
}

/// A number with at most one point.
std::int64_t ReadMoney(std::string_view text) {
  std::string digits;
  for (const char c : Trimmed(text))
    if (c != ',') digits += c;  // groups of thousands
  std::string_view rest = digits;
  const bool negative = TakeSign(rest);
  const auto point = rest.find('.');
  const std::string_view decimals = point == std::string_view::npos ? "" : rest.substr(point + 1);
  const bool number = rest.find_first_not_of("0123456789.") == std::string_view::npos &&
                      decimals.find('.') == std::string_view::npos && (rest.empty() || rest != ".");
  if (!number) Refuse("Cannot convert a char value to money. The char value has incorrect syntax.");
  return NumberToStored(rest, negative, Kind::kMoney);
}

}  // namespace

std::int64_t ReadStored(std::string_view text, Kind kind, const char* textType) {
  if (kind == Kind::kMoney) return ReadMoney(text);
  if (kind != Kind::kDate) return ReadWhole(text, kind, textType);
  std::int64_t seconds = 0;
  if (!ReadDateText(Trimmed(text), seconds))
    Refuse("Conversion failed when converting date and/or time from character string.");
  return seconds;
}

double ReadFloat(std::string_view text, const char* textType) {
  std::string_view digits = Trimmed(text);
  if (digits.empty()) return 0;
  const bool negative = TakeSign(digits);
  double value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc{} || read.ptr != digits.data() + digits.size() || !std::isfinite(value))
    Refuse("Error converting data type " + std::string(textType) + " to float.");
  return negative ? -value : value;
}

double NumberOf(std::string_view digits) {
  double value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

bool TenThousandthsOf(std::string_view digits, bool negative, std::int64_t& out) {
  const Wide largest = Wide{std::numeric_limits<std::int64_t>::max()} + (negative ? 1 : 0);
  Wide units = 0;
  int decimals = -1;  // none seen
  for (const char c : digits) {
    if (c == '.') {
      decimals = 0;
    } else if (decimals < 4) {
      units = units * 10 + (c - '0');
      if (units > largest) return false;
      if (decimals >= 0) ++decimals;
    } else {
      if (c >= '5') ++units;
      break;
    }
  }
  for (int i = decimals < 0 ? 0 : decimals; i < 4; ++i) units *= 10;
  if (units > largest) return false;
  out = static_cast<std::int64_t>(negative ? -units : units);
  return true;
}

std::int64_t NumberToStored(std::string_view digits, bool negative, Kind kind) {
  std::int64_t value = 0;
  if (kind == Kind::kMoney) {
    if (!TenThousandthsOf(digits, negative, value)) Overflow(kind);
    return value;
  }
  if (kind == Kind::kBit) return digits.find_first_of("123456789") != std::string_view::npos ? 1 : 0;
  const std::string_view whole = digits.substr(0, digits.find('.'));
  if (std::from_chars(whole.data(), whole.data() + whole.size(), value).ec == std::errc::result_out_of_range)
    Overflow(kind);
  if (negative) value = -value;
  return kind == Kind::kDate ? DaysToDate(value) : WholeToKind(value, kind);
}

std::string NumberToText(std::string_view digits, bool negative) {
  const bool zero = digits.find_first_of("123456789") == std::string_view::npos;
  while (digits.starts_with('0')) digits.remove_prefix(1);
  if (digits.ends_with('.')) digits.remove_suffix(1);
  const bool pointFirst = digits.empty() || digits.front() == '.';
  return (negative && !zero ? "-" : "") + std::string(pointFirst ? "0" : "").append(digits);
}

std::int64_t MoneyToWhole(std::int64_t money, Kind kind) {
  const std::int64_t rest = money % kUnit;
  const std::int64_t away = rest >= kUnit / 2 ? 1 : rest <= -kUnit / 2 ? -1 : 0;
  return WholeToKind(money / kUnit + away, kind);
}

std::int64_t FloatToStored(double value, Kind kind) {
  const double scaled = kind == Kind::kMoney ? std::nearbyint(value * kUnit) : std::trunc(value);
  if (!(std::fabs(scaled) < 9.2e18)) Overflow(kind);
  return kind == Kind::kMoney ? static_cast<std::int64_t>(scaled)
                              : WholeToKind(static_cast<std::int64_t>(scaled), kind);
}

std::int64_t WholeToKind(std::int64_t value, Kind kind) {
  if (kind == Kind::kBit) return value != 0 ? 1 : 0;
  const bool fits = kind == Kind::kSmallInt ? value == static_cast<std::int16_t>(value)
                                            : value == static_cast<std::int32_t>(value);
  if (!fits) Overflow(kind);
  return value;
}

std::int64_t DaysToDate(std::int64_t days) {
  constexpr std::int64_t kFirstOf1900 = 2;
  constexpr std::int64_t kMostDays = 10'000'000;
  const platform::Date date =
      platform::Date().AddDays(std::clamp(days, -kMostDays, kMostDays) + kFirstOf1900);
  if (!platform::FitsDatetime(date)) Overflow(Kind::kDate);
  return date.seconds();
}

std::string MoneyToText(std::int64_t money) {
  const bool negative = money < 0;
  const auto units = negative ? 0 - static_cast<std::uint64_t>(money) : static_cast<std::uint64_t>(money);
  const std::uint64_t cents = (units + 50) / 100;
  std::array<char, 32> text{};
  const int length = std::snprintf(
      text.data(), text.size(), "%s%llu.%02llu", negative && cents != 0 ? "-" : "",
      static_cast<unsigned long long>(cents / 100), static_cast<unsigned long long>(cents % 100));
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace embedded
