#include "history/json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <utility>

#include "history/digest.h"

namespace history {
namespace {

using platform::Cell;
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

void AppendDate(Date date, std::string& text) {
  AppendPadded(date.year(), 4, text);
  for (const auto& [mark, part] : {std::pair{'-', date.month()},
                                   {'-', date.day()},
                                   {' ', date.hour()},
                                   {':', date.minute()},
                                   {':', date.second()}}) {
    text += mark;
    AppendPadded(part, 2, text);
  }
}

constexpr auto kEscaped = [] {
  std::array<bool, 256> escaped{};
  for (std::size_t c = 0; c < 0x20; ++c) escaped[c] = true;
  escaped['"'] = escaped['\\'] = true;
  return escaped;
}();

bool Escaped(char c) { return kEscaped[static_cast<unsigned char>(c)]; }

void AppendQuoted(std::string_view text, std::string& json) {
  json += '"';
  while (!text.empty()) {
    const auto plain =
        static_cast<std::size_t>(std::find_if(text.begin(), text.end(), &Escaped) - text.begin());
    json.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) break;
    if (static_cast<unsigned char>(text.front()) < 0x20) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(text.front()));
      json += escape.data();
    } else {
      json += '\\';
      json += text.front();
    }
    text.remove_prefix(1);
  }
  json += '"';
}

/// A cell that is of its column's type.
void AppendCell(const Cell& cell, std::string& json) {
  switch (cell.type()) {
    case FieldType::kBool:
      json += cell.integer() != 0 ? "true" : "false";
      return;
    case FieldType::kInteger:
    case FieldType::kLong:
      return AppendNumber(cell.integer(), json);
    case FieldType::kDouble:
      json += RealText(cell.real());
      return;
    case FieldType::kCurrency:
      return AppendQuoted(Currency::FromTenThousandths(cell.integer()).ToText('.'), json);
    case FieldType::kDate:
      json += '"';
      AppendDate(Date::FromSeconds(cell.integer()), json);
      json += '"';
      return;
    case FieldType::kText:
      return AppendQuoted(cell.block(), json);
    case FieldType::kBytes:
      return AppendQuoted(Digest(cell.ToVariant().ToBytes()), json);
  }
}

}  // namespace

std::string RealText(double value) {
  std::array<char, 32> digits{};
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

std::string DateText(Date date) {
  std::string text;
  AppendDate(date, text);
  return text;
}

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
      json += '"';
      AppendDate(value.ToDate(), json);
      json += '"';
      return;
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

template <typename Has>
void JsonList::Begin(const Has& has) {
  if (count_++ > 0) {
    json_ += ",\n[";
    return;
  }
  json_ = "{\"colunas\":";
  char before = '[';
  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    if (!has(i)) continue;
    json_ += std::exchange(before, ',');
    AppendQuoted(table_.columns[i].name, json_);
  }
  json_ += "],\"linhas\":[[";
}

void JsonList::Add(const zorCrmParvel::RowValues& row, const Places& places) {
  Begin([](std::size_t) { return true; });
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (places[i] && row[*places[i]])
      AppendJson(table_.columns[i], *row[*places[i]], json_);
    else
      json_ += "null";
    json_ += ',';
  }
  json_.back() = ']';
}

void JsonList::Add(platform::Recordset& rows, std::size_t row, const Places& places) {
  Begin([&](std::size_t i) { return places[i].has_value(); });
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (!places[i]) continue;
    const FieldType type = tsql::FieldTypeOf(table_.columns[i].type.base);
    const Cell& cell = rows.CellAt(row, *places[i]);
    if (cell.IsNull())
      json_ += "null";
    else if (cell.type() == type)
      AppendCell(cell, json_);
    else
      AppendJson(table_.columns[i], platform::ConvertTo(type, cell.ToVariant()), json_);
    json_ += ',';
  }
  json_.back() = ']';
}

std::string JsonList::Take() {
  json_ += "]}";
  count_ = 0;
  return std::move(json_);
}

}  // namespace history
