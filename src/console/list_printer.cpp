#include "console/list_printer.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "exchange/csv_text.h"
#include "exchange/export/export_value.h"
#include "platform/format.h"
#include "platform/text.h"

namespace console {
namespace {

using platform::Variant;
using zorCrmParvel::SGGrid;

std::vector<std::size_t> VisibleColumns(const SGGrid& grid) {
  std::vector<std::size_t> visible;
  for (std::size_t i = 0; i < grid.Columns().size(); ++i)
    if (!grid.Columns()[i].hidden) visible.push_back(i);
  return visible;
}

/// A date for other programs: the day alone when the time is midnight.
std::string IsoDate(platform::Date date) {
  const bool midnight = date == date.DayOnly();
  return platform::FormatDate(date, midnight ? "yyyy-mm-dd" : "yyyy-mm-dd hh:mm:ss");
}

/// The zero date stands for none.
bool IsNoDate(const Variant& value) {
  const auto* date = value.As<platform::Date>();
  return date != nullptr && *date == platform::Date();
}

std::string Padding(std::size_t width, const std::string& text) {
  const std::size_t length = platform::Length(text);
  return std::string(width > length ? width - length : 0, ' ');
}

bool IsNumeric(const SGGrid& grid, std::size_t column) {
  const auto type = grid.DataSource()->FieldList()[column].type;
  return type != platform::FieldType::kText && type != platform::FieldType::kDate;
}

void PrintTable(std::ostream& out, const SGGrid& grid) {
  const auto columns = VisibleColumns(grid);
  std::vector<std::size_t> widths;
  for (std::size_t column : columns) {
    std::size_t width = platform::Length(grid.Columns()[column].caption);
    for (long row = 0; row < grid.RowCount(); ++row)
      width = std::max(width, platform::Length(grid.CellText(row, column)));
    widths.push_back(width);
  }
  const auto line = [&](const auto& textOf) {
    std::string text;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const std::string cell = textOf(columns[i]);
      const std::string padding = Padding(widths[i], cell);
      text += (i == 0 ? "" : "  ") + (IsNumeric(grid, columns[i]) ? padding + cell : cell + padding);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    out << text << '\n';
  };
  line([&](std::size_t column) { return grid.Columns()[column].caption; });
  std::size_t i = 0;
  line([&](std::size_t) { return std::string(widths[i++], '-'); });
  for (long row = 0; row < grid.RowCount(); ++row)
    line([&](std::size_t column) { return grid.CellText(row, column); });
}

std::string CsvText(const Variant& value) {
  if (value.IsNull() || IsNoDate(value)) return {};
  if (const auto* date = value.As<platform::Date>()) return IsoDate(*date);
  if (const auto* money = value.As<platform::Currency>()) return money->ToText('.');
  return exchange::CsvField(value.As<std::string>() ? exchange::Guarded(value.ToText()) : value.ToText());
}

void PrintCsv(std::ostream& out, const SGGrid& grid) {
  const auto columns = VisibleColumns(grid);
  const auto line = [&](const auto& textOf) {
    for (std::size_t i = 0; i < columns.size(); ++i) out << (i == 0 ? "" : ";") << textOf(columns[i]);
    out << '\n';
  };
  line([&](std::size_t column) { return CsvText(grid.Columns()[column].key); });
  for (long row = 0; row < grid.RowCount(); ++row)
    line([&](std::size_t column) { return CsvText(grid.CellValue(row, column)); });
}

nlohmann::ordered_json JsonValue(const Variant& value) {
  if (value.IsNull() || value.IsEmpty() || IsNoDate(value)) return nullptr;
  if (const auto* truth = value.As<bool>()) return *truth;
  if (const auto* date = value.As<platform::Date>()) return IsoDate(*date);
  if (value.As<std::string>()) return value.ToText();
  if (value.As<std::int16_t>() || value.As<std::int32_t>()) return value.ToLong();
  return value.ToDouble();
}

void PrintJson(std::ostream& out, const SGGrid& grid) {
  auto rows = nlohmann::ordered_json::array();
  const auto columns = VisibleColumns(grid);
  for (long row = 0; row < grid.RowCount(); ++row) {
    auto object = nlohmann::ordered_json::object();
    for (std::size_t column : columns)
      object[grid.Columns()[column].key] = JsonValue(grid.CellValue(row, column));
    rows.push_back(std::move(object));
  }
  out << rows.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

}  // namespace

void PrintList(std::ostream& out, const SGGrid& grid, Output format) {
  switch (format) {
    case Output::kTable:
      return PrintTable(out, grid);
    case Output::kCsv:
      return PrintCsv(out, grid);
    case Output::kJson:
      return PrintJson(out, grid);
  }
}

exchange::ExportTable TableOf(const SGGrid& grid, const std::string& title) {
  exchange::ExportTable table{.title = title, .columns = {}, .rows = {}};
  const auto columns = VisibleColumns(grid);
  for (std::size_t column : columns) table.columns.push_back({.heading = grid.Columns()[column].caption});
  for (long row = 0; row < grid.RowCount(); ++row) {
    auto& cells = table.rows.emplace_back();
    for (std::size_t column : columns)
      cells.push_back(exchange::CellOf(grid.CellValue(row, column), grid.CellText(row, column)));
  }
  for (std::size_t i = 0; i < columns.size(); ++i) exchange::DescribeColumn(table, i);
  return table;
}

}  // namespace console
