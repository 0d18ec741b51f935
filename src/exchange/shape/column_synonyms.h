#pragma once

#include <array>
#include <string_view>

namespace exchange {

/// What files call a column, folded, in Portuguese, English, Spanish and French; the best first.
struct ColumnWords {
  std::string_view kinds;  // "|gastos|": of these kinds alone
  std::string_view column;
  std::string_view label;  // for people
  std::string_view words;  // "|" between them
};

extern const std::array<ColumnWords, 83> kColumnWords;

}  // namespace exchange
