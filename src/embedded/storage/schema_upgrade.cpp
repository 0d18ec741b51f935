#include "embedded/storage/schema_upgrade.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "embedded/compiler/typed.h"
#include "embedded/storage/ddl.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "tsql/parser.h"

namespace embedded {
namespace {

using platform::EqualsIgnoringCase;
using Columns = std::vector<DeclaredColumn>;

const DeclaredColumn* Find(const Columns& columns, const std::string& name) {
  const auto found = std::find_if(columns.begin(), columns.end(), [&name](const DeclaredColumn& column) {
    return EqualsIgnoringCase(column.name, name);
  });
  return found == columns.end() ? nullptr : &*found;
}

/// The columns that a table has in the file; none when there is no such table.
Columns ExistingColumns(const SqliteConnection& connection, const std::string& table) {
  const SqliteStatement info(connection.get(),
                             "SELECT name, type, \"notnull\", pk FROM pragma_table_info(?)");
  info.BindText(1, table);
  Columns columns;
  while (info.Step())
    columns.push_back({info.Text(0), info.Text(1), info.Number(2) != 0, static_cast<int>(info.Number(3))});
  return columns;
}

std::optional<Kind> KindOfDeclared(const std::string& type) {
  if (type == "INTEGER") return Kind::kInt;
  try {
    const tsql::Catalog parsed = tsql::ParseSchema("CREATE TABLE t (c " + type + ")");
    return KindOf(parsed.tables().front().columns.front().type.base);
  } catch (const platform::RuntimeError&) {
    return std::nullopt;  // a type of another program: its values are copied as they are
  }
}

/// What stands in a column that takes no null and had no value.
const char* ZeroOf(Kind kind) {
  if (kind == Kind::kText) return "''";
  return kind == Kind::kBytes ? "x''" : "0";
}

/// The value of a new column from the row as it was.
std::string CopiedValue(const DeclaredColumn& now, const DeclaredColumn* before) {
  const std::optional<Kind> to = KindOfDeclared(now.type);
  Typed value;
  value.sql = "NULL";
  if (before != nullptr) {
    value.sql = QuotedName(before->name);
    value.kind = KindOfDeclared(before->type).value_or(to.value_or(Kind::kNull));
    Parameters none;
    if (to) value = Coerce(std::move(value), *to, none);
  }
  return now.notNull && to && !now.IsNumbered() ? Call("coalesce", value.sql, ZeroOf(*to)) : value.sql;
}

std::vector<std::string> Texts(const SqliteConnection& connection, const std::string& sql,
                               const std::string& argument) {
  const SqliteStatement statement(connection.get(), sql);
  statement.BindText(1, argument);
  std::vector<std::string> texts;
  while (statement.Step()) texts.push_back(statement.Text(0));
  return texts;
}

void Rebuild(const SqliteConnection& connection, const std::string& table, const Columns& before,
             const Columns& now) {
  const std::string temporary = table + "__nova";
  const std::string newName = QuotedName(temporary);
  const std::string oldName = QuotedName(table);
  const auto indexes = Texts(
      connection,
      "SELECT sql FROM sqlite_master WHERE type = 'index' AND tbl_name = ? COLLATE NOCASE AND sql <> ''",
      table);
  std::string names;
  std::string values;
  for (const DeclaredColumn& column : now) {
    names += (names.empty() ? "" : ", ") + QuotedName(column.name);
    values += (values.empty() ? "" : ", ") + CopiedValue(column, Find(before, column.name));
  }
  connection.Execute(CreateTableSql(temporary, now));
  connection.Execute("INSERT INTO " + newName + " (" + names + ") SELECT " + values + " FROM " + oldName);
  const bool wasNumbered =
      std::any_of(before.begin(), before.end(), [](const auto& c) { return c.IsNumbered(); });
  const bool isNumbered = std::any_of(now.begin(), now.end(), [](const auto& c) { return c.IsNumbered(); });
  if (wasNumbered && isNumbered) {  // numbers that were used once are not given again
    for (const char* sql :
         {"DELETE FROM sqlite_sequence WHERE name = ?1 || '__nova'",
          "INSERT INTO sqlite_sequence (name, seq) SELECT ?1 || '__nova', seq FROM sqlite_sequence "
          "WHERE name = ?1"})
      Texts(connection, sql, table);
  }
  connection.Execute("DROP TABLE " + oldName);
  connection.Execute("ALTER TABLE " + newName + " RENAME TO " + oldName);
  for (const std::string& index : indexes) connection.Execute(index);
}

void UpgradeTable(const SqliteConnection& connection, const tsql::Table& table) {
  Columns now = DeclaredColumns(table);
  const Columns before = ExistingColumns(connection, table.name);
  if (before.empty()) return connection.Execute(CreateTableSql(table.name, now));
  bool rebuild = false;
  Columns added;
  for (const DeclaredColumn& column : now) {
    const DeclaredColumn* existing = Find(before, column.name);
    // What is added stands last.
    if (existing == nullptr)
      added.push_back(column);
    else
      rebuild = rebuild || !added.empty();
    const bool addable = existing == nullptr && !column.notNull && column.keyPlace == 0;
    // SQLite tells "int" as "INT".
    const bool same = existing != nullptr && EqualsIgnoringCase(existing->type, column.type) &&
                      existing->notNull == column.notNull && existing->keyPlace == column.keyPlace;
    rebuild = rebuild || (!same && !addable);
  }
  for (DeclaredColumn column : before) {
    if (Find(now, column.name) != nullptr) continue;
    rebuild = rebuild || column.keyPlace != 0 || !added.empty();
    column.keyPlace = 0;
    now.push_back(std::move(column));
  }
  if (rebuild) return Rebuild(connection, table.name, before, now);
  for (const DeclaredColumn& column : added)
    connection.Execute("ALTER TABLE " + QuotedName(table.name) + " ADD COLUMN " + ColumnSql(column));
}

void UpgradeIndex(const SqliteConnection& connection, const SqliteIndex& index) {
  const auto existing =
      Texts(connection, "SELECT sql FROM sqlite_master WHERE type = 'index' AND name = ? COLLATE NOCASE",
            index.name);
  if (!existing.empty() && existing.front() == index.sql) return;
  connection.Execute("DROP INDEX IF EXISTS " + QuotedName(index.name));
  connection.Execute(index.sql);
}

}  // namespace

void UpgradeTables(const SqliteConnection& connection, const tsql::Catalog& catalog) {
  for (const tsql::Table& table : catalog.tables()) UpgradeTable(connection, table);
  for (const tsql::Table& table : catalog.tables())
    for (const tsql::Index& index : table.indexes)
      for (const SqliteIndex& wanted : SqliteIndexes(table, index)) UpgradeIndex(connection, wanted);
}

}  // namespace embedded
