#include "sqlserver/dialect.h"

namespace sqlserver {
namespace {

void TranslateNothing(Diagnostic&) {}

/// SQLite tells its failures apart by words and a few codes of its own.
void TranslateSqlite(Diagnostic& diagnostic) {
  constexpr int kConstraintCode = 19;
  constexpr int kReadOnlyCode = 8;
  constexpr std::string_view kNoTable = "no such table: ";
  constexpr std::string_view kNoColumn = "no such column: ";
  std::string& words = diagnostic.words;
  const auto rename = [&](std::string_view found, const char* start, const char* state) {
    const std::string name = words.substr(found.size(), words.find(" (") - found.size());
    words = std::string(start) + " name '" + name + "'.";
    diagnostic.state = state;
  };
  if (words.starts_with(kNoTable)) {
    rename(kNoTable, "Invalid object", "42S02");
  } else if (words.starts_with(kNoColumn)) {
    rename(kNoColumn, "Invalid column", "42S22");
  } else if (diagnostic.native == kConstraintCode) {
    diagnostic.state = "23000";
  } else if (diagnostic.native == kReadOnlyCode) {
    diagnostic.native = 3906;
  }
}

constexpr Dialect kSqlServer{.sessionSetup = "SET DATEFORMAT ymd",
                             .lastIdentity = "SELECT CAST(SCOPE_IDENTITY() AS int) AS Id",
                             .rowsHit = "SELECT @@ROWCOUNT AS Linhas",
                             .batches = true,
                             .announcesIdentity = true,
                             .batchTest = "SELECT CAST(XACT_STATE() AS int) AS Estado",
                             .numberedColumns =
                                 "SELECT t.name AS Tabela, c.name AS Coluna FROM sys.tables AS t "
                                 "INNER JOIN sys.identity_columns AS c ON c.object_id = t.object_id",
                             .collationTest =
                                 "SELECT CASE WHEN N'a' = N'A' THEN 1 ELSE 0 END AS c, "
                                 "CASE WHEN N'a' = N'á' THEN 1 ELSE 0 END AS a",
                             .tellsRights = true,
                             .takeTurn =
                                 "IF OBJECT_ID(N'parvel_vez') IS NOT NULL "
                                 "UPDATE parvel_vez WITH (TABLOCKX) SET Vez = 0",
                             .translate = &TranslateNothing};

constexpr Dialect kSqlite{.sessionSetup = "",
                          .lastIdentity = "SELECT last_insert_rowid() AS Id",
                          .rowsHit = "SELECT changes() AS Linhas",
                          .batches = false,
                          .announcesIdentity = false,
                          .batchTest = "",
                          .numberedColumns = "",
                          .collationTest = "",
                          .tellsRights = false,
                          .takeTurn = "",
                          .translate = &TranslateSqlite};

}  // namespace

const Dialect& Dialect::Of(std::string_view dbmsName) {
  return dbmsName.find("SQLite") != std::string_view::npos ? kSqlite : kSqlServer;
}

std::string Bracketed(std::string_view name) {
  std::string text = "[";
  for (const char c : name) text += c == ']' ? std::string("]]") : std::string(1, c);
  return text + "]";
}

}  // namespace sqlserver
