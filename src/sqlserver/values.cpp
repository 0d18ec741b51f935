#include "sqlserver/values.h"

#include <algorithm>
#include <limits>

#include "platform/runtime_error.h"

namespace sqlserver {
namespace {

__extension__ using Wide = __int128;
constexpr int kDecimals = 4;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The digits behind the last decimal kept against a half of it: -1 below, 0 exact half, 1 above.
int AgainstHalf(std::string_view rest) {
  if (rest.empty() || rest[0] < '5') return -1;
  const bool more = rest[0] > '5' || rest.find_first_not_of('0', 1) != std::string_view::npos;
  return more ? 1 : 0;
}

}  // namespace

std::int64_t MoneyFromText(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  std::string_view whole = text.substr(0, point);
  std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  if (text.empty() || (whole.empty() && decimals.empty()) ||
      !std::all_of(whole.begin(), whole.end(), IsDigit) ||
      !std::all_of(decimals.begin(), decimals.end(), IsDigit))
    throw platform::RuntimeError(platform::kTypeMismatch, std::string(text));
  Wide units = 0;
  const auto add = [&units](char digit) {
    units = units * 10 + (digit - '0');
    if (units > Wide{std::numeric_limits<std::int64_t>::max()} + 1)
      throw platform::RuntimeError(platform::kOverflow);
  };
  for (const char digit : whole) add(digit);
  for (std::size_t i = 0; i < kDecimals; ++i) add(i < decimals.size() ? decimals[i] : '0');
  const int half = AgainstHalf(decimals.substr(std::min<std::size_t>(kDecimals, decimals.size())));
  if (half > 0 || (half == 0 && units % 2 != 0)) ++units;
  if (!negative && units > std::numeric_limits<std::int64_t>::max())
    throw platform::RuntimeError(platform::kOverflow);
  return static_cast<std::int64_t>(negative ? -units : units);
}

std::string MoneyText(platform::Currency money) { return money.ToText('.'); }

std::int64_t SecondsOf(const SQL_TIMESTAMP_STRUCT& moment) {
  return platform::Date::FromParts(moment.year, moment.month, moment.day, moment.hour, moment.minute,
                                   moment.second)
      .seconds();
}

SQL_TIMESTAMP_STRUCT MomentOf(platform::Date date) {
  SQL_TIMESTAMP_STRUCT moment{};
  moment.year = static_cast<SQLSMALLINT>(date.year());
  moment.month = static_cast<SQLUSMALLINT>(date.month());
  moment.day = static_cast<SQLUSMALLINT>(date.day());
  moment.hour = static_cast<SQLUSMALLINT>(date.hour());
  moment.minute = static_cast<SQLUSMALLINT>(date.minute());
  moment.second = static_cast<SQLUSMALLINT>(date.second());
  return moment;
}

}  // namespace sqlserver
