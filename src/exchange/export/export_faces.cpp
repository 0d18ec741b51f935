#include "exchange/export/export_faces.h"

#include <algorithm>

#include "platform/format.h"
#include "platform/text.h"

namespace exchange {
namespace {

constexpr std::size_t kRowsMeasured = 1000;
constexpr int kNarrowest = 6;
constexpr int kWidest = 60;

struct Face {
  const ExportColumn& column;

  std::string Decimals(const platform::Variant& value) const {
    const auto places = static_cast<std::size_t>(std::clamp(column.decimals, 0, 10));
    return platform::FormatNumber(value, places == 0 ? "0" : "0." + std::string(places, '0'));
  }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(double number) const { return Decimals(number); }
  std::string operator()(platform::Currency money) const { return Decimals(money); }
  std::string operator()(platform::Date date) const { return date.IsZero() ? std::string() : date.ToText(); }
  std::string operator()(bool truth) const { return truth ? "Sim" : "Não"; }
};

}  // namespace

std::string FaceOf(const ExportCell& cell, const ExportColumn& column) {
  return std::visit(Face{column}, cell);
}

bool HasTimes(const ExportTable& table, std::size_t column) {
  return std::any_of(table.rows.begin(), table.rows.end(), [&](const std::vector<ExportCell>& row) {
    const auto* date = std::get_if<platform::Date>(&row[column]);
    return date != nullptr && *date != date->DayOnly();
  });
}

std::vector<int> WidthsOf(const ExportTable& table) {
  std::vector<int> widths;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const ExportColumn& column = table.columns[i];
    std::size_t longest = platform::Length(column.heading);
    for (std::size_t row = 0; column.width == 0 && row < std::min(table.rows.size(), kRowsMeasured); ++row)
      longest = std::max(longest, platform::Length(FaceOf(table.rows[row][i], column)));
    widths.push_back(column.width > 0 ? column.width
                                      : std::clamp(static_cast<int>(longest) + 2, kNarrowest, kWidest));
  }
  return widths;
}

std::string MarkedUp(const std::string& text) {
  std::string marked;
  for (char c : text) {
    const bool control = static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\t';
    if (c == '&')
      marked += "&amp;";
    else if (c == '<')
      marked += "&lt;";
    else if (c == '>')
      marked += "&gt;";
    else if (c == '"')
      marked += "&quot;";
    else if (!control)
      marked += c;
  }
  return marked;
}

}  // namespace exchange
