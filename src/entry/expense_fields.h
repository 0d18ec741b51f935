#pragma once

#include <string>
#include <string_view>

#include "events/gastos_form.h"

namespace entry {

/// The fields of the expense's ficha, by their places.
enum ExpenseField : int { kPlate = 0, kDriver = 2, kType = 4, kQuantity = 5, kCost = 6, kPrice = 7, kKm = 8 };

/// A text for a literal in a statement.
inline std::string Doubled(std::string_view text) {
  std::string doubled;
  for (char c : text) doubled += c == '\'' ? std::string("''") : std::string(1, c);
  return doubled;
}

}  // namespace entry
