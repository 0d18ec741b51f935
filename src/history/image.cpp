#include "history/image.h"

#include "history/digest.h"
#include "history/json.h"
#include "host/literal.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::FieldType;
using platform::Variant;

const Variant& KeyValue(const tsql::Table& table, const std::string& key, const Image& image) {
  for (std::size_t i = 0; i < image.size(); ++i)
    if (image[i] && platform::EqualsIgnoringCase(table.columns[i].name, key)) return *image[i];
  throw platform::RuntimeError(platform::kEngineFailure, "Histórico",
                               "Um registo do histórico não se lê: " + table.name + "." + key);
}

}  // namespace

bool HoldsBytes(const tsql::Column& column) { return column.type.base == tsql::BaseType::kVarBinary; }

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
  return zorCrmParvel::TextLiteral(value.ToText());
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

Places PlacesOf(const tsql::Table& table, const platform::Recordset& rows) {
  Places places;
  places.reserve(table.columns.size());
  for (const tsql::Column& column : table.columns) places.push_back(rows.FindField(column.name));
  return places;
}

Places PlacesOf(const tsql::Table& table, const std::vector<std::string>& names) {
  Places places(table.columns.size());
  for (std::size_t i = 0; i < places.size(); ++i)
    for (std::size_t j = 0; j < names.size(); ++j)
      if (platform::EqualsIgnoringCase(names[j], table.columns[i].name)) places[i] = j;
  return places;
}

Image ImageOf(const Places& places, const zorCrmParvel::RowValues& row) {
  Image image(places.size(), Variant::Null{});
  for (std::size_t i = 0; i < image.size(); ++i)
    if (places[i] && row[*places[i]]) image[i] = row[*places[i]];
  return image;
}

Image ImageAt(const tsql::Table& table, platform::Recordset& rows, std::size_t row, const Places& places) {
  Image image(places.size());
  for (std::size_t i = 0; i < image.size(); ++i)
    if (places[i])
      image[i] = platform::ConvertTo(tsql::FieldTypeOf(table.columns[i].type.base),
                                     rows.CellAt(row, *places[i]).ToVariant());
  return image;
}

std::vector<Image> ImagesOf(const tsql::Table& table, platform::Recordset& rows) {
  const Places places = PlacesOf(table, rows);
  std::vector<Image> images;
  while (rows.FetchMore(kRowsATime)) continue;
  images.reserve(rows.RowsAtHand());
  for (std::size_t row = 0; row < rows.RowsAtHand(); ++row)
    images.push_back(ImageAt(table, rows, row, places));
  return images;
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
