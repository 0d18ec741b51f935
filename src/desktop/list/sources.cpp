#include "desktop/list/sources.h"

#include <algorithm>

#include "desktop/look/text.h"
#include "platform/format.h"
#include "store/late_rows.h"

namespace desktop {
namespace {

using platform::FieldType;

/// The mark of columns that the program keeps for itself.
constexpr char kOwnColumn[] = "SISTEMA";
/// The band of a row whose day is past.
constexpr int kSharpest = 3;
/// Money on paper and in lookups.
constexpr char kMoneyMask[] = "###,###,##0.00";

bool IsNumber(FieldType type) {
  return type == FieldType::kInteger || type == FieldType::kLong || type == FieldType::kDouble ||
         type == FieldType::kCurrency;
}

}  // namespace

void GridSource::Refresh() {
  columns_.clear();
  const auto& fields =
      grid_.DataSource() ? grid_.DataSource()->FieldList() : std::vector<platform::FieldInfo>();
  for (std::size_t i = 0; i < grid_.Columns().size(); ++i) {
    const platform::GridColumn& column = grid_.Columns()[i];
    const bool typed = column.dataType == platform::kGridInteger || column.dataType == platform::kGridLong;
    columns_.push_back(
        {.key = column.key,
         .caption = ToQt(column.caption).trimmed(),
         .width = column.width,
         .hidden = column.hidden || column.mark == kOwnColumn,
         .numeric = typed || !column.format.empty() || (i < fields.size() && IsNumber(fields[i].type))});
  }
  rows_ = grid_.RowCount();
}

QString GridSource::Text(long row, std::size_t column) const { return ToQt(grid_.CellText(row, column)); }

/// Straight from the recordset: the grid would count the rows for each cell.
platform::Variant GridSource::Value(long row, std::size_t column) const {
  const platform::RecordsetRef& source = grid_.DataSource();
  if (!source) return grid_.CellValue(row, column);
  return source->CellAt(static_cast<std::size_t>(row), column).ToVariant();
}

std::optional<lists::Kind> GridSource::KindOf(std::size_t column) const {
  const platform::RecordsetRef& source = grid_.DataSource();
  if (!source || column >= source->FieldList().size()) return {};
  const FieldType type = source->FieldList()[column].type;
  if (type == FieldType::kDate) return lists::Kind::kDate;
  return IsNumber(type) ? std::optional(lists::Kind::kNumber) : std::nullopt;
}

std::optional<RowBand> GridSource::BandOf(long row) const {
  const platform::GridStyle* style = grid_.StyleOf(row);
  if (style == nullptr || !style->color) return {};
  return RowBand{.color = QColor::fromRgb(*style->color),
                 .order = kSharpest - std::clamp(grid_.ConditionOf(row)->band, 1, kSharpest),
                 .bold = style->bold};
}

bool GridSource::FetchMore(std::size_t rows) {
  const platform::RecordsetRef& source = grid_.DataSource();
  return source && source->IsOpen() && source->FetchMore(rows);
}

void FlexSource::Refresh() {
  columns_.clear();
  for (int i = 0; i < grid_.Cols(); ++i) {
    const auto at = static_cast<std::size_t>(i);
    TableColumn column{.key = std::to_string(i), .caption = {}};
    if (grid_.FixedRows > 0 && grid_.Rows() > 0) column.caption = ToQt(grid_.TextMatrix(0, i));
    if (at < grid_.ColWidth.size()) column.width = grid_.ColWidth[at];
    columns_.push_back(column);
  }
}

long FlexSource::Rows() const { return std::max(0, grid_.Rows() - grid_.FixedRows); }
QString FlexSource::Text(long row, std::size_t column) const {
  return ToQt(grid_.TextMatrix(static_cast<int>(row) + grid_.FixedRows, static_cast<int>(column)));
}
platform::Variant FlexSource::Value(long row, std::size_t column) const { return FromQt(Text(row, column)); }

void DialogSource::Refresh() {
  columns_.clear();
  const auto& fields = dialog_.Linhas()->FieldList();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const platform::DialogColumn& column = dialog_.Coluna(static_cast<int>(i) + 1);
    columns_.push_back({.key = fields[i].name,
                        .caption = ToQt(fields[i].name).trimmed(),
                        .width = column.Width,
                        .hidden = column.Option,
                        .numeric = IsNumber(fields[i].type)});
  }
  const auto* late = dynamic_cast<const store::LateRows*>(dialog_.Linhas().get());
  rows_ = late != nullptr && late->IsWaiting() ? 0 : dialog_.Linhas()->RecordCount();
}

QString DialogSource::Text(long row, std::size_t column) const {
  const platform::Cell& cell = dialog_.Linhas()->CellAt(static_cast<std::size_t>(row), column);
  const bool money = !cell.IsNull() && cell.type() == FieldType::kCurrency;
  return ToQt(money ? platform::FormatNumber(cell.ToVariant(), kMoneyMask) : cell.ToText());
}

platform::Variant DialogSource::Value(long row, std::size_t column) const {
  return dialog_.Linhas()->CellAt(static_cast<std::size_t>(row), column).ToVariant();
}

}  // namespace desktop
