#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "embedded/plan.h"
#include "embedded/plan_cache.h"
#include "embedded/sqlite.h"
#include "platform/recordset.h"
#include "tsql/catalog.h"

namespace embedded {

class SelectRecordset;

/// One open database: it runs statements for `Database` and for the recordsets that came of them, and lives
/// as long as any of them needs it. At most one recordset reads from the file at a time: before another
/// statement starts, it is read to its end, so that it shows the table as it was, and the new statement sees
/// it as it is.
class Engine : public std::enable_shared_from_this<Engine> {
 public:
  Engine(std::string path, SqliteConnection connection, tsql::Catalog catalog, Clock clock);

  const std::string& path() const { return path_; }

  platform::RecordsetRef Open(const std::string& statement, Plan::Use use);
  void Run(const std::string& statement);
  /// Writes a copy to a file that does not exist yet.
  void CopyTo(const std::string& file);

  // Writes kept together or not at all.
  void BeginBatch();
  void CommitBatch();
  void AbandonBatch() { batch_.reset(); }

  // For the recordsets.
  void Started(SelectRecordset* rows) { reading_ = rows; }
  void Ended() { reading_ = nullptr; }
  std::size_t CountOf(Plan& plan) {
    return static_cast<std::size_t>(plan.Count(connection_.get(), catalog_));
  }
  /// Runs a statement that writes; `bind` sets its parameters. Returns how many rows it hit.
  int Write(const std::string& sql, const std::function<void(sqlite3_stmt*)>& bind);
  std::int64_t LastRowId() const { return sqlite3_last_insert_rowid(connection_.get()); }

 private:
  void Settle();
  void RequireInPlace() const;

  std::string path_;
  SqliteConnection connection_;
  tsql::Catalog catalog_;
  Clock clock_;
  PlanCache plans_;
  std::unordered_map<std::string, SqliteStatement> writes_;
  SelectRecordset* reading_ = nullptr;
  std::optional<SqliteTransaction> batch_;
};

}  // namespace embedded
