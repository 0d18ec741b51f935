#pragma once

#include <string>
#include <string_view>

#include "platform/recordset.h"

namespace zorCrmParvel {

/// The current row of a recordset, read and written by the columns' names as entities do.
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

  /// Assigns a value as it stands.
  void put(std::string_view column, const platform::Variant& value) { rows_.Fields(column).SetValue(value); }
  /// Assigns a text cut to the column's width.
  void cut(std::string_view column, std::string_view text);

 private:
  platform::Recordset& rows_;
};

}  // namespace zorCrmParvel
