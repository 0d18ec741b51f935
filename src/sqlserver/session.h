#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "sqlserver/connection_text.h"
#include "sqlserver/dialect.h"
#include "sqlserver/known_rows.h"
#include "sqlserver/limits.h"
#include "sqlserver/link.h"
#include "sqlserver/odbc.h"
#include "sqlserver/parameters.h"
#include "sqlserver/result_reader.h"
#include "sqlserver/secret.h"
#include "sqlserver/traffic.h"
#include "store/store_reads.h"

namespace sqlserver {

/// The connection to the server. Every call reads its result to the end, so that nothing is under way between
/// two calls: the server holds no lock for us, and a connection that broke meanwhile is made anew by the next
/// call. A read that loses the connection is sent once more; a write is not, for it may have been done, and
/// neither is what the server left without an answer for longer than the limit. ODBC's
/// failures leave it as the module's errors, see errors.h.
class Session {
 public:
  /// Connects. Error -2147467259 with what to do when that fails, and for a password that the driver would
  /// take for another one.
  /// What goes to and fro is also counted in `traffic`, where it is given.
  Session(ConnectionText connection, const Secret& password, Limits limits,
          std::shared_ptr<Traffic> traffic = {});
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  std::string Place() const { return text_.Place(); }
  /// A part of the connection string; empty when it has none of the name.
  std::string Part(const char* name) const { return text_.Get(name); }
  const Dialect& dialect() const { return *dialect_; }
  /// What has gone between the program and the server since the session began.
  const Traffic& traffic() const { return *traffic_; }

  /// Runs a statement and hands its result to `take`, which may be called a second time when the connection
  /// was lost in between.
  void Read(const std::string& sql, const std::function<void(ResultReader&)>& take);
  /// Runs a SELECT and puts its rows where `place` says. Within a batch, what is known of it since the last
  /// write is not asked again.
  void ReadRows(const std::string& sql, const RowsPlace& place);
  /// Reads that may follow a write. `ahead` of a write is sent with it where that costs no trip.
  using Ahead = std::vector<std::string>;
  /// Runs a statement that writes; the number of rows hit, -1 when the server did not tell.
  long Write(const std::string& sql, Parameters& parameters, const Ahead& ahead = {});
  /// Runs an INSERT and returns the number that the server gave the row.
  long InsertNumbered(const std::string& sql, Parameters& parameters, const Ahead& ahead = {});
  /// From now on tells what is read after a write, see `Expected`.
  void Expect(store::ReadsAfterWrite reads) { expect_ = std::move(reads); }
  /// What is likely to be read next in the batch, once a row of a table has these values; nothing outside a
  /// batch, where such answers would not hold.
  Ahead Expected(const std::string& table, const store::WrittenValue& value) const;

  /// A statement without parameters that writes.
  struct Together {
    std::string sql;
    bool numbered = false;  // an INSERT of which the row's number is wanted
  };
  /// Runs statements in one text, where the server takes several. `answers` gets for each the number that its
  /// row was given, or how many rows it hit; after a failure those before it.
  void WriteTogether(const std::vector<Together>& statements, std::vector<long>& answers);

  // Writes kept together or not at all. A connection that is lost in between loses all of them. It begins on
  // the server with its first statement, in the same text.
  void BeginBatch();
  void CommitBatch();
  void AbandonBatch();

 private:
  enum class Work { kRead, kWrite, kBegin, kCommit };

  bool Ready(Work work);
  void Connect(std::chrono::seconds limit);
  bool Answers();
  void Do(Work work, const std::function<void(const Link&)>& action);
  void RequireBatchStands();
  void BeginAlone();
  void NotBegun(const std::string& begin);
  void RunAlone(Work work, const std::string& sql);
  void TakeAhead(const OdbcStatement& statement, const Ahead& ahead);
  OdbcFailure Translated(const OdbcFailure& failure) const;
  std::unique_ptr<OdbcStatement> Run(const Link& link, const std::string& sql, Parameters& parameters,
                                     bool* hit = nullptr);
  void Count(const std::string& sql, std::chrono::steady_clock::time_point begin);

  ConnectionText text_;
  Secret password_;
  Limits limits_;
  Handle environment_;
  std::unique_ptr<Link> link_;
  const Dialect* dialect_ = nullptr;
  bool batch_ = false;
  bool batchWrote_ = false;
  std::string begin_;  // of a batch that has not begun on the server
  KnownRows known_;    // within a batch
  store::ReadsAfterWrite expect_;
  std::chrono::steady_clock::time_point lastUse_;
  std::shared_ptr<Traffic> traffic_;
};

}  // namespace sqlserver
