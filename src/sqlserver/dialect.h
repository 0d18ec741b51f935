#pragma once

#include <string>
#include <string_view>

#include "sqlserver/odbc.h"

namespace sqlserver {

/// Where the servers behind ODBC differ. The engine is made for Microsoft SQL Server; SQLite behind its ODBC
/// driver stands in for it where no server is at hand.
struct Dialect {
  /// Run once on a new connection; empty: nothing.
  const char* sessionSetup;
  /// Gives the number that the last INSERT of the session made.
  const char* lastIdentity;
  /// Gives the number of rows that the statement before it hit.
  const char* rowsHit;
  /// True when several statements may be sent in one text. A batch is then begun and ended by statements.
  bool batches;
  /// True when a row with a number of its own must be announced for an identity column.
  bool announcesIdentity;
  /// Gives 1 while what a batch wrote before a failure still stands. Empty: it always does.
  const char* batchTest;
  /// Gives the names of all tables and of their columns that the server numbers. Empty: the driver tells.
  const char* numberedColumns;
  /// Gives two truth values: whether the database's texts ignore case, and accents. Empty: no such choice.
  const char* collationTest;
  /// True when it tells beforehand what a user may do with a table.
  bool tellsRights;
  /// The first statement in a batch: it waits until no other batch is under way, so that sums which a batch
  /// reads stay as they are until it ends. Empty: nothing.
  const char* takeTurn;
  /// Brings a diagnostic into the server's numbers.
  void (*translate)(Diagnostic& diagnostic);

  /// Chosen by SQL_DBMS_NAME.
  static const Dialect& Of(std::string_view dbmsName);
};

/// A name as it stands in a statement: "[name]".
std::string Bracketed(std::string_view name);

}  // namespace sqlserver
