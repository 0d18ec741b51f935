#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "lists/cells.h"

namespace lists {

/// How the numbers or dates of a column are shown, found out from some of its rows, so that all of them can
/// be looked through without making each a text by its mask.
class NumberText {
 public:
  /// Reads some rows of a column whose numbers are at hand.
  NumberText(const Cells& cells, std::size_t column, Kind kind, const std::vector<double>& numbers);

  /// False for one that is shown in no way that is known here.
  bool IsKnown() const { return !styles_.empty(); }
  /// The number as it is shown, folded (see `Folded`); good until the next call. Nothing when that isn't
  /// certain: it has to be read then.
  std::optional<std::string_view> Of(double number);
  /// False when no number of this column has the word in it, as far as it is certain how it is shown: digits
  /// stand in groups there.
  bool CanHold(std::string_view word) const;
  /// Whether it is certain how the number is shown.
  static bool IsPlain(double number);

 private:
  struct Style {
    Kind kind;
    int decimals = 0;  // of numbers; as many as there are, without grouping, when negative
    bool time = false;
  };
  static constexpr std::size_t kLongest = 48;
  using Place = std::array<char, kLongest>;

  static std::optional<std::string_view> Write(const Style& style, double number, Place& place);

  std::vector<Style> styles_;  // that show all rows looked at as the table does
  Place place_{};
  Place other_{};
};

}  // namespace lists
