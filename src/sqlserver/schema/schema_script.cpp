#include "sqlserver/schema/schema_script.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "sqlserver/dialect.h"
#include "sqlserver/session.h"
#include "tsql/catalog.h"
#include "tsql/lexer.h"
#include "tsql/parser.h"

namespace sqlserver {
namespace {

using platform::EqualsIgnoringCase;

struct Piece {
  std::string text;
  std::string table;
};

/// The statement up to the next semicolon; without text at the end.
Piece NextStatement(tsql::Lexer& lexer, std::string_view schema) {
  Piece piece;
  std::size_t begin = std::string_view::npos;
  std::size_t end = 0;
  bool named = false;  // the word before the table's name was read
  for (tsql::Token token = lexer.Next(); token.kind != tsql::TokenKind::kEnd; token = lexer.Next()) {
    if (token.kind == tsql::TokenKind::kSymbol && token.text == ";") {
      if (end == 0) continue;
      break;
    }
    if (end == 0) begin = token.begin;
    end = token.end;
    if (named && piece.table.empty()) piece.table = NameValue(token, schema);
    if (piece.table.empty())
      named = EqualsIgnoringCase(token.text, "TABLE") || EqualsIgnoringCase(token.text, "ON");
  }
  if (end > 0) piece.text = schema.substr(begin, end - begin);
  return piece;
}

}  // namespace

std::vector<TableScript> ScriptsOf(std::string_view schema) {
  tsql::ParseSchema(schema);
  std::vector<TableScript> scripts;
  tsql::Lexer lexer(schema);
  for (Piece piece = NextStatement(lexer, schema); !piece.text.empty();
       piece = NextStatement(lexer, schema)) {
    const auto found = std::find_if(scripts.begin(), scripts.end(), [&](const TableScript& each) {
      return EqualsIgnoringCase(each.table, piece.table);
    });
    if (found != scripts.end())
      found->statements.push_back(piece.text);
    else
      scripts.push_back({piece.table, {piece.text}});
  }
  return scripts;
}

bool HasTable(Session& session, const std::string& table) {
  try {
    session.Read("SELECT * FROM " + Bracketed(table) + " WHERE 1 = 0", [](ResultReader&) {});
    return true;
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidObject) throw;
    return false;
  }
}

std::vector<TableScript> LackingTables(Session& session, std::string_view schema) {
  std::vector<TableScript> scripts = ScriptsOf(schema);
  std::erase_if(scripts, [&](const TableScript& each) { return HasTable(session, each.table); });
  return scripts;
}

std::vector<std::string> CreateLackingTables(Database& database, std::string_view schema) {
  const std::vector<TableScript> lacking = LackingTables(database.session(), schema);
  std::vector<std::string> created;
  zorCrmParvel::Batch batch(database);
  Parameters none;
  for (const TableScript& script : lacking) {
    for (const std::string& statement : script.statements) database.session().Write(statement, none);
    created.push_back(script.table);
  }
  batch.Commit();
  return created;
}

}  // namespace sqlserver
