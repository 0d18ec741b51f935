#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>

#include "history/json.h"
#include "platform/runtime_error.h"

namespace history {
namespace {

using nlohmann::json;
using platform::Currency;
using platform::Date;
using platform::FieldType;
using platform::Variant;

[[noreturn]] void Unreadable(const std::string& words) {
  throw platform::RuntimeError(platform::kEngineFailure, "Histórico",
                               "Um registo do histórico não se lê: " + words);
}

Currency MoneyOf(const std::string& text) {
  constexpr std::size_t kDecimals = 4;
  const std::size_t point = std::min(text.find('.'), text.size());
  std::string digits = text.substr(0, point);
  const std::string decimals = text.substr(std::min(point + 1, text.size()));
  if (decimals.size() > kDecimals) Unreadable(text);
  digits.append(decimals).append(kDecimals - decimals.size(), '0');
  std::int64_t units = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), units);
  if (read.ec != std::errc{} || read.ptr != digits.data() + digits.size()) Unreadable(text);
  return Currency::FromTenThousandths(units);
}

Variant ValueOf(const tsql::Column& column, const json& value) {
  if (value.is_null()) return Variant::Null{};
  switch (tsql::FieldTypeOf(column.type.base)) {
    case FieldType::kBool:
      return value.get<bool>();
    case FieldType::kInteger:
      return value.get<std::int16_t>();
    case FieldType::kLong:
      return value.get<std::int32_t>();
    case FieldType::kDouble:
      return value.get<double>();
    case FieldType::kCurrency:
      return MoneyOf(value.get_ref<const std::string&>());
    case FieldType::kDate: {
      Date date;
      if (!Date::TryParse(value.get_ref<const std::string&>(), date)) Unreadable(value.dump());
      return date;
    }
    case FieldType::kText:
    case FieldType::kBytes:
      return value.get_ref<const std::string&>();
  }
  return {};
}

Image RowOf(const tsql::Table& table, const json& object) {
  Image image(table.columns.size());
  for (std::size_t i = 0; i < image.size(); ++i)
    if (const auto found = object.find(table.columns[i].name); found != object.end())
      image[i] = ValueOf(table.columns[i], *found);
  return image;
}

/// The rows of `{"colunas":[…],"linhas":[[…],…]}`.
std::vector<Image> RowsOf(const tsql::Table& table, const json& list) {
  std::vector<std::size_t> places;  // of the list's columns in the table's; behind all for one that is gone
  for (const json& name : list.at("colunas")) {
    const auto column = std::find_if(table.columns.begin(), table.columns.end(),
                                     [&](const tsql::Column& each) { return each.name == name; });
    places.push_back(static_cast<std::size_t>(column - table.columns.begin()));
  }
  std::vector<Image> images;
  for (const json& row : list.at("linhas")) {
    Image& image = images.emplace_back(table.columns.size());
    for (std::size_t i = 0; i < places.size(); ++i)
      if (places[i] < image.size()) image[places[i]] = ValueOf(table.columns[places[i]], row.at(i));
  }
  return images;
}

}  // namespace

std::vector<Image> FromJson(const tsql::Table& table, std::string_view text) {
  try {
    const json parsed = json::parse(text);
    if (parsed.is_object() && parsed.contains("linhas")) return RowsOf(table, parsed);
    if (parsed.is_object()) return {RowOf(table, parsed)};
    std::vector<Image> images;
    for (const json& each : parsed) images.push_back(RowOf(table, each));
    return images;
  } catch (const json::exception& error) {
    Unreadable(error.what());
  }
}

}  // namespace history
