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

Date MomentOf(const std::string& text) {
  Date date;
  if (!Date::TryParse(text, date)) Unreadable(text);
  return date;
}

// The value for a column of a type; empty where it has no such values.

template <typename Number>
auto NumberFor(Number number) {
  return [number](FieldType type) -> Variant {
    if (type == FieldType::kInteger) return static_cast<std::int16_t>(number);
    if (type == FieldType::kLong) return static_cast<std::int32_t>(number);
    if (type == FieldType::kDouble) return static_cast<double>(number);
    return {};
  };
}

Variant TextFor(FieldType type, std::string& text) {
  if (type == FieldType::kCurrency) return MoneyOf(text);
  if (type == FieldType::kDate) return MomentOf(text);
  if (type == FieldType::kText || type == FieldType::kBytes) return std::move(text);
  return {};
}

/// Takes the values of a text as they are read, of which it makes rows: an object is one, and so is a list
/// within `"linhas":[…]`, whose columns `"colunas":[…]` named.
class RowsReader : public nlohmann::json_sax<json> {
 public:
  explicit RowsReader(const tsql::Table& table) : table_(table) {
    for (const tsql::Column& column : table.columns) types_.push_back(tsql::FieldTypeOf(column.type.base));
  }

  std::vector<Image> Take() { return std::move(rows_); }

  bool start_object(std::size_t) override {
    rows_.emplace_back(types_.size());
    return true;
  }
  bool end_object() override { return true; }
  bool key(string_t& name) override {
    names_ = name == "colunas";
    list_ = list_ || name == "linhas";
    if (names_ || list_) rows_.clear();  // the object that they stand in is no row
    place_ = PlaceOf(name);
    return true;
  }
  bool start_array(std::size_t) override {
    if (++depth_ == 1) return Require(rows_.empty());
    rows_.emplace_back(types_.size());
    next_ = 0;
    return Require(depth_ == 2 && list_);
  }
  bool end_array() override {
    names_ = false;
    return Require(--depth_ == 0 || next_ == places_.size());
  }

  bool null() override {
    return Put([](FieldType) { return Variant(Variant::Null{}); });
  }
  bool boolean(bool value) override {
    return Put([&](FieldType type) { return type == FieldType::kBool ? Variant(value) : Variant(); });
  }
  bool number_integer(number_integer_t value) override { return Put(NumberFor(value)); }
  bool number_unsigned(number_unsigned_t value) override { return Put(NumberFor(value)); }
  bool number_float(number_float_t value, const string_t&) override {
    return Put([&](FieldType type) { return type == FieldType::kDouble ? Variant(value) : Variant(); });
  }
  bool string(string_t& text) override {
    if (!names_) return Put([&](FieldType type) { return TextFor(type, text); });
    places_.push_back(PlaceOf(text));
    return true;
  }
  bool binary(binary_t&) override { return false; }
  bool parse_error(std::size_t, const std::string&, const json::exception& error) override {
    Unreadable(error.what());
  }

 private:
  static constexpr auto kNone = static_cast<std::size_t>(-1);

  std::size_t PlaceOf(const std::string& name) const {
    for (std::size_t i = 0; i < types_.size(); ++i)
      if (table_.columns[i].name == name) return i;
    return kNone;
  }

  /// `make` gives the value for the column where it belongs.
  template <typename Make>
  bool Put(const Make& make) {
    const std::size_t place = depth_ < 2 ? place_ : next_ < places_.size() ? places_[next_] : kNone;
    ++next_;
    if (rows_.empty()) Unreadable("não há coluna para um valor");
    if (place == kNone) return true;
    Variant value = make(types_[place]);
    if (value.IsEmpty()) Unreadable(table_.columns[place].name);
    rows_.back()[place] = std::move(value);
    return true;
  }

  static bool Require(bool sound) {
    if (!sound) Unreadable("uma lista fora do seu lugar");
    return true;
  }

  const tsql::Table& table_;
  std::vector<FieldType> types_;
  std::vector<Image> rows_;
  std::vector<std::size_t> places_;  // of the list's columns in the table's
  std::size_t place_ = kNone;        // of the value to come in an object
  std::size_t next_ = 0;             // of it in a row of a list
  int depth_ = 0;                    // of lists
  bool names_ = false;               // the list under way is that of the columns
  bool list_ = false;
};

}  // namespace

std::vector<Image> FromJson(const tsql::Table& table, std::string_view text) {
  RowsReader reader(table);
  json::sax_parse(text, &reader);
  return reader.Take();
}

}  // namespace history
