#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "embedded/storage/plan.h"
#include "embedded/storage/plan_cache.h"
#include "embedded/storage/sqlite.h"
#include "embedded/storage/write_ahead_log.h"
#include "platform/recordset.h"
#include "tsql/catalog.h"

namespace embedded {

class SelectRecordset;

/// How far the log may grow, in bytes, and how long others are waited for.
struct LogLimits {
  std::int64_t bytes;
  std::chrono::milliseconds busyTimeout;
};

/// One open database: it runs statements for `Database` and for the recordsets that came of them, and lives
/// as long as any of them needs it. Before a statement starts, the recordsets that still read from the file
/// are read to their end, so that they show the tables as they were, and the new statement sees them as they
/// are. Only within a snapshot do several read side by side.
class Engine : public std::enable_shared_from_this<Engine> {
 public:
  Engine(std::string path, SqliteConnection connection, tsql::Catalog catalog, Clock clock,
         const LogLimits& limits);

  const std::string& path() const { return path_; }
  const tsql::Catalog& catalog() const { return catalog_; }
  /// True for a file that can't be written.
  bool ReadsOnly() const { return sqlite3_db_readonly(connection_.get(), "main") == 1; }

  platform::RecordsetRef Open(const std::string& statement, Plan::Use use);
  void Run(const std::string& statement);
  /// Writes a copy to a file that does not exist yet.
  void CopyTo(const std::string& file);
  /// Brings back a log past its limit, after reading what is still unread: that holds it.
  void KeepLogShort();

  void WriteThrough();
  bool Compact();
  std::int64_t BytesOf(const std::vector<std::string>& tables) const;

  // Reads that see one state of the data; they nest, and the first write ends them.
  void BeginSnapshot();
  void EndSnapshot() noexcept;

  // Writes kept together or not at all.
  void BeginBatch();
  void CommitBatch();
  void AbandonBatch() { batch_.reset(); }

  // For the recordsets.
  void Started(SelectRecordset* rows) { reading_.push_back(rows); }
  void Ended(SelectRecordset* rows);
  std::size_t CountOf(Plan& plan) {
    return static_cast<std::size_t>(plan.Count(connection_.get(), catalog_));
  }
  /// Runs a statement that writes; `bind` sets its parameters. Returns how many rows it hit.
  int Write(const std::string& sql, const std::function<void(sqlite3_stmt*)>& bind);
  std::int64_t LastRowId() const { return sqlite3_last_insert_rowid(connection_.get()); }

 private:
  std::shared_ptr<Plan> Begin(const std::string& statement, Plan::Use use);
  void Run(const Plan& plan);
  void Settle();
  void SettleToWrite();
  void Written();
  void LeaveSnapshot() noexcept;
  void RequireInPlace() const;
  void RequireBatch() const;

  std::string path_;
  SqliteConnection connection_;
  WriteAheadLog log_;
  tsql::Catalog catalog_;
  Clock clock_;
  PlanCache plans_;
  std::unordered_map<std::string, SqliteStatement> writes_;
  std::vector<SelectRecordset*> reading_;  // from the file
  int snapshots_ = 0;                      // asked for, one in another
  bool inSnapshot_ = false;                // until the outermost ends or something is written
  std::optional<SqliteTransaction> batch_;
};

}  // namespace embedded
