#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "embedded/database_check.h"
#include "platform/date.h"
#include "store/store.h"

namespace embedded {

class Engine;

struct OpenOptions {
  /// The clock behind getdate(); empty: the system's local time.
  std::function<platform::Date()> clock;
  /// How long a write waits for another process before it fails.
  std::chrono::milliseconds busyTimeout{5000};
  /// Bytes past which the log beside the file is brought back into it, and rows still unread are read.
  std::int64_t logLimit = std::int64_t{64} << 20;
  /// The schema to create or upgrade to; empty: the program's own.
  std::string schema;
};

/// The embedded engine: the data-access contract on one SQLite file, which it creates where no file is.
/// Every write is durable when its call returns. Several processes may hold one file.
class Database : public zorCrmParvel::Store {
 public:
  /// Opens, creates or upgrades a database; ":memory:" lives in memory. A file that is no database of this
  /// program, is newer than the program, has the log of another file beside it or can't be opened raises
  /// error -2147467259 and is left as it was.
  static std::shared_ptr<Database> Open(const std::string& path, OpenOptions options = {});
  /// Puts a copy in the place of a file that no program has open, this one included. What was there stays,
  /// under the dated name that is given back (empty: nothing was there). Error -2147467259, with nothing
  /// changed, when the copy is no sound database of this program or the file is in use.
  static std::string Restore(const std::string& path, const std::string& copy,
                             const OpenOptions& options = {});
  /// Looks at a file from end to end. Errors as of `Open`; nothing is created or upgraded.
  static FileReport Check(const std::string& path, const OpenOptions& options = {});
  /// The numbers of rows of a file by table. Errors as of `Open`; nothing is created or upgraded.
  static std::map<std::string, std::int64_t> Rows(const std::string& path, const OpenOptions& options = {});
  ~Database() override;

  /// The file's path as it was given.
  const std::string& path() const;
  /// Writes a consistent copy of the database to a new file, and compares it. Error -2147467259 when the file
  /// exists or can't be written.
  void CopyTo(const std::string& file);
  /// Brings back a log that has grown past its limit, and reads what is still unread, since that holds the
  /// log. For a program that rests with rows open: now and then.
  void KeepLogShort();

  /// Writes the file anew without what was removed from it and empties its log, so that nothing of that can
  /// be found in either. False when somebody else has the file open and its log could not be emptied.
  bool Compact();
  /// Within a batch: writes to the disk what has been written so far, without keeping it. Error -2147467259
  /// when there is no room.
  void WriteThrough();
  /// The bytes that some tables and their indexes take in the file.
  std::int64_t BytesOf(const std::vector<std::string>& tables) const;

  /// Other processes can't write while a batch is under way.
  using Batch = zorCrmParvel::Batch;

  std::string Place() const override { return path(); }
  std::function<std::shared_ptr<zorCrmParvel::Store>()> Opener() const override;
  zorCrmParvel::Refusals Refused() override;
  void BeginBatch() override;
  void CommitBatch() override;
  void AbandonBatch() override;
  void AddRows(const std::string& table, const std::vector<std::string>& columns,
               const std::vector<const zorCrmParvel::RowValues*>& rows) override;
  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override;
  void BeginSnapshot() override;
  void EndSnapshot() noexcept override;

 protected:
  bool Execute(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;

 private:
  Database(std::shared_ptr<Engine> engine, OpenOptions options);
  std::shared_ptr<Engine> engine_;
  OpenOptions options_;
};

}  // namespace embedded
