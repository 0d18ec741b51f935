#pragma once

#include <cstdint>
#include <string>

#include "embedded/storage/sqlite.h"
#include "tsql/catalog.h"

namespace embedded {

/// Marks a file as a database of this program.
inline constexpr std::int64_t kApplicationId = 0x50525646;

/// The tables that the program knows, and their version.
struct Schema {
  std::int64_t version = 0;
  tsql::Catalog catalog;

  /// Reads T-SQL DDL whose first line is "-- versão N".
  static Schema Parse(const std::string& text);
};

/// Creates the tables in an empty database, or brings those of an earlier version up to date, keeping all
/// rows. All or nothing. Raises -2147467259 for a database of another program or of a later version. Writes
/// nothing to a database that is up to date.
void BringUpToDate(const SqliteConnection& connection, const Schema& schema, const std::string& path);

/// Raises -2147467259: the database is of a later version than the program.
[[noreturn]] void RefuseNewer(const std::string& path, std::int64_t version, std::int64_t known);
/// Raises -2147467259: the file belongs to another program.
[[noreturn]] void RefuseForeign(const std::string& path);

}  // namespace embedded
