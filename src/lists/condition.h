#pragma once

#include <string>
#include <vector>

#include "lists/column.h"
#include "lists/ranges.h"
#include "platform/date.h"

namespace lists {

/// What the rows that are shown hold in one column, read from the text that says so:
///
///   gasóleo adit       texts that hold these words, without regard to case and accents
///   = Gasóleo; Gás     these texts and no others; "=" alone: rows with nothing there
///   12   12,5          numbers that begin like this
///   10 a 20   10..20   from and to, both with them; also "10.." and "..20"
///   > 10   <= 10       (and >=, <)
///   24-11-2026   11-2026   2026     a day, a month, a year; ranges and comparisons as with numbers
///   hoje   este mês   ano passado   and the others of `Periods`
class Condition {
 public:
  /// For a column of a kind. Error 13, in words, when the text can't be read.
  Condition(const std::string& text, Kind kind, platform::Date today);

  /// By row, whether it holds that.
  std::vector<char> Met(Column& column) const;

 private:
  std::vector<char> MetByText(Column& column) const;

  bool one_of_ = false;
  bool by_range_ = false;
  NumberSpan range_;
  std::vector<std::string> words_;  // or the texts to choose from, both folded
};

/// The source of the error for a condition that can't be read.
inline constexpr char kFilterSource[] = "Filtro";

/// The periods that have a name, relative to today, in the order in which they are offered.
const std::vector<std::string>& Periods();

/// The condition that chooses texts: "= Gasóleo; \"a; b\"". The other way round by `ChosenTexts`.
std::string ChoiceOf(const std::vector<std::string>& texts);
/// None when a text is no such condition.
std::vector<std::string> ChosenTexts(const std::string& text);
/// A condition as it is told: "Gasóleo; Gás" for the texts that it chooses, every other as it was written.
std::string ConditionInWords(const std::string& text);

/// What stands for nothing where it can be chosen and in headings.
inline constexpr char kNothingThere[] = "(sem valor)";

}  // namespace lists
