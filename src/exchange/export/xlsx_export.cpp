#include <map>
#include <memory>
#include <stdexcept>

#include "exchange/export/export_faces.h"
#include "exchange/export/xlsx_library.h"
#include "platform/text.h"

namespace exchange {
namespace {

constexpr std::size_t kLongestText = 32767;
constexpr std::size_t kLongestSheetName = 31;
constexpr double kSecondsADay = 86400;
constexpr double kFirstSafeDay =
    61;  // 01-03-1900; the calendar of spreadsheets counts a day too many before it

/// A name that a sheet may bear.
std::string SheetName(std::string title) {
  for (char& c : title)
    if (std::string_view("[]:*?/\\'").find(c) != std::string_view::npos) c = ' ';
  title = platform::Trim(platform::Left(title, kLongestSheetName));
  return title.empty() ? "Folha1" : title;
}

/// The formats of a workbook's cells, each made once.
class Formats {
 public:
  explicit Formats(lxw_workbook* book) : book_(book) {}
  lxw_format* For(const std::string& mask) {
    lxw_format*& format = made_[mask];
    if (format == nullptr) {
      format = Xlsx().workbook_add_format(book_);
      Xlsx().format_set_num_format(format, mask.c_str());
    }
    return format;
  }
  lxw_format* Heading() {
    lxw_format* format = Xlsx().workbook_add_format(book_);
    Xlsx().format_set_bold(format);
    Xlsx().format_set_border(format, LXW_BORDER_NONE);
    Xlsx().format_set_bottom(format, LXW_BORDER_THIN);
    return format;
  }

 private:
  lxw_workbook* book_;
  std::map<std::string, lxw_format*> made_;
};

/// Writes one cell of a column.
struct CellWriter {
  lxw_worksheet* sheet;
  lxw_row_t row;
  lxw_col_t at;
  lxw_format* format;

  lxw_error operator()(const std::string& text) const {
    if (text.empty()) return LXW_NO_ERROR;
    return Xlsx().worksheet_write_string(sheet, row, at, platform::Left(text, kLongestText).c_str(), nullptr);
  }
  lxw_error operator()(double number) const {
    return Xlsx().worksheet_write_number(sheet, row, at, number, format);
  }
  lxw_error operator()(platform::Currency money) const { return (*this)(money.ToDouble()); }
  lxw_error operator()(platform::Date date) const {
    const double serial = static_cast<double>(date.seconds()) / kSecondsADay;
    if (date.IsZero()) return LXW_NO_ERROR;
    return serial < kFirstSafeDay ? (*this)(date.ToText()) : (*this)(serial);
  }
  lxw_error operator()(bool truth) const {
    return Xlsx().worksheet_write_boolean(sheet, row, at, truth ? 1 : 0, nullptr);
  }
};

std::string MaskOf(const ExportTable& table, std::size_t column) {
  const ExportColumn& as = table.columns[column];
  const std::string decimals =
      as.decimals > 0 ? "." + std::string(static_cast<std::size_t>(as.decimals), '0') : "";
  switch (as.kind) {
    case ExportKind::kNumber:
      return "0" + decimals;
    case ExportKind::kMoney:
      return "#,##0" + decimals;
    case ExportKind::kDate:
      return HasTimes(table, column) ? "dd\\-mm\\-yyyy\\ hh:mm" : "dd\\-mm\\-yyyy";
    default:
      return "General";
  }
}

}  // namespace

void WriteXlsx(const ExportTable& table, const std::string& file) {
  if (table.rows.size() >= LXW_ROW_MAX || table.columns.size() > LXW_COL_MAX)
    throw std::runtime_error(
        "Uma folha XLSX leva 1.048.576 linhas e 16.384 colunas no máximo; exporte para CSV.");
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* book = Xlsx().workbook_new_opt(file.c_str(), &options);
  lxw_worksheet* sheet = Xlsx().workbook_add_worksheet(book, SheetName(table.title).c_str());
  Formats formats(book);
  lxw_format* heading = formats.Heading();
  std::vector<lxw_format*> ofColumn;
  const std::vector<int> widths = WidthsOf(table);
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const auto at = static_cast<lxw_col_t>(i);
    ofColumn.push_back(formats.For(MaskOf(table, i)));
    Xlsx().worksheet_set_column(sheet, at, at, widths[i], nullptr);
  }
  Xlsx().worksheet_freeze_panes(sheet, 1, 0);
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    Xlsx().worksheet_write_string(sheet, 0, static_cast<lxw_col_t>(i), table.columns[i].heading.c_str(),
                                  heading);
  lxw_error error = LXW_NO_ERROR;
  for (std::size_t row = 0; row < table.rows.size(); ++row)
    for (std::size_t i = 0; i < table.columns.size() && error == LXW_NO_ERROR; ++i)
      error = std::visit(
          CellWriter{sheet, static_cast<lxw_row_t>(row + 1), static_cast<lxw_col_t>(i), ofColumn[i]},
          table.rows[row][i]);
  const lxw_error closed = Xlsx().workbook_close(book);
  if (error != LXW_NO_ERROR || closed != LXW_NO_ERROR) throw std::runtime_error("veja se o disco está cheio");
}

}  // namespace exchange
