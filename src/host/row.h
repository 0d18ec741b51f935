#pragma once

#include <string>
#include <string_view>

#include "platform/recordset.h"

namespace zorCrmParvel {

/// The current row of a recordset, read and written by the columns' names as entities do. It follows the
/// recordset, which has to outlive it. Error 3265 for a column that isn't there.
class Row {
 public:
  explicit Row(platform::Recordset& rows) : rows_(rows) {}

  // Reading: error 94 when the column is null.
  std::string text(std::string_view column) const { return value(column).ToText(); }
  platform::Currency currency(std::string_view column) const { return value(column).ToCurrency(); }
  platform::Date date(std::string_view column) const { return value(column).ToDate(); }
  std::int16_t integer(std::string_view column) const { return value(column).ToInteger(); }
  std::int32_t number(std::string_view column) const { return value(column).ToLong(); }
  platform::Variant value(std::string_view column) const { return rows_.Fields(column).Value(); }
  // Reading where null has a meaning: the zero date, an empty text, 0.
  platform::Date dateOrZero(std::string_view column) const;
  std::string textOrEmpty(std::string_view column) const;
  std::int16_t integerOrZero(std::string_view column) const;

  /// Assigns a value as it stands.
  void put(std::string_view column, const platform::Variant& value) { rows_.Fields(column).SetValue(value); }
  /// Assigns a date, or null for the zero date.
  void putDateOrNull(std::string_view column, platform::Date date);
  /// Assigns a text cut to the column's width.
  void cut(std::string_view column, std::string_view text);

 private:
  platform::Recordset& rows_;
};

}  // namespace zorCrmParvel
