#include "history/image.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "history/digest.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::Currency;
using platform::Date;
using platform::FieldType;
using platform::Variant;

void AppendNumber(std::int64_t number, std::string& text) {
  std::array<char, 24> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  text.append(digits.data(), end);
}

void AppendPadded(int number, int width, std::string& text) {
  std::array<char, 24> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  for (auto missing = width - (end - digits.data()); missing > 0; --missing) text += '0';
  text.append(digits.data(), end);
}

std::string DateText(Date date) {
  std::string text;
  AppendPadded(date.year(), 4, text);
  for (const auto& [mark, part] : {std::pair{'-', date.month()},
                                   {'-', date.day()},
                                   {' ', date.hour()},
                                   {':', date.minute()},
                                   {':', date.second()}}) {
    text += mark;
    AppendPadded(part, 2, text);
  }
  return text;
}

std::string RealText(double value) {
  std::array<char, 32> digits{};
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

void AppendQuoted(std::string_view text, std::string& json) {
  json += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(c));
      json += escape.data();
    } else {
      json += c;
    }
  }
  json += '"';
}

[[noreturn]] void Unreadable(const std::string& words) {
  throw platform::RuntimeError(platform::kEngineFailure, "Histórico",
                               "Um registo do histórico não se lê: " + words);
}

Currency MoneyOf(std::string_view text) {
  const bool negative = text.starts_with('-');
  std::string digits(negative ? text.substr(1) : text);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t decimals = digits.size() - std::min(point + 1, digits.size());
  if (decimals > 4) Unreadable(std::string(text));
  if (point < digits.size()) digits.erase(point, 1);
  digits.append(4 - decimals, '0');
  if (negative) digits.insert(0, 1, '-');
  std::int64_t units = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), units);
  if (read.ec != std::errc{} || read.ptr != digits.data() + digits.size()) Unreadable(std::string(text));
  return Currency::FromTenThousandths(units);
}

Variant ValueOf(const tsql::Column& column, const nlohmann::json& json) {
  if (json.is_null()) return Variant::Null{};
  switch (tsql::FieldTypeOf(column.type.base)) {
    case FieldType::kBool:
      return json.get<bool>();
    case FieldType::kInteger:
      return json.get<std::int16_t>();
    case FieldType::kLong:
      return json.get<std::int32_t>();
    case FieldType::kDouble:
      return json.get<double>();
    case FieldType::kCurrency:
      return MoneyOf(json.get_ref<const std::string&>());
    case FieldType::kDate: {
      Date date;
      if (!Date::TryParse(json.get_ref<const std::string&>(), date)) Unreadable(json.dump());
      return date;
    }
    case FieldType::kText:
    case FieldType::kBytes:
      return json.get_ref<const std::string&>();
  }
  return {};
}

Image RowOf(const tsql::Table& table, const nlohmann::json& object) {
  Image image(table.columns.size());
  for (std::size_t i = 0; i < image.size(); ++i)
    if (const auto found = object.find(table.columns[i].name); found != object.end())
      image[i] = ValueOf(table.columns[i], *found);
  return image;
}

const Variant& KeyValue(const tsql::Table& table, const std::string& key, const Image& image) {
  for (std::size_t i = 0; i < image.size(); ++i)
    if (image[i] && platform::EqualsIgnoringCase(table.columns[i].name, key)) return *image[i];
  Unreadable(table.name + "." + key);
}

}  // namespace

bool HoldsBytes(const tsql::Column& column) { return column.type.base == tsql::BaseType::kVarBinary; }

void AppendJson(const tsql::Column& column, const Variant& value, std::string& json) {
  if (value.IsNull()) {
    json += "null";
    return;
  }
  switch (tsql::FieldTypeOf(column.type.base)) {
    case FieldType::kBool:
      json += value.ToBool() ? "true" : "false";
      return;
    case FieldType::kInteger:
    case FieldType::kLong:
      return AppendNumber(value.ToLong(), json);
    case FieldType::kDouble:
      json += RealText(value.ToDouble());
      return;
    case FieldType::kCurrency:
      return AppendQuoted(value.ToCurrency().ToText('.'), json);
    case FieldType::kDate:
      return AppendQuoted(DateText(value.ToDate()), json);
    case FieldType::kText:
      return AppendQuoted(value.ToText(), json);
    case FieldType::kBytes:
      return AppendQuoted(value.As<std::string>() ? value.ToText() : Digest(value.ToBytes()), json);
  }
}

std::string ToJson(const tsql::Table& table, const Image& image) {
  std::string json = "{";
  for (std::size_t i = 0; i < image.size(); ++i) {
    if (!image[i]) continue;
    if (json.size() > 1) json += ',';
    AppendQuoted(table.columns[i].name, json);
    json += ':';
    AppendJson(table.columns[i], *image[i], json);
  }
  return json += '}';
}

std::vector<Image> FromJson(const tsql::Table& table, std::string_view text) {
  std::vector<Image> images;
  try {
    const nlohmann::json json = nlohmann::json::parse(text);
    if (json.is_object()) return {RowOf(table, json)};
    for (const nlohmann::json& each : json) images.push_back(RowOf(table, each));
  } catch (const nlohmann::json::exception& error) {
    Unreadable(error.what());
  }
  return images;
}

std::string KeyText(const tsql::Table& table, const Image& image) {
  std::string text;
  for (const std::string& key : table.primaryKey)
    text += (text.empty() ? "" : " ") + KeyValue(table, key, image).ToText();
  return text;
}

std::string FoldedKey(const tsql::Table& table, const Image& image) {
  std::string folded;
  for (const std::string& key : table.primaryKey) {
    std::string text = KeyValue(table, key, image).ToText();
    text.erase(text.find_last_not_of(' ') + 1);
    for (char& c : text)
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    folded += text + '\n';
  }
  return folded;
}

std::string KeyCondition(const tsql::Table& table, const Image& image) {
  std::string condition;
  for (const std::string& key : table.primaryKey)
    condition += (condition.empty() ? "" : " AND ") + Bracketed(key) + " = " +
                 SqlLiteral(*table.Find(key), KeyValue(table, key, image));
  return condition;
}

std::string SqlLiteral(const tsql::Column& column, const Variant& value) {
  switch (tsql::FieldTypeOf(column.type.base)) {
    case FieldType::kBool:
      return value.ToBool() ? "1" : "0";
    case FieldType::kInteger:
    case FieldType::kLong:
      return std::to_string(value.ToLong());
    case FieldType::kDouble:
      return RealText(value.ToDouble());
    case FieldType::kCurrency:
      return value.ToCurrency().ToText('.');
    case FieldType::kDate:
      return "'" + DateText(value.ToDate()) + "'";
    case FieldType::kText:
    case FieldType::kBytes:
      break;
  }
  std::string literal = "N'";
  for (const char c : value.ToText()) literal += c == '\'' ? std::string("''") : std::string(1, c);
  return literal + "'";
}

std::string NamesOf(const std::vector<const tsql::Column*>& columns) {
  std::string names;
  for (const tsql::Column* column : columns) names += (names.empty() ? "" : ", ") + Bracketed(column->name);
  return names;
}

std::string Bracketed(std::string_view name) {
  std::string text = "[";
  for (const char c : name) text += c == ']' ? std::string("]]") : std::string(1, c);
  return text + "]";
}

Image ImageOf(const tsql::Table& table, platform::Recordset& rows) {
  Image image(table.columns.size());
  for (std::size_t i = 0; i < image.size(); ++i)
    if (const auto field = rows.FindField(table.columns[i].name))
      image[i] =
          platform::ConvertTo(tsql::FieldTypeOf(table.columns[i].type.base), rows.Fields(*field).Value());
  return image;
}

bool SameValue(const tsql::Column& column, const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() == b.IsNull();
  if (!HoldsBytes(column)) return a == b;
  if (a.As<platform::Bytes>() && b.As<platform::Bytes>()) return a == b;
  const auto digest = [](const Variant& value) {
    return value.As<std::string>() ? value.ToText() : Digest(value.ToBytes());
  };
  return digest(a) == digest(b);
}

}  // namespace history
