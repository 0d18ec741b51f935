#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "embedded/compiler/value_kind.h"

/// Conversions between the server's types, on values as they are stored. What does not fit raises error
/// -2147217900 in the server's words.
namespace embedded {

/// A text read as a whole number, a truth value, money or a date. Blanks around it don't count; an empty text
/// is 0, or 01-01-1900. `textType` names the text's type in the error.
std::int64_t ReadStored(std::string_view text, Kind kind, const char* textType = "nvarchar");
double ReadFloat(std::string_view text, const char* textType = "nvarchar");

/// A number written in a statement ("12", "0.25") as a double.
double NumberOf(std::string_view digits);
/// The same in ten-thousandths, a tie rounded away from zero. False when it does not fit.
bool TenThousandthsOf(std::string_view digits, bool negative, std::int64_t& out);
/// The same as a value of a kind other than float: money is rounded, a whole number is cut.
std::int64_t NumberToStored(std::string_view digits, bool negative, Kind kind);
/// The same as the server writes it: "0.50" of ".50".
std::string NumberToText(std::string_view digits, bool negative);

/// A number as a value of a narrower kind: money loses its decimals by rounding, a double by cutting.
std::int64_t MoneyToWhole(std::int64_t money, Kind kind);
std::int64_t FloatToStored(double value, Kind kind);
std::int64_t WholeToKind(std::int64_t value, Kind kind);
/// Days since 01-01-1900 as a date.
std::int64_t DaysToDate(std::int64_t days);

/// Always two decimals, a tie rounded away from zero: "500.00".
std::string MoneyToText(std::int64_t money);

}  // namespace embedded
