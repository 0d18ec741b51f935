#include "exchange/export/export_value.h"

namespace exchange {
namespace {

bool ShowsFigures(const std::string& face) { return face.find_first_of("0123456789") != std::string::npos; }

ExportKind KindOf(const ExportCell& cell) {
  if (std::holds_alternative<double>(cell)) return ExportKind::kNumber;
  if (std::holds_alternative<platform::Currency>(cell)) return ExportKind::kMoney;
  if (std::holds_alternative<platform::Date>(cell)) return ExportKind::kDate;
  return std::holds_alternative<bool>(cell) ? ExportKind::kTruth : ExportKind::kText;
}

}  // namespace

ExportCell CellOf(const platform::Variant& value, const std::string& face) {
  if (const auto* truth = value.As<bool>()) return *truth;
  if (value.IsNull() || value.IsEmpty() || !ShowsFigures(face)) return face;
  if (const auto* date = value.As<platform::Date>()) return *date;
  if (const auto* money = value.As<platform::Currency>()) return *money;
  if (value.As<std::int16_t>() || value.As<std::int32_t>() || value.As<double>()) return value.ToDouble();
  return face;
}

void DescribeColumn(ExportTable& table, std::size_t column) {
  for (const auto& row : table.rows) {
    const ExportCell& cell = row[column];
    const auto* text = std::get_if<std::string>(&cell);
    if (text != nullptr && text->empty()) continue;
    table.columns[column].kind = KindOf(cell);
    break;
  }
  bool whole = true;
  for (const auto& row : table.rows)
    if (const auto* number = std::get_if<double>(&row[column]))
      whole = whole && *number == static_cast<double>(static_cast<long long>(*number));
  if (table.columns[column].kind == ExportKind::kNumber) table.columns[column].decimals = whole ? 0 : 2;
}

}  // namespace exchange
