#include "embedded/compiler/write_compiler.h"

#include <vector>

#include "embedded/compiler/expression_compiler.h"
#include "embedded/compiler/scope.h"
#include "embedded/compiler/server_error.h"
#include "platform/text.h"

namespace embedded {
namespace {

/// The columns of the assignments; each once, and none that the database numbers itself.
std::vector<const tsql::Column*> AssignedColumns(const tsql::Table& table,
                                                 const std::vector<tsql::Assignment>& assignments,
                                                 const std::string& identityWords) {
  std::vector<const tsql::Column*> columns;
  for (const tsql::Assignment& assignment : assignments) {
    const tsql::Column* column = table.Find(assignment.column);
    if (column == nullptr) RefuseColumn(assignment.column);
    if (column->identity) Refuse(identityWords);
    for (const tsql::Column* earlier : columns)
      if (earlier == column)
        Refuse("The column name '" + assignment.column +
               "' is specified more than once in the SET clause or column list of an INSERT.");
    columns.push_back(column);
  }
  return columns;
}

std::string ValueSql(ExpressionCompiler& expressions, const tsql::Assignment& assignment,
                     const tsql::Column& column, Parameters& parameters) {
  std::string sql = ForColumn(expressions.Value(*assignment.value), column, parameters).sql;
  if (expressions.sawAggregate()) Refuse("An aggregate may not appear in a value that is written.");
  return sql;
}

std::string Where(ExpressionCompiler& expressions, const tsql::ExpressionPtr& condition) {
  if (!condition) return {};
  std::string sql = " WHERE " + expressions.Condition(*condition);
  if (expressions.sawAggregate()) Refuse("An aggregate may not appear in the WHERE clause.");
  return sql;
}

}  // namespace

std::string CompileInsert(const tsql::Insert& insert, const tsql::Catalog& catalog, Parameters& parameters) {
  const tsql::Table& table = catalog.Get(insert.table.name);
  const auto columns = AssignedColumns(table, insert.values,
                                       "Cannot insert explicit value for identity column in table '" +
                                           table.name + "' when IDENTITY_INSERT is set to OFF.");
  const Scope nothing(catalog);
  ExpressionCompiler expressions(nothing, parameters);
  std::string names;
  std::string values;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    names += (i == 0 ? "" : ", ") + QuotedName(columns[i]->name);
    values += (i == 0 ? "" : ", ") + ValueSql(expressions, insert.values[i], *columns[i], parameters);
  }
  return "INSERT INTO " + QuotedName(table.name) + " (" + names + ") VALUES (" + values + ")";
}

std::string CompileUpdate(const tsql::Update& update, const tsql::Catalog& catalog, Parameters& parameters) {
  Scope scope(catalog);
  const Source& source = scope.Add(update.table);
  const auto columns = AssignedColumns(*source.table, update.assignments, "Cannot update identity column.");
  ExpressionCompiler expressions(scope, parameters);
  std::string sql = "UPDATE " + QuotedName(source.table->name) + " AS " + source.alias + " SET ";
  for (std::size_t i = 0; i < columns.size(); ++i)
    sql += (i == 0 ? "" : ", ") + QuotedName(columns[i]->name) + " = " +
           ValueSql(expressions, update.assignments[i], *columns[i], parameters);
  return sql + Where(expressions, update.where);
}

std::string CompileDelete(const tsql::Delete& removal, const tsql::Catalog& catalog, Parameters& parameters) {
  Scope scope(catalog);
  const Source& source = scope.Add(removal.table);
  ExpressionCompiler expressions(scope, parameters);
  return "DELETE FROM " + QuotedName(source.table->name) + " AS " + source.alias +
         Where(expressions, removal.where);
}

}  // namespace embedded
