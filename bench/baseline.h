#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/storage/collation.h"

/// What the benches need of SQLite's own interface, on a file that the engine made.
namespace bench {

/// A folder that goes when the bench ends.
class Folder {
 public:
  explicit Folder(const std::string& name) : path_(std::filesystem::temp_directory_path() / name) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string File() const { return (path_ / "bench.parvel").string(); }

 private:
  std::filesystem::path path_;
};

struct Closer {
  void operator()(sqlite3* connection) const { sqlite3_close(connection); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using ConnectionPtr = std::unique_ptr<sqlite3, Closer>;
using StatementPtr = std::unique_ptr<sqlite3_stmt, Closer>;

inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// Set up as the engine's connection is: the same order, durable commits, no locks between threads.
inline ConnectionPtr Connect(const std::string& file) {
  sqlite3* connection = nullptr;
  Require(sqlite3_open_v2(file.c_str(), &connection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) ==
          SQLITE_OK);
  embedded::RegisterCollation(connection);
  Require(sqlite3_exec(connection, "PRAGMA synchronous = FULL; PRAGMA cache_size = -16384", nullptr, nullptr,
                       nullptr) == SQLITE_OK);
  return ConnectionPtr(connection);
}

/// Names of columns.
using Columns = std::vector<std::string_view>;

/// Steps a statement to its end and takes the values of the columns named from every row; without names, all.
inline void StepThrough(sqlite3_stmt* statement, const Columns& names = {}) {
  std::vector<int> columns;
  for (int i = 0; i < sqlite3_column_count(statement); ++i)
    if (names.empty() ||
        std::find(names.begin(), names.end(), sqlite3_column_name(statement, i)) != names.end())
      columns.push_back(i);
  sqlite3_int64 sum = 0;
  while (sqlite3_step(statement) == SQLITE_ROW)
    for (const int i : columns)
      if (sqlite3_column_type(statement, i) == SQLITE_TEXT)
        sum += sqlite3_column_bytes(statement, i);
      else
        sum += sqlite3_column_int64(statement, i) & 1;
  Require(sum >= 0);
  sqlite3_reset(statement);
}

inline StatementPtr Prepare(sqlite3* connection, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  Require(sqlite3_prepare_v3(connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) ==
          SQLITE_OK);
  return StatementPtr(statement);
}

/// An INSERT of rows of zor_PV_Marcas: codes M10000, M10001, … and names.
inline std::string CodesToInsert(int rows) {
  return "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
         std::to_string(rows) +
         ") INSERT INTO zor_PV_Marcas (Codigo, Nome) SELECT 'M' || (i + 10000), 'Marca número ' || i FROM n";
}

/// Runs it on a file.
inline void FillCodes(const std::string& file, int rows) {
  const ConnectionPtr connection = Connect(file);
  Require(sqlite3_exec(connection.get(), CodesToInsert(rows).c_str(), nullptr, nullptr, nullptr) ==
          SQLITE_OK);
}

}  // namespace bench
