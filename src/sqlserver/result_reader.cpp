#include "sqlserver/result_reader.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "sqlserver/utf16.h"
#include "sqlserver/values.h"

namespace sqlserver {
namespace {

using platform::Cell;
using platform::FieldType;

constexpr std::size_t kMostBoundWidth = 8000;  // characters or bytes
constexpr std::size_t kMoneyCharacters = 48;
constexpr std::size_t kRowsBytes = 262144;
constexpr std::size_t kMostRows = 256;
constexpr std::size_t kPart = 65536;
constexpr std::size_t kLongestName = 512;

bool IsMoney(const std::string& typeName) {
  return platform::EqualsIgnoringCase(typeName.substr(0, 5), "money") ||
         platform::EqualsIgnoringCase(typeName.substr(0, 10), "smallmoney");
}

FieldType FieldTypeOf(SQLSMALLINT type, const std::string& typeName) {
  if (IsMoney(typeName)) return FieldType::kCurrency;
  switch (type) {
    case SQL_BIT:
      return FieldType::kBool;
    case SQL_TINYINT:
    case SQL_SMALLINT:
      return FieldType::kInteger;
    case SQL_INTEGER:
    case SQL_BIGINT:
      return FieldType::kLong;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return FieldType::kCurrency;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return FieldType::kDouble;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return FieldType::kDate;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return FieldType::kBytes;
    default:
      return FieldType::kText;
  }
}

/// How a value of fixed size is fetched, and the size that a field declares.
struct Shape {
  SQLSMALLINT valueType;
  std::size_t size;
  long definedSize;
};

Shape ShapeOf(FieldType type) {
  switch (type) {
    case FieldType::kBool:
      return {SQL_C_BIT, 1, 2};
    case FieldType::kInteger:
      return {SQL_C_SSHORT, sizeof(SQLSMALLINT), 2};
    case FieldType::kLong:
      return {SQL_C_SBIGINT, sizeof(SQLBIGINT), 4};
    case FieldType::kDouble:
      return {SQL_C_DOUBLE, sizeof(SQLDOUBLE), 8};
    case FieldType::kCurrency:
      return {SQL_C_CHAR, kMoneyCharacters, 8};
    case FieldType::kDate:
      return {SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT), 16};
    case FieldType::kText:
      return {SQL_C_WCHAR, 0, 0};
    case FieldType::kBytes:
      return {SQL_C_BINARY, 0, 0};
  }
  return {};
}

bool IsLong(SQLSMALLINT type, SQLULEN width) {
  return type == SQL_LONGVARCHAR || type == SQL_WLONGVARCHAR || type == SQL_LONGVARBINARY || width == 0 ||
         width > kMostBoundWidth;
}

template <typename T>
T As(const char* value) {
  T out;
  std::memcpy(&out, value, sizeof out);
  return out;
}

Cell WholeCell(std::int64_t number) {
  if (number != static_cast<std::int32_t>(number))
    throw platform::RuntimeError(platform::kStatementRefused, "",
                                 "Arithmetic overflow error converting expression to data type int.");
  return Cell::Number(FieldType::kLong, number);
}

}  // namespace

ResultReader::ResultReader(const OdbcStatement& statement) : statement_(statement) {
  const SQLSMALLINT columns = statement_.Columns();
  for (SQLSMALLINT i = 1; i <= columns; ++i) Describe(static_cast<SQLUSMALLINT>(i));
  bound_ = static_cast<std::size_t>(
      std::find_if(columns_.begin(), columns_.end(), [](const Column& c) { return c.size == 0; }) -
      columns_.begin());
}

void ResultReader::Describe(SQLUSMALLINT number) {
  std::array<SQLWCHAR, kLongestName> name{};
  SQLSMALLINT nameLength = 0;
  SQLSMALLINT type = 0;
  SQLULEN width = 0;
  SQLSMALLINT decimals = 0;
  SQLSMALLINT nullable = 0;
  statement_.Check(SQLDescribeColW(statement_.get(), number, name.data(),
                                   static_cast<SQLSMALLINT>(name.size()), &nameLength, &type, &width,
                                   &decimals, &nullable));
  Column column;
  column.type = FieldTypeOf(type, statement_.Text(number, SQL_DESC_TYPE_NAME));
  const Shape shape = ShapeOf(column.type);
  column.valueType = shape.valueType;
  column.size = shape.size;
  long definedSize = shape.definedSize;
  if (shape.size == 0) {
    definedSize = width > 0 && width <= kMostBoundWidth ? static_cast<long>(width) : platform::kUnlimitedSize;
    if (!IsLong(type, width))
      column.size = column.type == FieldType::kText ? (width + 1) * sizeof(SQLWCHAR) : width;
  }
  const auto* text = reinterpret_cast<const char16_t*>(name.data());
  fields_.push_back({ToUtf8({text, std::char_traits<char16_t>::length(text)}), column.type, definedSize,
                     nullable != SQL_NO_NULLS});
  columns_.push_back(std::move(column));
}

bool ResultReader::IsNumbered(std::size_t column) const {
  return statement_.Number(static_cast<SQLUSMALLINT>(column + 1), SQL_DESC_AUTO_UNIQUE_VALUE) != 0;
}

void ResultReader::Bind() {
  std::size_t rowBytes = 1;
  for (const Column& column : columns_) rowBytes += column.size;
  const bool block = bound_ == columns_.size();
  const std::size_t rows = block ? std::clamp(kRowsBytes / rowBytes, std::size_t{1}, kMostRows) : 1;
  states_.assign(rows, SQL_ROW_SUCCESS);
  statement_.Set(SQL_ATTR_ROW_BIND_TYPE, SQL_BIND_BY_COLUMN);
  statement_.Set(SQL_ATTR_ROW_ARRAY_SIZE, rows);
  statement_.Set(SQL_ATTR_ROW_STATUS_PTR, reinterpret_cast<SQLULEN>(states_.data()));
  statement_.Set(SQL_ATTR_ROWS_FETCHED_PTR, reinterpret_cast<SQLULEN>(&fetched_));
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    Column& column = columns_[i];
    column.values.resize(std::max(column.size, std::size_t{1}) * rows);
    column.lengths.assign(rows, SQL_NULL_DATA);
    if (i < bound_)
      statement_.Check(SQLBindCol(statement_.get(), static_cast<SQLUSMALLINT>(i + 1), column.valueType,
                                  column.values.data(), static_cast<SQLLEN>(column.size),
                                  column.lengths.data()));
  }
}

void ResultReader::ReadAll(platform::RowStore& store) {
  Bind();
  while (Fetch()) {
    for (std::size_t i = 0; i < fetched_; ++i) {
      if (states_[i] == SQL_ROW_NOROW) continue;
      if (states_[i] == SQL_ROW_ERROR) statement_.Fail(SQL_ERROR);
      Keep(store, i);
    }
  }
}

bool ResultReader::Fetch() {
  fetched_ = 0;
  return statement_.Fetch();
}

void ResultReader::Keep(platform::RowStore& store, std::size_t row) {
  const std::size_t kept = store.AddRow();
  ++rows_;
  for (std::size_t i = 0; i < bound_; ++i) store.Put(kept, i, CellOf(columns_[i], row));
  if (bound_ < columns_.size()) ReadUnbound(store, kept);
}

void ResultReader::ReadUnbound(platform::RowStore& store, std::size_t row) {
  for (std::size_t i = bound_; i < columns_.size(); ++i) {
    Column& column = columns_[i];
    const auto number = static_cast<SQLUSMALLINT>(i + 1);
    if (column.size == 0) {
      store.Put(row, i, ReadLong(number, column));
      continue;
    }
    statement_.Get(number, column.valueType, column.values.data(), static_cast<SQLLEN>(column.size),
                   column.lengths.data());
    store.Put(row, i, CellOf(column, 0));
  }
}

Cell ResultReader::ReadLong(SQLUSMALLINT number, const Column& column) {
  const bool text = column.type == FieldType::kText;
  const std::size_t room = text ? kPart - sizeof(SQLWCHAR) : kPart;  // a text ends with a zero
  std::string whole;
  std::vector<char> part(kPart);
  bool anything = false;
  while (true) {
    SQLLEN left = 0;
    if (!statement_.Get(number, column.valueType, part.data(), static_cast<SQLLEN>(part.size()), &left))
      break;
    if (left == SQL_NULL_DATA) return {};
    anything = true;
    const bool more = left == SQL_NO_TOTAL || static_cast<std::size_t>(left) > room;
    whole.append(part.data(), more ? room : static_cast<std::size_t>(left));
    if (!more) break;
  }
  if (!anything) return {};
  bytes_ += static_cast<long>(whole.size());
  if (!text) {
    scratch_ = std::move(whole);
    return Cell::Block(FieldType::kBytes, scratch_);
  }
  std::u16string units(whole.size() / sizeof(char16_t), u'\0');
  std::memcpy(units.data(), whole.data(), units.size() * sizeof(char16_t));
  return TextCell(units);
}

Cell ResultReader::TextCell(std::u16string_view text) {
  scratch_.clear();
  AppendUtf8(text, scratch_);
  return Cell::Block(FieldType::kText, scratch_);
}

Cell ResultReader::CellOf(const Column& column, std::size_t row) {
  const SQLLEN length = column.lengths[row];
  if (length == SQL_NULL_DATA) return {};
  bytes_ += static_cast<long>(length);
  const char* value = column.values.data() + row * column.size;
  switch (column.type) {
    case FieldType::kBool:
      return Cell::Number(column.type, *value != 0 ? 1 : 0);
    case FieldType::kInteger:
      return Cell::Number(column.type, As<SQLSMALLINT>(value));
    case FieldType::kLong:
      return WholeCell(As<SQLBIGINT>(value));
    case FieldType::kDouble:
      return Cell::Real(As<SQLDOUBLE>(value));
    case FieldType::kCurrency:
      return Cell::Number(column.type, MoneyFromText({value, static_cast<std::size_t>(length)}));
    case FieldType::kDate:
      return Cell::Number(column.type, SecondsOf(As<SQL_TIMESTAMP_STRUCT>(value)));
    case FieldType::kText:
    case FieldType::kBytes:
      break;
  }
  const std::size_t room = column.size - (column.type == FieldType::kText ? sizeof(SQLWCHAR) : 0);
  if (length < 0 || static_cast<std::size_t>(length) > room)
    throw platform::RuntimeError(platform::kEngineFailure, "ODBC",
                                 "O servidor enviou um texto maior do que a coluna declara.");
  if (column.type == FieldType::kBytes)
    return Cell::Block(column.type, {value, static_cast<std::size_t>(length)});
  return TextCell(
      {reinterpret_cast<const char16_t*>(value), static_cast<std::size_t>(length) / sizeof(char16_t)});
}

}  // namespace sqlserver
