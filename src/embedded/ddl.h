#pragma once

#include <string>
#include <vector>

#include "tsql/catalog.h"

namespace embedded {

/// A column as SQLite declares it.
struct DeclaredColumn {
  std::string name;
  std::string type;  // the T-SQL type; "INTEGER" when the database numbers it
  bool notNull = false;
  int keyPlace = 0;  // from 1; 0: not in the primary key

  bool IsNumbered() const { return type == "INTEGER"; }
  friend bool operator==(const DeclaredColumn&, const DeclaredColumn&) = default;
};

/// The columns of a table of the catalogue. Error -2147217900 when a column that is numbered is not the whole
/// key.
std::vector<DeclaredColumn> DeclaredColumns(const tsql::Table& table);
/// "name type COLLATE … NOT NULL".
std::string ColumnSql(const DeclaredColumn& column);
std::string CreateTableSql(const std::string& table, const std::vector<DeclaredColumn>& columns);
std::string CreateIndexSql(const tsql::Index& index);

}  // namespace embedded
