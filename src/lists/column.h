#pragma once

#include <cstdint>
#include <vector>

#include "lists/cells.h"

namespace lists {

class NumberText;

/// One column of a table, read once and kept so that it is quick to look through: numbers as numbers, and
/// texts by a code, each different one kept once.
class Column {
 public:
  /// Reads the whole column.
  Column(const Cells& cells, std::size_t column);

  /// Dates or numbers when all that it holds is of that kind, also dates written as texts.
  Kind kind() const { return kind_; }
  /// Of numbers and dates (seconds since the zero date), by row; not a number where there is nothing.
  const std::vector<double>& numbers() const { return numbers_; }
  /// The code of each row's text as it is shown; made when it is asked for the first time.
  const std::vector<std::uint32_t>& codes();
  /// The text of each code.
  const std::vector<std::string>& texts();
  /// By row, whether its text as it is shown, folded, holds a folded word.
  std::vector<char> Holding(const std::string& word);
  /// The place of each code among all texts in alphabetical order.
  const std::vector<std::uint32_t>& ranks();

 private:
  void MakeCodes();
  std::vector<char> NumbersHolding(NumberText& text, const std::string& word) const;

  const Cells& cells_;
  std::size_t column_;
  Kind kind_ = Kind::kText;
  bool coded_ = false;
  std::vector<double> numbers_;
  std::vector<std::uint32_t> codes_;
  std::vector<std::string> texts_;
  std::vector<std::uint32_t> ranks_;
};

}  // namespace lists
