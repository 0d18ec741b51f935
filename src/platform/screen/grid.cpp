#include "platform/screen/grid.h"

#include "platform/format.h"
#include "platform/text.h"

namespace platform {

bool FormatCondition::Accepts(const Variant& value) const {
  if (value.IsNull() || value.IsEmpty()) return false;
  const double number = value.ToDouble();
  if (op == kGridLess) return number < value1;
  return op == kGridBetween && number >= value1 && number <= value2;
}

Variant GridRow::Cell(std::size_t column) const { return grid_->CellValue(row_, column); }

void SGGrid::SetDataSource(RecordsetRef source) {
  if (source_ && source_->IsOpen() && !(source_ == source)) source_->Close();
  source_ = std::move(source);
  columns_.clear();
  cells_.clear();
  for (const FieldInfo& field : source_->FieldList()) AddColumn(field.name, field.name, 1500);
  row_ = -1;
  ++revision_;
}

std::size_t SGGrid::ColumnIndex(std::string_view key) const {
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (EqualsIgnoringCase(columns_[i].key, key)) return i;
  throw RuntimeError(kNoSuchField, std::string(key));
}

GridColumn& SGGrid::Column(std::string_view key) {
  ++revision_;
  return columns_[ColumnIndex(key)];
}

GridColumn& SGGrid::AddColumn(std::string key, std::string caption, float width) {
  ++revision_;
  columns_.push_back(
      {.key = std::move(key), .caption = std::move(caption), .width = width, .format = {}, .mark = {}});
  return columns_.back();
}

void SGGrid::ClearColumns() {
  columns_.clear();
  source_.reset();
  cells_.clear();
  ++revision_;
}

long SGGrid::RowCount() const { return source_ ? source_->RecordCount() : static_cast<long>(cells_.size()); }

void SGGrid::SetRowCount(long rows) {
  if (rows < 0) throw RuntimeError(kSubscriptOutOfRange);
  cells_.resize(static_cast<std::size_t>(rows));
  ++revision_;
}

void SGGrid::SetCell(long row, std::string_view key, const Variant& value) {
  if (row < 0 || row >= static_cast<long>(cells_.size())) throw RuntimeError(kSubscriptOutOfRange);
  auto& cells = cells_[static_cast<std::size_t>(row)];
  cells.resize(columns_.size());
  cells[ColumnIndex(key)] = value;
  ++revision_;
}

Variant SGGrid::CellValue(long row, std::size_t column) const {
  if (row < 0 || row >= RowCount() || column >= columns_.size()) throw RuntimeError(kSubscriptOutOfRange);
  if (source_) return source_->CellAt(static_cast<std::size_t>(row), column).ToVariant();
  const auto& cells = cells_[static_cast<std::size_t>(row)];
  return column < cells.size() ? cells[column] : Variant();
}

std::string SGGrid::CellText(long row, std::size_t column) const {
  if (row < 0 || column >= columns_.size()) throw RuntimeError(kSubscriptOutOfRange);
  const std::string& mask = columns_[column].format;
  if (source_ && mask.empty()) return source_->CellAt(static_cast<std::size_t>(row), column).ToText();
  const Variant value = CellValue(row, column);
  if (value.IsNull()) return {};
  return mask.empty() ? value.ToText() : Format(value, mask);
}

GridStyle& SGGrid::AddStyle(const std::string& name) {
  for (const GridStyle& style : styles_)
    if (EqualsIgnoringCase(style.name, name)) throw RuntimeError(kKeyInUse, name);
  styles_.push_back({.name = name, .color = {}, .fontName = {}});
  ++revision_;
  return styles_.back();
}

const FormatCondition* SGGrid::ConditionOf(long row) const {
  return FirstMet(conditions_,
                  [&](std::size_t i) { return CellValue(row, ColumnIndex(conditions_[i].column)); });
}

const GridStyle* SGGrid::StyleOf(long row) const {
  const FormatCondition* condition = ConditionOf(row);
  if (condition == nullptr) return nullptr;
  for (const GridStyle& style : styles_)
    if (EqualsIgnoringCase(style.name, condition->style)) return &style;
  return nullptr;
}

void SGGrid::SetRow(long row) {
  if (row < -1 || row >= RowCount()) throw RuntimeError(kSubscriptOutOfRange);
  if (row == row_) return;
  row_ = row;
  if (RowChange) RowChange(row);
}

const MenuItem* SGGrid::CommandOf(int key) const {
  return PopUp != nullptr && PopUpCommand && row_ >= 0 ? PopUp->OfKey(key) : nullptr;
}

void MSFlexGrid::SetFormatString(const std::string& format) {
  std::vector<std::string> captions(1);
  for (char c : format) {
    if (c == '|')
      captions.emplace_back();
    else if (c != '<' && c != '^' && c != '>')
      captions.back() += c;
  }
  cols_ = static_cast<int>(captions.size());
  ColWidth.resize(captions.size(), 1500);
  for (auto& row : cells_) row.resize(captions.size());
  if (!cells_.empty()) cells_[0] = captions;
  ++revision_;
}

void MSFlexGrid::SetRows(int rows) {
  if (rows < 0) throw RuntimeError(kSubscriptOutOfRange);
  cells_.resize(static_cast<std::size_t>(rows), std::vector<std::string>(static_cast<std::size_t>(cols_)));
  ++revision_;
}

void MSFlexGrid::Check(int row, int col) const {
  if (row < 0 || row >= Rows() || col < 0 || col >= cols_) throw RuntimeError(kSubscriptOutOfRange);
}

const std::string& MSFlexGrid::TextMatrix(int row, int col) const {
  Check(row, col);
  return cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
}

void MSFlexGrid::SetTextMatrix(int row, int col, std::string text) {
  Check(row, col);
  cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)] = std::move(text);
  ++revision_;
}

}  // namespace platform
