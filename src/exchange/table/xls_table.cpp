#include "exchange/table/xls_table.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "exchange/table/cell_values.h"
#include "exchange/table/limits.h"
#include "exchange/table/ole_file.h"
#include "exchange/table/streamed_table.h"
#include "exchange/table/xls_workbook.h"
#include "platform/files.h"

namespace exchange {
namespace {

constexpr int kRecordsAtOnce = 200;
constexpr unsigned kHiddenRow = 0x20;

std::string BytesOf(const std::string& file) {
  const platform::Bytes bytes = platform::ReadFile(file);
  if (bytes.size() > kUnpackedLimit) throw TooLarge("tem mais de 300 MB");
  return {bytes.begin(), bytes.end()};
}

/// The stream of the workbook; throws when the container holds something else.
std::string WorkbookOf(const std::string& file) {
  const OleFile ole(BytesOf(file));
  if (ole.Has("EncryptedPackage")) throw ProtectedFile();
  for (const char* name : {"Workbook", "Book"})
    if (ole.Has(name)) return ole.Stream(name);
  throw NoTable("é um documento de outro tipo");
}

double DoubleAt(std::string_view data, std::size_t at) {
  double number = 0;
  if (at + sizeof number <= data.size()) std::memcpy(&number, data.data() + at, sizeof number);
  return number;
}

/// A number in four bytes: a whole one, or the front half of a double; either may be meant in hundredths.
double ShortNumberAt(std::string_view data, std::size_t at) {
  const std::uint32_t bits = NumberAt(data, at, 4);
  double number = 0;
  if ((bits & 2) != 0) {
    number = static_cast<double>(static_cast<std::int32_t>(bits) >> 2);
  } else {
    const std::uint64_t wide = static_cast<std::uint64_t>(bits & ~3U) << 32;
    std::memcpy(&number, &wide, sizeof number);
  }
  return (bits & 1) != 0 ? number / 100 : number;
}

TableCell ErrorOf(std::uint32_t code) {
  switch (code) {
    case 0x00:
      return ErrorCell("#NULL!");
    case 0x07:
      return ErrorCell("#DIV/0!");
    case 0x0F:
      return ErrorCell("#VALUE!");
    case 0x17:
      return ErrorCell("#REF!");
    case 0x1D:
      return ErrorCell("#NAME?");
    case 0x24:
      return ErrorCell("#NUM!");
    default:
      return ErrorCell("#N/A");
  }
}

class XlsTable : public StreamedTable {
 public:
  explicit XlsTable(const std::string& file) : stream_(WorkbookOf(file)), book_(ReadXlsWorkbook(stream_)) {
    for (const XlsSheet& sheet : book_.sheets)
      sheets_.push_back({.name = sheet.name, .hidden = sheet.hidden});
    facts_.format = "XLS";
    facts_.calendar1904 = book_.calendar1904;
    Open(0);
  }

  double Progress() const override {
    return static_cast<double>(records_.at()) / static_cast<double>(stream_.size());
  }

 private:
  void Begin(std::size_t sheet) override;
  bool Feed() override;
  void Take(const XlsRecord& record);
  void TakeFormula(std::string_view data);
  void Put(std::string_view data, TableCell cell) {
    Put(NumberAt(data, 0, 2), NumberAt(data, 2, 2), std::move(cell));
  }
  void Put(std::uint32_t row, std::uint32_t column, TableCell cell);
  TableCell Number(double number, std::uint32_t style) const;
  void EndRow();

  std::string stream_;
  XlsWorkbook book_;
  XlsRecords records_{stream_};
  bool done_ = false;
  int depth_ = 0;  // of sheets and the charts within
  std::vector<bool> hiddenRows_;
  StreamedRow row_;
};

void XlsTable::Begin(std::size_t sheet) {
  records_ = XlsRecords(stream_, book_.sheets[sheet].at);
  done_ = false;
  depth_ = 0;
  hiddenRows_.clear();
  row_ = {};
}

bool XlsTable::Feed() {
  XlsRecord record;
  for (int i = 0; i < kRecordsAtOnce && !done_; ++i) {
    if (!records_.Next(record)) throw BrokenFile("acaba antes do fim dos seus dados");
    if (record.type == kXlsBegin) {
      ++depth_;
    } else if (record.type == kXlsEnd) {
      done_ = --depth_ <= 0;
      if (done_) EndRow();
    } else if (depth_ == 1) {
      Take(record);
    }
  }
  return !done_;
}

void XlsTable::Take(const XlsRecord& record) {
  const std::string_view data = record.data;
  switch (record.type) {
    case kXlsColumns:
      if ((NumberAt(data, 8, 2) & 1) != 0 && NumberAt(data, 2, 2) >= NumberAt(data, 0, 2))
        HideColumns(NumberAt(data, 0, 2), NumberAt(data, 2, 2) - NumberAt(data, 0, 2) + 1);
      break;
    case kXlsRow:
      if ((NumberAt(data, 12, 2) & kHiddenRow) == 0) break;
      hiddenRows_.resize(std::max<std::size_t>(hiddenRows_.size(), NumberAt(data, 0, 2) + 1));
      hiddenRows_[NumberAt(data, 0, 2)] = true;
      break;
    case kXlsSharedLabel:
      Put(data, TextCell(std::string(book_.texts.At(NumberAt(data, 6, 4)))));
      break;
    case kXlsLabel:
    case kXlsRichLabel:
      Put(data, TextCell(XlsText(data.substr(std::min<std::size_t>(6, data.size())), 2, book_.wide)));
      break;
    case kXlsNumber:
      Put(data, Number(DoubleAt(data, 6), NumberAt(data, 4, 2)));
      break;
    case kXlsShortNumber:
      Put(data, Number(ShortNumberAt(data, 6), NumberAt(data, 4, 2)));
      break;
    case kXlsNumbers:
      for (std::size_t at = 4; at + 8 <= data.size(); at += 6)
        Put(NumberAt(data, 0, 2), NumberAt(data, 2, 2) + static_cast<std::uint32_t>((at - 4) / 6),
            Number(ShortNumberAt(data, at + 2), NumberAt(data, at, 2)));
      break;
    case kXlsTruthOrError:
      Put(data,
          NumberAt(data, 7, 1) != 0 ? ErrorOf(NumberAt(data, 6, 1)) : TruthCell(NumberAt(data, 6, 1) != 0));
      break;
    case kXlsFormula:
      TakeFormula(data);
      break;
    case kXlsResultText:
      if (!row_.cells.empty() && row_.cells.back().cell.kind == CellKind::kFormulaWithoutValue) {
        row_.cells.back().cell = TextCell(XlsText(data, 2, book_.wide));
        row_.cells.back().cell.formula = true;
      }
      break;
    default:
      break;
  }
}

/// A formula's value stands in its record, but a text in the record behind it.
void XlsTable::TakeFormula(std::string_view data) {
  TableCell cell;
  if (NumberAt(data, 12, 2) != 0xFFFF) {
    cell = Number(DoubleAt(data, 6), NumberAt(data, 4, 2));
  } else if (NumberAt(data, 6, 1) == 0) {
    cell.kind = CellKind::kFormulaWithoutValue;
  } else if (NumberAt(data, 6, 1) == 1) {
    cell = TruthCell(NumberAt(data, 8, 1) != 0);
  } else if (NumberAt(data, 6, 1) == 2) {
    cell = ErrorOf(NumberAt(data, 8, 1));
  }
  cell.formula = true;
  Put(data, std::move(cell));
}

TableCell XlsTable::Number(double number, std::uint32_t style) const {
  const bool date = style < book_.dateStyles.size() && book_.dateStyles[style];
  return date ? SerialCell(number, book_.calendar1904) : NumberCell(number);
}

void XlsTable::Put(std::uint32_t row, std::uint32_t column, TableCell cell) {
  if (row_.line != static_cast<long>(row) + 1) {
    EndRow();
    row_.line = static_cast<long>(row) + 1;
  }
  if (column >= kColumnLimit) throw BrokenFile("uma célula está fora da folha");
  if (cell.kind != CellKind::kEmpty)
    row_.cells.push_back({.column = column, .repeated = 1, .cell = std::move(cell)});
}

void XlsTable::EndRow() {
  const auto before = [](const StreamedCell& a, const StreamedCell& b) { return a.column < b.column; };
  const auto same = [](const StreamedCell& a, const StreamedCell& b) { return a.column == b.column; };
  std::stable_sort(row_.cells.begin(), row_.cells.end(), before);
  row_.cells.erase(std::unique(row_.cells.begin(), row_.cells.end(), same), row_.cells.end());
  const auto index = static_cast<std::size_t>(std::max(row_.line - 1, 0L));
  row_.hidden = index < hiddenRows_.size() && hiddenRows_[index];
  Add(std::move(row_));
  row_ = {};
}

}  // namespace

std::unique_ptr<TableReader> OpenXls(const std::string& file) { return std::make_unique<XlsTable>(file); }

}  // namespace exchange
