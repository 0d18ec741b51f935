#pragma once

#include <deque>
#include <vector>

#include "platform/recordset.h"
#include "sqlserver/odbc.h"

namespace sqlserver {

/// The values for the question marks of a statement, in their order.
class Parameters {
 public:
  /// A value for a column of the field's type and width, which the value already fits.
  void Add(const platform::FieldInfo& field, const platform::Variant& value);
  /// Binds all to a statement. They must live until it was executed.
  void Bind(const OdbcStatement& statement);
  void Clear() { all_.clear(); }

 private:
  struct Parameter {
    SQLSMALLINT valueType = SQL_C_CHAR;
    SQLSMALLINT columnType = SQL_VARCHAR;
    SQLULEN columnSize = 0;
    SQLSMALLINT decimals = 0;
    std::vector<char> bytes;
    SQLLEN length = SQL_NULL_DATA;
  };

  static Parameter TypeOf(const platform::FieldInfo& field);
  static void SetValue(Parameter& parameter, platform::FieldType type, const platform::Variant& value);

  std::deque<Parameter> all_;
};

}  // namespace sqlserver
