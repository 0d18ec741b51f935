#include "sqlserver/rows/editable_rows.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "sqlserver/dialect.h"
#include "tsql/lexer.h"
#include "tsql/parser.h"

namespace sqlserver {
namespace {

using platform::EqualsIgnoringCase;

[[noreturn]] void Refuse(const char* words) {
  throw platform::RuntimeError(platform::kStatementRefused, "", words);
}

bool IsAggregate(const tsql::Expression& expression) {
  const auto* call = std::get_if<tsql::FunctionCall>(&expression.node);
  return call != nullptr && (call->star || EqualsIgnoringCase(call->name, "count") ||
                             EqualsIgnoringCase(call->name, "sum") || EqualsIgnoringCase(call->name, "avg") ||
                             EqualsIgnoringCase(call->name, "min") || EqualsIgnoringCase(call->name, "max"));
}

/// The one SELECT of the statement, over one table.
const tsql::SelectCore& PlainCore(const tsql::StatementNode& node) {
  const auto* select = std::get_if<tsql::Select>(&node);
  if (select == nullptr) Refuse("Only the rows of a SELECT statement can be opened for editing.");
  const tsql::SelectCore& core = select->cores.front();
  const bool aggregates = std::any_of(core.items.begin(), core.items.end(), [](const tsql::SelectItem& item) {
    return !item.star && IsAggregate(*item.expression);
  });
  if (select->cores.size() > 1 || core.distinct || !core.from || !core.joins.empty() || aggregates)
    Refuse("Only rows of a single table can be opened for editing.");
  return core;
}

/// Where the FROM before a table begins.
std::size_t FromBefore(const std::string& statement, std::size_t table) {
  tsql::Lexer lexer(statement);
  std::size_t from = 0;
  for (tsql::Token token = lexer.Next(); token.begin < table; token = lexer.Next()) from = token.begin;
  return from;
}

}  // namespace

EditableRows EditableRows::Of(const std::string& statement, const tsql::Catalog& catalog) {
  const tsql::StatementNode node = tsql::ParseStatement(statement);
  const tsql::SelectCore& core = PlainCore(node);
  EditableRows rows;
  rows.table = &catalog.Get(core.from->name);
  rows.statement = statement;
  for (const tsql::SelectItem& item : core.items) {
    if (item.star) {
      rows.columns.clear();
      return rows;
    }
    const auto* column = std::get_if<tsql::ColumnRef>(&item.expression->node);
    rows.columns.push_back(column == nullptr ? std::string() : column->name);
  }
  std::string lacking;
  for (const std::string& key : rows.table->primaryKey) {
    const bool there = std::any_of(rows.columns.begin(), rows.columns.end(),
                                   [&](const std::string& each) { return EqualsIgnoringCase(each, key); });
    if (there) continue;
    lacking += ", " + Bracketed(core.from->Qualifier()) + "." + Bracketed(key);
    ++rows.addedKeys;
  }
  if (!lacking.empty()) rows.statement.insert(FromBefore(statement, core.from->offset), lacking + " ");
  return rows;
}

}  // namespace sqlserver
