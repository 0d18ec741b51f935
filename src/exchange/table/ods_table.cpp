#include "exchange/table/ods_table.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "exchange/table/archived_document.h"
#include "exchange/table/cell_values.h"
#include "exchange/table/limits.h"
#include "exchange/table/streamed_table.h"
#include "platform/date_reader.h"

namespace exchange {
namespace {

constexpr char kContent[] = "content.xml";

/// A number of repetitions, at least one.
long Repeated(std::string_view text, long most) {
  long number = 1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::clamp(number, 1L, most + 1);
}

bool IsHidden(const MarkupAttributes& attributes) {
  const std::string_view visibility = attributes.Get("visibility");
  return visibility == "collapse" || visibility == "filter";
}

/// "PT12H30M05.25S" within a day.
std::optional<platform::Date> ReadDuration(std::string_view text) {
  if (!text.starts_with("PT")) return std::nullopt;
  platform::DateReader reader(text.substr(2));
  int seconds = 0;
  for (int part = 0; !reader.AtEnd();) {
    char unit = 0;
    if (!reader.Number(1, 6, part) || !reader.Mark("HMS.,", unit)) return std::nullopt;
    seconds += part * (unit == 'H' ? 3600 : unit == 'M' ? 60 : 1);
    if (unit == '.' || unit == ',') break;
  }
  if (seconds >= 86400) return std::nullopt;
  return platform::Date::FromSeconds(seconds);
}

/// True of what spreadsheets show of a formula that failed: "#DIV/0!", "#N/A", "Err:502".
bool NamesAnError(std::string_view text) {
  if (text.starts_with("Err:") || text == "#N/A" || text == "#N/D") return true;
  return text.size() > 2 && text.front() == '#' && (text.back() == '!' || text.back() == '?');
}

/// Names the sheets of a document, and tells its calendar.
struct SheetNames : MarkupHandler {
  SheetNames(std::vector<SheetInfo>& into, TableFacts& of) : sheets(into), facts(of) {}
  void Begin(std::string_view name, const MarkupAttributes& attributes) override {
    if (name == "table" && depth++ == 0) {
      const std::string_view shown = attributes.Get("display");
      sheets.push_back({.name = std::string(attributes.Get("name")), .hidden = shown == "false"});
    }
    if (name == "null-date") facts.calendar1904 = attributes.Get("date-value").starts_with("1904");
    if (name == "dde-links") ++depth;
  }
  void End(std::string_view name) override {
    if (name == "table" || name == "dde-links") --depth;
  }
  void Text(std::string_view) override {}

  std::vector<SheetInfo>& sheets;
  TableFacts& facts;
  int depth = 0;
};

class OdsTable : public StreamedTable, public MarkupHandler {
 public:
  explicit OdsTable(const std::string& file) : archive_(file) {
    if (archive_.Small("META-INF/manifest.xml").find("encryption-data") != std::string::npos)
      throw ProtectedFile();
    facts_.format = "ODS";
    NameSheets();
    if (sheets_.empty()) throw NoTable("é um documento de texto ou outro, sem folhas de cálculo");
    Open(0);
  }

  double Progress() const override { return document_ ? document_->Progress() : 1; }

 private:
  void NameSheets();
  // StreamedTable
  void Begin(std::size_t sheet) override;
  bool Feed() override;
  // MarkupHandler
  void Begin(std::string_view name, const MarkupAttributes& attributes) override;
  void End(std::string_view name) override;
  void Text(std::string_view text) override;

  void BeginCell(const MarkupAttributes& attributes);
  void BeginText(std::string_view name, const MarkupAttributes& attributes);
  void EndCell();
  TableCell CellOf() const;
  void Append(std::string_view text);

  ZipArchive archive_;
  std::unique_ptr<ArchivedDocument> document_;
  std::size_t wanted_ = 0;
  std::size_t begun_ = 0;  // tables so far
  int depth_ = 0;          // of tables, one within another's cell
  int aside_ = 0;          // within notes and drawings
  bool inParagraph_ = false;
  bool done_ = false;
  long line_ = 0;
  std::size_t column_ = 0;
  StreamedRow row_;
  // Of the cell that is being read.
  bool inCell_ = false;
  long cellRepeated_ = 1;
  bool formula_ = false;
  bool paragraphs_ = false;
  std::string type_;
  std::string value_;
  std::string text_;
};

void OdsTable::NameSheets() {
  SheetNames names(sheets_, facts_);
  ArchivedDocument document(archive_, kContent, names);
  while (document.Next()) CheckTime();
}

void OdsTable::Begin(std::size_t sheet) {
  document_ = std::make_unique<ArchivedDocument>(archive_, kContent, *this);
  wanted_ = sheet;
  begun_ = column_ = 0;
  depth_ = aside_ = 0;
  line_ = 1;
  inParagraph_ = inCell_ = done_ = false;
}

bool OdsTable::Feed() { return !done_ && document_->Next(); }

void OdsTable::Begin(std::string_view name, const MarkupAttributes& attributes) {
  if (name == "table") {
    if (depth_++ == 0) ++begun_;
    return;
  }
  if (name == "dde-links") ++depth_;
  if (depth_ != 1 || begun_ != wanted_ + 1) return;
  if (name == "annotation" || name == "shapes" || name == "frame" || name == "custom-shape") {
    ++aside_;
  } else if (aside_ > 0) {
    return;
  } else if (name == "table-column") {
    const long count = Repeated(attributes.Get("number-columns-repeated"), static_cast<long>(kColumnLimit));
    if (IsHidden(attributes)) HideColumns(column_, static_cast<std::size_t>(count));
    column_ += static_cast<std::size_t>(count);
  } else if (name == "table-row") {
    row_ = {.line = line_,
            .repeated = Repeated(attributes.Get("number-rows-repeated"), kRowLimit),
            .hidden = IsHidden(attributes),
            .cells = {}};
    column_ = 0;
  } else if (name == "table-cell" || name == "covered-table-cell") {
    BeginCell(attributes);
  } else if (inCell_) {
    BeginText(name, attributes);
  }
}

void OdsTable::BeginCell(const MarkupAttributes& attributes) {
  inCell_ = true;
  cellRepeated_ = Repeated(attributes.Get("number-columns-repeated"), static_cast<long>(kColumnLimit));
  formula_ = !attributes.Get("formula").empty();
  type_ =
      attributes.Get("value-type", "calc:") == "error" ? "error" : attributes.Get("value-type", "office:");
  value_.clear();
  paragraphs_ = false;
  text_.clear();
  for (const char* name : {"value", "date-value", "time-value", "boolean-value", "string-value"})
    if (value_.empty()) value_ = attributes.Get(name, "office:");
}

void OdsTable::BeginText(std::string_view name, const MarkupAttributes& attributes) {
  if (name == "p" || name == "h") {
    if (paragraphs_) Append("\n");
    paragraphs_ = inParagraph_ = true;
  } else if (name == "s") {
    Append(std::string(static_cast<std::size_t>(Repeated(attributes.Get("c"), static_cast<long>(kCellLimit))),
                       ' '));
  } else if (name == "tab") {
    Append("\t");
  } else if (name == "line-break") {
    Append("\n");
  }
}

void OdsTable::End(std::string_view name) {
  if (name == "table" || name == "dde-links") {
    --depth_;
    done_ = done_ || (depth_ == 0 && begun_ == wanted_ + 1);
    return;
  }
  if (depth_ != 1 || begun_ != wanted_ + 1) return;
  if (name == "annotation" || name == "shapes" || name == "frame" || name == "custom-shape") {
    --aside_;
  } else if (aside_ > 0) {
    return;
  } else if (name == "p" || name == "h") {
    inParagraph_ = false;
  } else if (name == "table-cell" || name == "covered-table-cell") {
    if (name == "table-cell") EndCell();
    column_ += static_cast<std::size_t>(cellRepeated_);
    inCell_ = false;
  } else if (name == "table-row") {
    line_ += row_.repeated;
    Add(std::move(row_));
    row_ = {};
  }
}

void OdsTable::Text(std::string_view text) {
  if (inParagraph_ && inCell_ && aside_ == 0 && depth_ == 1 && begun_ == wanted_ + 1) Append(text);
}

void OdsTable::Append(std::string_view text) {
  text_ += text;
  if (text_.size() > kCellLimit)
    throw TooLarge("uma célula tem mais texto do que uma folha de cálculo aceita");
}

void OdsTable::EndCell() {
  TableCell cell = CellOf();
  cell.formula = formula_;
  if (cell.kind == CellKind::kEmpty) return;
  const auto repeated = static_cast<std::size_t>(cellRepeated_);
  if (column_ + repeated > kColumnLimit) throw TooLarge("tem mais de 16.384 colunas numa linha");
  row_.cells.push_back({.column = column_, .repeated = repeated, .cell = std::move(cell)});
}

TableCell OdsTable::CellOf() const {
  const bool error = type_ == "error" || (formula_ && NamesAnError(text_));
  if (error) return ErrorCell(text_);
  if (type_ == "float" || type_ == "currency" || type_ == "percentage") {
    const auto number = ReadNumber(value_);
    return number ? NumberCell(*number) : ErrorCell(value_);
  }
  if (type_ == "boolean") return TruthCell(value_ == "true");
  const auto date = type_ == "date"   ? ReadIsoDate(value_)
                    : type_ == "time" ? ReadDuration(value_)
                                      : std::nullopt;
  if (date) return DateCell(*date);
  if (formula_ && type_.empty()) {
    TableCell cell;
    cell.kind = CellKind::kFormulaWithoutValue;
    return cell;
  }
  return TextCell(paragraphs_ ? text_ : value_);
}

}  // namespace

std::unique_ptr<TableReader> OpenOds(const std::string& file) { return std::make_unique<OdsTable>(file); }

}  // namespace exchange
