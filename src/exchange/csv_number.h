#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/currency.h"

namespace exchange {

/// A text as a number of a file whose decimal mark is "," or ".", with the other one between groups of three
/// digits: "1.234,5". None when it is no such number; with `whole`, nor when it has decimals.
std::optional<platform::Currency> NumberOf(std::string_view text, char decimal, bool whole = false);

/// Finds out the decimal mark of a file from its numbers: one that is a number with only one of the marks
/// tells it; "45.123" is one with both.
class DecimalMark {
 public:
  /// Looks at a field of a column of numbers.
  void Look(const char* column, std::string_view text, bool whole, long line);
  /// The mark that most numbers tell; "," when none does. Throws std::runtime_error, naming the first number
  /// that can be read in two ways, when there is one and the others don't tell, or don't agree.
  char Found() const;

 private:
  struct Doubt {
    std::string column;
    std::string text;
    long line;
  };
  long commas_ = 0;
  long points_ = 0;
  std::optional<Doubt> doubt_;
};

}  // namespace exchange
