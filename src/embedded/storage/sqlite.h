#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace embedded {

/// Raises the module's error for a failure that SQLite reported on a connection (null when it has none):
/// -2147217873 for a constraint, -2147217900 for a statement that failed on its values, else -2147467259 with
/// a Portuguese text that says what to do.
[[noreturn]] void RaiseSqlite(sqlite3* connection, int code);

/// A connection; it closes once its last statement is gone.
class SqliteConnection {
 public:
  SqliteConnection() = default;
  /// The file's path is absolute, or ":memory:". `flags` are SQLITE_OPEN_…; always without SQLite's own
  /// locks, for use by one thread.
  SqliteConnection(const std::string& file, int flags);

  sqlite3* get() const { return connection_.get(); }
  /// Runs statements of the engine's own, without rows.
  void Execute(const std::string& sql) const;
  /// The first column of the first row, 0 when there is none.
  std::int64_t Number(const std::string& sql) const;
  std::string Text(const std::string& sql) const;
  /// True when the last call failed because others hold the file.
  bool WasBusy() const { return (sqlite3_errcode(get()) & 0xFF) == SQLITE_BUSY; }
  /// Whether a log that is left when the connection closes stays as it is instead of going into the file.
  void KeepLogAtClose(bool keep) const {
    sqlite3_db_config(get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, keep ? 1 : 0, nullptr);
  }

 private:
  struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
  };
  std::unique_ptr<sqlite3, Closer> connection_;
};

/// A connection to a file as it lies there, without its log and without any lock: nobody writes to it.
/// The path is absolute.
SqliteConnection OpenStill(const std::string& path);

/// A prepared statement.
class SqliteStatement {
 public:
  SqliteStatement() = default;
  SqliteStatement(sqlite3* connection, std::string_view sql);

  sqlite3_stmt* get() const { return statement_.get(); }
  /// True when there is a row, false at the end; raises on a failure.
  bool Step() const {
    const int code = sqlite3_step(get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) Fail(code);
    return false;
  }
  /// Ends a run, and with it the read of the file that it held. Never fails: a failure was reported by
  /// `Step`.
  void Reset() const { sqlite3_reset(get()); }

  void BindText(int index, std::string_view text) const;
  std::int64_t Number(int column) const { return sqlite3_column_int64(get(), column); }
  std::string Text(int column) const;

 private:
  [[noreturn]] void Fail(int code) const;

  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// A write transaction of the engine's own: it waits for other writers, and is undone unless committed.
class SqliteTransaction {
 public:
  explicit SqliteTransaction(const SqliteConnection& connection);
  ~SqliteTransaction();
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;
  void Commit();

 private:
  const SqliteConnection& connection_;
  bool open_ = true;
};

/// A name as it stands in SQLite's SQL: "name", quotes doubled.
std::string QuotedName(std::string_view name);
/// A text as SQL writes it; it holds no NUL.
std::string QuotedText(std::string_view text);

}  // namespace embedded
