#pragma once

#include <string>
#include <utility>

#include "platform/date.h"

namespace lists {

/// From a number on, up to one that is no longer in it; either end may be infinite.
using NumberSpan = std::pair<double, double>;

// Ranges as they are written, see `Condition`. Error 13, in words, for a text that says none.

NumberSpan NumberRange(const std::string& text);
/// In seconds since the zero date.
NumberSpan DateRange(const std::string& text, platform::Date today);

}  // namespace lists
