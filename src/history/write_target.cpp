#include "history/write_target.h"

#include "platform/text.h"
#include "tsql/lexer.h"
#include "tsql/parser.h"

namespace history {
namespace {

/// From the word WHERE to the end: no part of a statement that writes nests another.
std::string ConditionOf(const std::string& statement) {
  tsql::Lexer lexer(statement);
  std::size_t begin = std::string::npos;
  std::size_t end = 0;
  for (tsql::Token token = lexer.Next(); token.kind != tsql::TokenKind::kEnd; token = lexer.Next()) {
    const bool word = token.kind == tsql::TokenKind::kName && !token.delimited;
    if (begin == std::string::npos && word && platform::EqualsIgnoringCase(token.text, "WHERE"))
      begin = token.begin;
    if (token.kind != tsql::TokenKind::kSymbol || token.text != ";") end = token.end;
  }
  return begin == std::string::npos ? "" : " " + statement.substr(begin, end - begin);
}

WriteTarget Target(WriteTarget::Kind kind, const tsql::TableRef& table, const tsql::Catalog& catalog) {
  return {.kind = kind,
          .name = table.name,
          .table = Recorded(table.name, catalog),
          .condition = {},
          .assigned = {}};
}

}  // namespace

const tsql::Table* Recorded(const std::string& table, const tsql::Catalog& catalog) {
  const bool own = platform::EqualsIgnoringCase(table.substr(0, 7), "parvel_");
  return own ? nullptr : catalog.Find(table);
}

std::optional<WriteTarget> WriteTarget::Of(const std::string& statement, const tsql::Catalog& catalog) {
  const tsql::StatementNode node = tsql::ParseStatement(statement);
  if (std::holds_alternative<tsql::Select>(node)) return {};
  if (const auto* insert = std::get_if<tsql::Insert>(&node)) {
    WriteTarget target = Target(Kind::kInsert, insert->table, catalog);
    for (const tsql::Assignment& each : insert->values) target.assigned.push_back(each.column);
    return target;
  }
  if (const auto* update = std::get_if<tsql::Update>(&node)) {
    WriteTarget target = Target(Kind::kUpdate, update->table, catalog);
    for (const tsql::Assignment& each : update->assignments) target.assigned.push_back(each.column);
    target.condition = ConditionOf(statement);
    return target;
  }
  WriteTarget target = Target(Kind::kDelete, std::get<tsql::Delete>(node).table, catalog);
  target.condition = ConditionOf(statement);
  return target;
}

/// The first table behind FROM; a list of columns may nest another statement.
const tsql::Table* EditedTable(const std::string& statement, const tsql::Catalog& catalog) {
  tsql::Lexer lexer(statement);
  int depth = 0;
  bool behindFrom = false;
  for (tsql::Token token = lexer.Next(); token.kind != tsql::TokenKind::kEnd; token = lexer.Next()) {
    if (behindFrom) return Recorded(std::string(token.text), catalog);
    if (token.kind == tsql::TokenKind::kSymbol) {
      depth += token.text == "(" ? 1 : 0;
      depth -= token.text == ")" ? 1 : 0;
    }
    const bool word = token.kind == tsql::TokenKind::kName && !token.delimited;
    behindFrom = word && depth == 0 && platform::EqualsIgnoringCase(token.text, "FROM");
  }
  return nullptr;
}

}  // namespace history
