#include "embedded/storage/ddl.h"

#include <algorithm>

#include "embedded/compiler/server_error.h"
#include "embedded/compiler/value_kind.h"
#include "embedded/storage/sqlite.h"
#include "platform/text.h"

namespace embedded {
namespace {

int KeyPlace(const tsql::Table& table, const std::string& column) {
  for (std::size_t i = 0; i < table.primaryKey.size(); ++i)
    if (platform::EqualsIgnoringCase(table.primaryKey[i], column)) return static_cast<int>(i + 1);
  return 0;
}

std::string KeySql(std::vector<DeclaredColumn> columns) {
  std::erase_if(columns,
                [](const DeclaredColumn& column) { return column.keyPlace == 0 || column.IsNumbered(); });
  std::sort(columns.begin(), columns.end(),
            [](const DeclaredColumn& a, const DeclaredColumn& b) { return a.keyPlace < b.keyPlace; });
  std::string key;
  for (const DeclaredColumn& column : columns) key += (key.empty() ? "" : ", ") + QuotedName(column.name);
  return key.empty() ? "" : ", PRIMARY KEY (" + key + ")";
}

bool IsWalk(const tsql::Table& table, const tsql::Index& index) {
  const auto kindAt = [&](std::size_t i) { return KindOf(table.Find(index.columns[i])->type.base); };
  return index.columns.size() == 2 && kindAt(0) == Kind::kText && kindAt(1) == Kind::kDate;
}

/// As the statements of the walk compile, for SQLite to know it again.
std::string WalkKey(const tsql::Index& index) {
  return "(sv_left((" + QuotedName(index.columns[0]) + " || '000000000000000 '), 15) || sv_date_text(" +
         QuotedName(index.columns[1]) + ", 102)) COLLATE SERVER";
}

std::string CreateIndexSql(const std::string& create, const std::string& name, const std::string& table,
                           const std::string& terms) {
  return create + QuotedName(name) + " ON " + QuotedName(table) + " (" + terms + ")";
}

}  // namespace

std::vector<DeclaredColumn> DeclaredColumns(const tsql::Table& table) {
  std::vector<DeclaredColumn> columns;
  for (const tsql::Column& column : table.columns) {
    DeclaredColumn declared{column.name, column.type.ToText(), !column.nullable,
                            KeyPlace(table, column.name)};
    if (column.identity) {
      if (declared.keyPlace != 1 || table.primaryKey.size() != 1)
        Refuse("Identity column '" + column.name + "' of table '" + table.name +
               "' must be its primary key.");
      declared.type = "INTEGER";
    }
    columns.push_back(std::move(declared));
  }
  return columns;
}

std::string ColumnSql(const DeclaredColumn& column) {
  std::string sql = QuotedName(column.name) + " ";
  sql += column.IsNumbered() ? "INTEGER PRIMARY KEY AUTOINCREMENT" : QuotedName(column.type);
  if (column.type.find("char") != std::string::npos) sql += " COLLATE SERVER";
  return sql + (column.notNull ? " NOT NULL" : "");
}

std::string CreateTableSql(const std::string& table, const std::vector<DeclaredColumn>& columns) {
  std::string list;
  for (const DeclaredColumn& column : columns) list += (list.empty() ? "" : ", ") + ColumnSql(column);
  return "CREATE TABLE " + QuotedName(table) + " (" + list + KeySql(columns) + ")";
}

std::vector<SqliteIndex> SqliteIndexes(const tsql::Table& table, const tsql::Index& index) {
  std::string columns;
  for (const std::string& column : index.columns)
    columns += (columns.empty() ? "" : ", ") + QuotedName(column);
  const std::string unique = index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
  std::vector<SqliteIndex> indexes{{index.name, CreateIndexSql(unique, index.name, table.name, columns)}};
  if (IsWalk(table, index)) {
    const std::string name = index.name + "_Percurso";
    indexes.push_back({name, CreateIndexSql("CREATE INDEX ", name, table.name, WalkKey(index))});
  }
  return indexes;
}

}  // namespace embedded
