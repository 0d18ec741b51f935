#include <algorithm>
#include <charconv>

#include "history/json.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::Currency;
using platform::Date;
using platform::FieldType;
using platform::Variant;

/// What is not as this program writes it.
struct Unreadable {};

template <typename Number>
Number NumberOf(std::string_view text) {
  Number number{};
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc{} || read.ptr != text.data() + text.size()) throw Unreadable();
  return number;
}

Currency MoneyOf(std::string_view text) {
  constexpr std::size_t kDecimals = 4;
  const std::size_t point = std::min(text.find('.'), text.size());
  std::string digits(text.substr(0, point));
  const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  if (decimals.size() > kDecimals) throw Unreadable();
  digits.append(decimals).append(kDecimals - decimals.size(), '0');
  return Currency::FromTenThousandths(NumberOf<std::int64_t>(digits));
}

/// "2026-11-24 10:12:00".
Date DateOf(std::string_view text) {
  constexpr std::size_t kLength = 19;
  if (text.size() != kLength) throw Unreadable();
  const auto part = [&](std::size_t from, std::size_t length) {
    return NumberOf<int>(text.substr(from, length));
  };
  Date date;
  const int second = (part(11, 2) * 60 + part(14, 2)) * 60 + part(17, 2);
  if (!Date::TryFromParts(part(0, 4), part(5, 2), part(8, 2), second, date)) throw Unreadable();
  return date;
}

constexpr std::string_view kList = "{\"colunas\":[";
constexpr std::string_view kRows = "],\"linhas\":[";

/// Reads the text from its beginning to its end, once.
class Reader {
 public:
  Reader(const tsql::Table& table, std::string_view text) : table_(table), rest_(text) {}

  std::vector<Image> Rows() {
    std::vector<Image> rows;
    if (rest_.starts_with(kList)) {
      List(rows);
    } else if (!Take('[')) {
      rows.push_back(Row());
    } else {
      do {
        Take('\n');
        rows.push_back(Row());
      } while (Take(','));
      Need(']');
    }
    if (!rest_.empty()) throw Unreadable();
    return rows;
  }

 private:
  bool Take(char c) {
    if (!rest_.starts_with(c)) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void Need(char c) {
    if (!Take(c)) throw Unreadable();
  }

  void List(std::vector<Image>& rows) {
    rest_.remove_prefix(kList.size());
    std::vector<std::size_t> columns;
    do columns.push_back(ColumnOf(Text(), columns.empty() ? 0 : columns.back() + 1));
    while (Take(','));
    if (!rest_.starts_with(kRows)) throw Unreadable();
    rest_.remove_prefix(kRows.size());
    do {
      Take('\n');
      Need('[');
      Image& row = rows.emplace_back(table_.columns.size());
      for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i > 0) Need(',');
        ReadInto(row, columns[i]);
      }
      Need(']');
    } while (Take(','));
    Need(']');
    Need('}');
  }

  void ReadInto(Image& row, std::size_t column) {
    if (column < row.size())
      row[column] = Value(tsql::FieldTypeOf(table_.columns[column].type.base));
    else
      Skip();
  }

  Image Row() {
    Image row(table_.columns.size());
    Need('{');
    if (Take('}')) return row;
    std::size_t expected = 0;
    do {
      const std::size_t column = ColumnOf(Text(), expected);
      expected = column + 1;
      Need(':');
      ReadInto(row, column);
    } while (Take(','));
    Need('}');
    return row;
  }

  /// Columns stand mostly in their order. One that the table no longer has is behind all.
  std::size_t ColumnOf(std::string_view name, std::size_t expected) const {
    const auto& columns = table_.columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
      if (const std::size_t place = (expected + i) % columns.size(); columns[place].name == name)
        return place;
    return columns.size();
  }

  Variant Value(FieldType type) {
    if (rest_.starts_with("null")) {
      Word();
      return Variant::Null{};
    }
    switch (type) {
      case FieldType::kBool:
        return Word() == "true";
      case FieldType::kInteger:
        return NumberOf<std::int16_t>(Word());
      case FieldType::kLong:
        return NumberOf<std::int32_t>(Word());
      case FieldType::kDouble:
        return NumberOf<double>(Word());
      case FieldType::kCurrency:
        return MoneyOf(Text());
      case FieldType::kDate:
        return DateOf(Text());
      case FieldType::kText:
      case FieldType::kBytes:
        break;
    }
    return Text();
  }

  void Skip() {
    if (rest_.starts_with('"'))
      Text();
    else
      Word();
  }

  /// A number, or a word of its own.
  std::string_view Word() {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(",}]"));
    rest_.remove_prefix(word.size());
    return word;
  }

  /// What stands between quotes; good until the next.
  std::string_view Text() {
    Need('"');
    const std::size_t end = rest_.find_first_of("\"\\");
    if (end == std::string_view::npos) throw Unreadable();
    if (rest_[end] == '\\') return Unescaped();
    const std::string_view text = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    return text;
  }

  std::string_view Unescaped() {
    unescaped_.clear();
    while (!rest_.starts_with('"')) {
      const std::size_t plain = rest_.find_first_of("\"\\");
      if (plain == std::string_view::npos) throw Unreadable();
      unescaped_.append(rest_.substr(0, plain));
      rest_.remove_prefix(plain);
      if (rest_.starts_with('\\')) unescaped_ += Escape();
    }
    rest_.remove_prefix(1);
    return unescaped_;
  }

  char Escape() {
    constexpr std::size_t kLongest = 6;
    const std::string_view escape = rest_.substr(0, rest_.starts_with("\\u") ? kLongest : 2);
    rest_.remove_prefix(escape.size());
    if (escape == "\\\"" || escape == "\\\\") return escape[1];
    int code = 0;
    if (escape.size() != kLongest ||
        std::from_chars(&escape[2], &escape[5] + 1, code, 16).ptr != &escape[5] + 1)
      throw Unreadable();
    return static_cast<char>(code);
  }

  const tsql::Table& table_;
  std::string_view rest_;
  std::string unescaped_;
};

}  // namespace

std::vector<Image> FromJson(const tsql::Table& table, std::string_view json) {
  try {
    return Reader(table, json).Rows();
  } catch (const Unreadable&) {
    constexpr std::size_t kShown = 80;
    throw platform::RuntimeError(
        platform::kEngineFailure, "Histórico",
        "Um registo do histórico não se lê: " + platform::Left(std::string(json), kShown));
  }
}

}  // namespace history
