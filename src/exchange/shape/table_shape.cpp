#include "exchange/shape/table_shape.h"

#include <algorithm>
#include <set>

#include "exchange/shape/column_synonyms.h"
#include "exchange/values/date_texts.h"
#include "exchange/values/fold.h"
#include "exchange/values/number_texts.h"
#include "exchange/values/plates.h"

namespace exchange {
namespace {

constexpr std::size_t kLookedThrough = 60;  // rows in which a header is looked for
constexpr std::size_t kLongestHeading = 60;

/// All that files call a column.
const std::set<std::string, std::less<>>& KnownHeadings() {
  static const auto known = [] {
    std::set<std::string, std::less<>> all;
    for (const ColumnWords& words : kColumnWords) {
      all.insert(Folded(words.label));
      all.insert(Folded(words.column));
      for (std::string_view rest = words.words; !rest.empty();) {
        const auto end = std::min(rest.find('|'), rest.size());
        all.emplace(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
      }
    }
    return all;
  }();
  return known;
}

/// What stands in a row, counted.
struct Counts {
  std::size_t known = 0;
  std::size_t texts = 0;
  std::size_t values = 0;
};

Counts CountsOf(const TableRow& row) {
  Counts counts;
  for (const TableCell& cell : row.cells) {
    if (Stripped(cell.text).empty()) continue;
    if (LooksLikeValue(cell)) {
      ++counts.values;
    } else {
      if (cell.text.size() <= kLongestHeading) ++counts.texts;
      if (KnownHeadings().contains(Folded(cell.text))) ++counts.known;
    }
  }
  return counts;
}

bool IsHeading(const Counts& counts) { return counts.values == 0 && counts.texts >= 2; }

/// The row that is most likely the header; as many as there are rows when none is.
std::size_t HeaderAmong(const std::vector<Counts>& counts) {
  std::size_t best = counts.size();
  std::size_t most = 1;
  for (std::size_t i = 0; i < counts.size(); ++i)
    if (counts[i].values == 0 && counts[i].known > most) {
      best = i;
      most = counts[i].known;
    }
  if (best < counts.size()) return best;
  for (std::size_t i = 0; i + 1 < counts.size(); ++i) {
    const Counts& next = counts[i + 1];
    if (IsHeading(counts[i]) && next.values > 0 && counts[i].texts * 2 > next.values + next.texts) return i;
  }
  return counts.size();
}

std::string CellText(const TableRow& row, std::size_t column) {
  return column < row.cells.size() ? Stripped(row.cells[column].text) : "";
}

}  // namespace

bool LooksLikeValue(const TableCell& cell) {
  if (cell.kind != CellKind::kText) return cell.kind != CellKind::kEmpty;
  const bool digits = cell.text.find_first_of("0123456789") != std::string::npos;
  return digits &&
         (!BareNumber(cell.text).empty() || IsPortuguesePlate(cell.text) ||
          ReadDateText(cell.text, DateOrder::kDayFirst) || ReadDateText(cell.text, DateOrder::kMonthFirst));
}

TableShape FindShape(const std::vector<TableRow>& rows) {
  std::vector<Counts> counts;
  for (std::size_t i = 0; i < std::min(rows.size(), kLookedThrough); ++i) counts.push_back(CountsOf(rows[i]));
  TableShape shape;
  const std::size_t found = HeaderAmong(counts);
  if (found == counts.size()) {
    shape.headerRows = 0;
    while (shape.before + 1 < counts.size() && counts[shape.before].values == 0) ++shape.before;
    if (!counts.empty() && counts[shape.before].values == 0) shape.before = 0;
    return shape;
  }
  std::size_t begin = found;
  while (begin > 0 && IsHeading(counts[begin - 1]) && rows[begin - 1].line + 1 == rows[begin].line) --begin;
  std::size_t end = found + 1;
  while (end + 1 < counts.size() && IsHeading(counts[end]) && counts[end + 1].values > 0 &&
         rows[end].cells.size() <= rows[found].cells.size() && end < found + 2)
    ++end;
  // Rows of texts alone are data where the table has no numbers.
  if (end < counts.size() && counts[end].values == 0) end = found + 1;
  shape.before = begin;
  shape.headerRows = end - begin;
  shape.header = HeaderTexts(rows, shape.before, shape.headerRows);
  return shape;
}

std::vector<std::string> HeaderTexts(const std::vector<TableRow>& rows, std::size_t before,
                                     std::size_t count) {
  std::size_t width = 0;
  for (std::size_t i = before; i < std::min(before + count, rows.size()); ++i)
    width = std::max(width, rows[i].cells.size());
  std::vector<std::string> header(width);
  for (std::size_t i = before; i < std::min(before + count, rows.size()); ++i) {
    const bool last = i + 1 == before + count;
    std::string above;  // of a heading over several columns
    for (std::size_t column = 0; column < width; ++column) {
      std::string text = CellText(rows[i], column);
      if (text.empty() && !last) text = above;
      if (!last) above = text;
      if (text.empty() || Folded(text) == Folded(header[column])) continue;
      header[column] += (header[column].empty() ? "" : " ") + text;
    }
  }
  while (!header.empty() && header.back().empty()) header.pop_back();
  return header;
}

RowClass ClassOf(const TableRow& row, const std::vector<std::string>& header, std::size_t width) {
  std::size_t filled = 0;
  std::size_t first = row.cells.size();
  std::size_t same = 0;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const std::string& text = row.cells[i].text;
    if (text.empty()) continue;
    ++filled;
    first = std::min(first, i);
    if (i < header.size() && header[i] == text) ++same;
  }
  if (filled == 0) return RowClass::kTotal;
  if (same > 1 && same == filled) return RowClass::kHeaderAgain;
  const TableCell& begin = row.cells[first];
  if (begin.kind != CellKind::kText) return RowClass::kData;
  // Most rows begin with a plate, a number or a date: no word is looked for there.
  const char c = begin.text[0];
  if (c >= '0' && c <= '9') return RowClass::kData;
  const std::string folded = Folded(begin.text.substr(0, 40));
  for (const char* word :
       {"total", "totais", "subtotal", "sub total", "soma", "somatorio", "saldo", "a transportar",
        "transporte", "pagina", "page", "suma", "somme", "sum", "grand total", "balance"})
    if (folded.starts_with(word) &&
        (folded.size() == std::string_view(word).size() || folded[std::string_view(word).size()] == ' '))
      return RowClass::kTotal;
  if (filled == 1 && width >= 3 && first <= 1 && !LooksLikeValue(begin)) return RowClass::kSection;
  return RowClass::kData;
}

}  // namespace exchange
