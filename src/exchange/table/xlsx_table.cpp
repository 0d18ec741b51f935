#include "exchange/table/xlsx_table.h"

#include <charconv>
#include <utility>

#include "exchange/table/archived_document.h"
#include "exchange/table/cell_values.h"
#include "exchange/table/limits.h"
#include "exchange/table/streamed_table.h"
#include "exchange/table/xlsx_workbook.h"

namespace exchange {
namespace {

/// What an XLSX sheet says of a cell before its value is worked out.
struct RawCell {
  std::size_t column = 0;
  std::string type;
  std::size_t style = 0;
  bool formula = false;
  std::string value;
};

class XlsxTable : public StreamedTable, public MarkupHandler {
 public:
  explicit XlsxTable(const std::string& file)
      : archive_(file), workbook_(ReadXlsxWorkbook(archive_, [this] { CheckTime(); })) {
    for (const XlsxSheet& sheet : workbook_.sheets)
      sheets_.push_back({.name = sheet.name, .hidden = sheet.hidden});
    facts_.format = "XLSX";
    facts_.calendar1904 = workbook_.calendar1904;
    Open(0);
  }

  double Progress() const override { return document_ ? document_->Progress() : 1; }

 private:
  // StreamedTable
  void Begin(std::size_t sheet) override;
  bool Feed() override;
  // MarkupHandler
  void Begin(std::string_view name, const MarkupAttributes& attributes) override;
  void End(std::string_view name) override;
  void Text(std::string_view text) override;

  void BeginCell(const MarkupAttributes& attributes);
  void EndCell();
  TableCell CellOf(const RawCell& raw) const;

  ZipArchive archive_;
  XlsxWorkbook workbook_;
  std::unique_ptr<ArchivedDocument> document_;
  bool inRows_ = false;
  bool inValue_ = false;
  bool readingAid_ = false;
  long line_ = 0;
  StreamedRow row_;
  RawCell cell_;
};

template <typename Number>
Number Whole(std::string_view text, Number otherwise) {
  Number number = otherwise;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// "AB12" is in column 27; `otherwise` where no letters are.
std::size_t ColumnOf(std::string_view reference, std::size_t otherwise) {
  std::size_t column = 0;
  for (char c : reference) {
    if (c < 'A' || c > 'Z' || column > kColumnLimit) break;
    column = column * 26 + static_cast<std::size_t>(c - 'A') + 1;
  }
  return column == 0 ? otherwise : column - 1;
}

void XlsxTable::Begin(std::size_t sheet) {
  document_ = std::make_unique<ArchivedDocument>(archive_, workbook_.sheets[sheet].entry, *this);
  inRows_ = inValue_ = readingAid_ = false;
  line_ = 0;
}

bool XlsxTable::Feed() { return document_->Next(); }

void XlsxTable::Begin(std::string_view name, const MarkupAttributes& attributes) {
  if (name == "c" && inRows_) {
    BeginCell(attributes);
  } else if (name == "v" || name == "t") {
    inValue_ = !readingAid_;
  } else if (name == "f") {
    cell_.formula = true;
  } else if (name == "rPh") {
    readingAid_ = true;
  } else if (name == "row" && inRows_) {
    line_ = Whole(attributes.Get("r"), line_ + 1);
    const std::string_view hidden = attributes.Get("hidden");
    row_ = {.line = line_, .repeated = 1, .hidden = hidden == "1" || hidden == "true", .cells = {}};
    cell_.column = static_cast<std::size_t>(-1);
  } else if (name == "sheetData") {
    inRows_ = true;
  } else if (name == "col") {
    const std::string_view hidden = attributes.Get("hidden");
    const auto first = Whole<std::size_t>(attributes.Get("min"), 0);
    const auto last = std::min(Whole<std::size_t>(attributes.Get("max"), 0), kColumnLimit);
    if ((hidden == "1" || hidden == "true") && first > 0 && first <= last)
      HideColumns(first - 1, last - first + 1);
  }
}

void XlsxTable::BeginCell(const MarkupAttributes& attributes) {
  const std::size_t column = ColumnOf(attributes.Get("r"), cell_.column + 1);
  if (column >= kColumnLimit || (!row_.cells.empty() && column <= row_.cells.back().column))
    throw BrokenFile("as células da linha " + std::to_string(line_) + " não estão pela ordem das colunas");
  cell_.column = column;
  cell_.type = attributes.Get("t");
  cell_.style = Whole<std::size_t>(attributes.Get("s"), 0);
  cell_.formula = false;
  cell_.value.clear();
}

void XlsxTable::End(std::string_view name) {
  inValue_ = false;
  if (name == "c" && inRows_) {
    EndCell();
  } else if (name == "rPh") {
    readingAid_ = false;
  } else if (name == "row" && inRows_) {
    Add(std::move(row_));
    row_ = {};
  } else if (name == "sheetData") {
    inRows_ = false;
  }
}

void XlsxTable::EndCell() {
  TableCell cell = CellOf(cell_);
  cell.formula = cell_.formula;
  if (cell.kind != CellKind::kEmpty)
    row_.cells.push_back({.column = cell_.column, .repeated = 1, .cell = std::move(cell)});
}

TableCell XlsxTable::CellOf(const RawCell& raw) const {
  if (raw.type == "str" || raw.type == "inlineStr") return TextCell(WithoutEscapes(raw.value));
  if (raw.value.empty()) {
    TableCell cell;
    if (raw.formula) cell.kind = CellKind::kFormulaWithoutValue;
    return cell;
  }
  if (raw.type == "s") {
    const std::size_t number = Whole(raw.value, static_cast<std::size_t>(-1));
    return TextCell(WithoutEscapes(workbook_.texts.At(number)));
  }
  if (raw.type == "b") return TruthCell(raw.value == "1" || raw.value == "true");
  if (raw.type == "e") return ErrorCell(raw.value);
  if (raw.type == "d") {
    const auto date = ReadIsoDate(raw.value);
    return date ? DateCell(*date) : TextCell(raw.value);
  }
  const auto number = ReadNumber(raw.value);
  if (!number) return ErrorCell(raw.value);
  const bool date = raw.style < workbook_.dateStyles.size() && workbook_.dateStyles[raw.style];
  return date ? SerialCell(*number, workbook_.calendar1904) : NumberCell(*number);
}

void XlsxTable::Text(std::string_view text) {
  if (!inValue_ || !inRows_) return;
  cell_.value += text;
  if (cell_.value.size() > kCellLimit)
    throw TooLarge("uma célula tem mais texto do que uma folha de cálculo aceita");
}

}  // namespace

std::unique_ptr<TableReader> OpenXlsx(const std::string& file) { return std::make_unique<XlsxTable>(file); }

}  // namespace exchange
