#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/currency.h"
#include "platform/date.h"

namespace exchange {

/// What a column holds, which decides how a spreadsheet shows its cells. Money and measures (`Currency`) are
/// shown with the column's decimals, dates with their time of day where one in the column has one.
enum class ExportKind { kText, kNumber, kMoney, kDate, kTruth };

struct ExportColumn {
  std::string heading;
  ExportKind kind = ExportKind::kText;
  int width = 0;     // in characters; 0 lets the cells tell
  int decimals = 2;  // of kNumber and kMoney
};

/// A cell. An empty one is an empty text; a text may stand in a column of any kind ("a definir" among
/// numbers).
using ExportCell = std::variant<std::string, double, platform::Currency, platform::Date, bool>;

/// A table on its way out: a list, a report, a preview. Rows are as long as `columns`.
struct ExportTable {
  std::string title;  // the sheet's name, and what stands above the table in a page of HTML
  std::vector<ExportColumn> columns;
  std::vector<std::vector<ExportCell>> rows;
};

enum class ExportFormat { kXlsx, kOds, kCsv };

/// The format that a file name's ending means, whatever its case; std::runtime_error tells the three that
/// there are.
ExportFormat FormatOf(const std::string& file);
/// Writes a table; a file that is there is replaced, and stays as it was when the writing fails. The file is
/// the user's alone. Throws std::runtime_error in Portuguese.
void WriteTable(const ExportTable& table, const std::string& file, ExportFormat format);

/// For the clipboard: fields parted by tabs, rows by line ends, the headings first; and the same as a table
/// of HTML.
std::string ClipboardText(const ExportTable& table);
std::string ClipboardHtml(const ExportTable& table);

}  // namespace exchange
