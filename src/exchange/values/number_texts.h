#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/currency.h"

namespace exchange {

/// How a file writes a column of numbers.
struct NumberFace {
  char decimal = ',';       // "," or "."; the other one may group
  int impliedDecimals = 0;  // of a number without a decimal mark: with 2, "4550" is 45,50
  bool turned = false;      // the sign is turned round
};

/// What is left of a number's text without currency signs, units, blanks and apostrophes between groups, its
/// minus before it: "(1 234,50 €)" becomes "-1234,50". Empty when it holds anything else.
std::string BareNumber(std::string_view text);
/// None when the text is no number, or one too large. Groups are of three digits, or of two before three.
std::optional<platform::Currency> ReadNumberText(std::string_view text, const NumberFace& face);

/// Finds out the decimal mark of a file's numbers, as far as they tell.
class DecimalMarks {
 public:
  void Look(std::string_view text);
  /// None when a number can be read in two ways and the others don't tell, or contradict each other.
  std::optional<char> Found() const;
  /// The first number that can be read in two ways, for asking.
  const std::string& Doubt() const { return doubt_; }

 private:
  long commas_ = 0;
  long points_ = 0;
  std::string doubt_;
};

}  // namespace exchange
