#pragma once

#include <optional>

#include "sqlserver/odbc.h"

namespace sqlserver {

/// Goes to the next result that has rows; false when there is none.
inline bool AtRows(const OdbcStatement& statement) {
  while (statement.Columns() == 0)
    if (!statement.NextResult()) return false;
  return true;
}

/// The number in the last row of a result, which is read to its end.
inline std::optional<long> NumberHere(const OdbcStatement& statement) {
  std::optional<long> found;
  while (statement.Fetch()) {
    SQLINTEGER number = 0;
    SQLLEN length = SQL_NULL_DATA;
    statement.Get(1, SQL_C_SLONG, &number, sizeof number, &length);
    if (length != SQL_NULL_DATA) found = number;
  }
  return found;
}

/// The number in the last result that has one; all of them are read to their end, so that no failure behind
/// them is missed.
inline std::optional<long> NumberIn(const OdbcStatement& statement) {
  std::optional<long> found;
  while (AtRows(statement)) {
    if (const auto number = NumberHere(statement)) found = number;
    if (!statement.NextResult()) break;
  }
  return found;
}

}  // namespace sqlserver
