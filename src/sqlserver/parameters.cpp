#include "sqlserver/parameters.h"

#include <algorithm>

#include "sqlserver/utf16.h"
#include "sqlserver/values.h"

namespace sqlserver {
namespace {

using platform::FieldType;

constexpr SQLULEN kMostCharacters = 4000;  // of nvarchar and varbinary that are not (max)
constexpr SQLULEN kMostBytes = 8000;

template <typename T>
std::vector<char> BytesOf(const T& value) {
  const auto* first = reinterpret_cast<const char*>(&value);
  return {first, first + sizeof value};
}

}  // namespace

void Parameters::Add(const platform::FieldInfo& field, const platform::Variant& value) {
  Parameter parameter = TypeOf(field);
  if (!value.IsNull()) {
    SetValue(parameter, field.type, value);
    parameter.length = static_cast<SQLLEN>(parameter.bytes.size());
  }
  const auto longest = std::max(parameter.bytes.size(), std::size_t{1});
  if (field.type == FieldType::kText) {
    const SQLULEN units = longest / sizeof(char16_t);
    if (units > kMostCharacters) parameter.columnType = SQL_WLONGVARCHAR;
    parameter.columnSize = std::max(units, parameter.columnSize);
  } else if (field.type == FieldType::kBytes) {
    if (longest > kMostBytes) parameter.columnType = SQL_LONGVARBINARY;
    parameter.columnSize = longest;
  }
  parameter.bytes.resize(longest);  // a buffer must have an address
  all_.push_back(std::move(parameter));
}

Parameters::Parameter Parameters::TypeOf(const platform::FieldInfo& field) {
  const auto typed = [](SQLSMALLINT value, SQLSMALLINT column, SQLULEN size, SQLSMALLINT decimals = 0) {
    Parameter parameter;
    parameter.valueType = value;
    parameter.columnType = column;
    parameter.columnSize = size;
    parameter.decimals = decimals;
    return parameter;
  };
  switch (field.type) {
    case FieldType::kBool:
      return typed(SQL_C_BIT, SQL_BIT, 1);
    case FieldType::kInteger:
      return typed(SQL_C_SSHORT, SQL_SMALLINT, 5);
    case FieldType::kLong:
      return typed(SQL_C_SLONG, SQL_INTEGER, 10);
    case FieldType::kDouble:
      return typed(SQL_C_DOUBLE, SQL_DOUBLE, 15);
    case FieldType::kCurrency:
      return typed(SQL_C_CHAR, SQL_DECIMAL, 19, 4);
    case FieldType::kDate:
      return typed(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 23, 3);
    case FieldType::kBytes:
      return typed(SQL_C_BINARY, SQL_VARBINARY, 1);
    case FieldType::kText:
      break;
  }
  const auto width = static_cast<SQLULEN>(std::max(field.definedSize, 1L));
  return typed(SQL_C_WCHAR, SQL_WVARCHAR, width > kMostCharacters ? 1 : width);
}

void Parameters::SetValue(Parameter& parameter, FieldType type, const platform::Variant& value) {
  switch (type) {
    case FieldType::kBool:
      parameter.bytes = BytesOf(static_cast<unsigned char>(value.ToBool() ? 1 : 0));
      return;
    case FieldType::kInteger:
      parameter.bytes = BytesOf(value.ToInteger());
      return;
    case FieldType::kLong:
      parameter.bytes = BytesOf(static_cast<SQLINTEGER>(value.ToLong()));
      return;
    case FieldType::kDouble:
      parameter.bytes = BytesOf(value.ToDouble());
      return;
    case FieldType::kCurrency: {
      const std::string text = MoneyText(value.ToCurrency());
      parameter.bytes.assign(text.begin(), text.end());
      return;
    }
    case FieldType::kDate:
      parameter.bytes = BytesOf(MomentOf(value.ToDate()));
      return;
    case FieldType::kText: {
      const std::u16string text = ToUtf16(value.ToText());
      const auto* first = reinterpret_cast<const char*>(text.data());
      parameter.bytes.assign(first, first + text.size() * sizeof(char16_t));
      return;
    }
    case FieldType::kBytes: {
      const platform::Bytes& bytes = value.ToBytes();
      parameter.bytes.assign(bytes.begin(), bytes.end());
      return;
    }
  }
}

void Parameters::Bind(const OdbcStatement& statement) {
  SQLUSMALLINT place = 0;
  for (Parameter& each : all_)
    statement.Check(SQLBindParameter(statement.get(), ++place, SQL_PARAM_INPUT, each.valueType,
                                     each.columnType, each.columnSize, each.decimals, each.bytes.data(),
                                     static_cast<SQLLEN>(each.bytes.size()), &each.length));
}

}  // namespace sqlserver
