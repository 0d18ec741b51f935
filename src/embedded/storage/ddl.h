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

struct SqliteIndex {
  std::string name;
  std::string sql;  // creates it
};

/// The columns of a table of the catalogue. Error -2147217900 when a column that is numbered is not the whole
/// key.
std::vector<DeclaredColumn> DeclaredColumns(const tsql::Table& table);
/// "name type COLLATE … NOT NULL".
std::string ColumnSql(const DeclaredColumn& column);
std::string CreateTableSql(const std::string& table, const std::vector<DeclaredColumn>& columns);
/// What is to be created for an index: itself, and for one of a text and a date a second index on both in one
/// text, by which the events of all vehicles are counted from a plate and a day on.
std::vector<SqliteIndex> SqliteIndexes(const tsql::Table& table, const tsql::Index& index);

}  // namespace embedded
