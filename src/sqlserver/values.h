#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/currency.h"
#include "platform/date.h"

namespace sqlserver {

/// Money travels as decimal text, which is exact over its whole range: "-12.5000", also ".5000". More than
/// four decimals are rounded half to even. Error 6 when it does not fit, 13 when it is no number.
std::int64_t MoneyFromText(std::string_view text);
std::string MoneyText(platform::Currency money);

/// Seconds since the zero date; a fraction of a second is dropped.
std::int64_t SecondsOf(const SQL_TIMESTAMP_STRUCT& moment);
SQL_TIMESTAMP_STRUCT MomentOf(platform::Date date);

}  // namespace sqlserver
