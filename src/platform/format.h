#pragma once

#include <string>
#include <string_view>

#include "platform/variant.h"

namespace platform {

/// A number by a mask of `#`, `0`, `,` (grouping) and `.` (decimal separator). "###,###.#0" gives "1.234,50".
/// A tie rounds away from zero. An empty text stays empty; a text that is no number comes back as it is.
std::string FormatNumber(const Variant& value, std::string_view mask);
/// A date by a mask of dd, mm, MM, yyyy, hh, nn, ss; "mm" right after "hh:" is minutes.
std::string FormatDate(Date value, std::string_view mask);
/// By the kind of the value and of the mask: a text that a date mask can read as a date is one.
std::string Format(const Variant& value, std::string_view mask);

}  // namespace platform
