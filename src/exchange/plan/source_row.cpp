#include "exchange/plan/source_row.h"

#include <algorithm>
#include <charconv>

namespace exchange {
namespace {

constexpr char kEnd = '\x1F';  // after each cell; no cell holds it
constexpr char kFirstKind = '0';
constexpr char kFormula = 0x10;  // added to the kind

/// A cell is its kind, for numbers and dates the exact value, and the text.
template <typename Number>
void PutNumber(std::string& packed, Number number) {
  char digits[40];
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  packed.append(digits, end);
  packed += ' ';
}

template <typename Number>
Number TakeNumber(std::string_view& cell) {
  Number number{};
  const auto blank = cell.find(' ');
  std::from_chars(cell.data(), cell.data() + blank, number);
  cell.remove_prefix(blank + 1);
  return number;
}

}  // namespace

void PackCells(const std::vector<TableCell>& cells, std::string& packed) {
  packed.clear();
  for (const TableCell& cell : cells) {
    packed += static_cast<char>(kFirstKind + static_cast<char>(cell.kind) + (cell.formula ? kFormula : 0));
    if (cell.kind == CellKind::kNumber || cell.kind == CellKind::kTruth) PutNumber(packed, cell.number);
    if (cell.kind == CellKind::kDate) PutNumber(packed, cell.date.seconds());
    const std::size_t begin = packed.size();
    packed += cell.text;
    std::replace(packed.begin() + static_cast<std::ptrdiff_t>(begin), packed.end(), kEnd, ' ');
    packed += kEnd;
  }
}

void UnpackCells(std::string_view packed, std::vector<TableCell>& cells) {
  std::size_t count = 0;
  while (!packed.empty()) {
    const auto end = packed.find(kEnd);
    std::string_view text = packed.substr(0, end);
    packed.remove_prefix(end + 1);
    if (count == cells.size()) cells.emplace_back();
    TableCell& cell = cells[count++];
    const int kind = text[0] - kFirstKind;
    cell.formula = kind >= kFormula;
    cell.kind = static_cast<CellKind>(kind % kFormula);
    text.remove_prefix(1);
    if (cell.kind == CellKind::kNumber || cell.kind == CellKind::kTruth)
      cell.number = TakeNumber<double>(text);
    if (cell.kind == CellKind::kDate) cell.date = platform::Date::FromSeconds(TakeNumber<std::int64_t>(text));
    cell.text = text;
  }
  cells.resize(count);
}

}  // namespace exchange
