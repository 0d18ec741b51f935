#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace embedded {

/// Reads a date of a statement into seconds since 30-12-1899: year, month and day parted by ".", "-" or "/",
/// or eight digits, each with an optional time "hh:mm" or "hh:mm:ss"; an empty text is 01-01-1900. The year
/// has four digits and is 1753 at the earliest. False when the text is none of these, or there is no such
/// day.
bool ReadDateText(std::string_view text, std::int64_t& seconds);
/// A date in a style of CONVERT: 0, 102 to 105, 111, 112, 120 or 121; any other raises error -2147217900.
std::string DateToText(std::int64_t seconds, int style);

}  // namespace embedded
