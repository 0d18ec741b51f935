#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "history/journal.h"
#include "history/who.h"
#include "history/write_target.h"
#include "platform/date.h"
#include "store/store.h"
#include "tsql/catalog.h"

namespace embedded {
class Database;
}

namespace history {

struct Options {
  Who who = Who::OfThisProcess();
  std::function<platform::Date()> clock = &platform::SystemTime;
  /// The tables that are recorded; empty: the program's own.
  std::string schema;
  /// The file of the database, where other stores stand before it; otherwise it is found.
  std::shared_ptr<embedded::Database> file;
  /// By what else the database is written to, past the history; otherwise by what that stands before alone.
  std::shared_ptr<zorCrmParvel::Store> past;
  /// Only reads, beside the one that the acts of the user go through; on any thread.
  bool beside = false;
};

/// A database that remembers: every statement goes on as it stands, and of each row that a write touches the
/// values before and after are stored in the same transaction. What one act of the user writes is one unit
/// (see `Act`): all of it is kept or nothing, and nobody else writes in between. Without an act each write is
/// a unit of its own. Where the database has no table for the history, nothing is recorded.
class KeepingStore : public zorCrmParvel::Store {
 public:
  explicit KeepingStore(std::shared_ptr<Store> inner, Options options = {});
  ~KeepingStore() override;

  const std::shared_ptr<Store>& inner() const { return inner_; }
  /// True for what the history stands before, and for what leads to the same database past it.
  bool StandsBefore(const Store& store) const { return &store == inner_.get() || &store == past_.get(); }
  /// The file of the database; null for a server's.
  embedded::Database* file() const { return file_.get(); }
  const tsql::Catalog& catalog() const { return catalog_; }
  /// True when what is written is remembered: the database has a history, and the office did not turn it off.
  bool Keeps() const { return journal_.Keeps(); }
  /// True when there is a history to read.
  bool HasHistory() const { return journal_.Exists(); }
  /// Looks anew whether there is one and whether it is to be kept.
  void LookAtSettings() { journal_.Look(); }
  const Who& who() const { return who_; }

  std::string Place() const override { return inner_->Place(); }
  std::function<std::shared_ptr<Store>()> Opener() const override { return inner_->Opener(); }
  void BeginBatch() override;
  void CommitBatch() override;
  void AbandonBatch() override;
  void AddRows(const std::string& table, const std::vector<std::string>& columns,
               const std::vector<const zorCrmParvel::RowValues*>& rows) override;
  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override;
  void BeginSnapshot() override { inner_->BeginSnapshot(); }
  void EndSnapshot() noexcept override { inner_->EndSnapshot(); }

  // Used through `Act`.
  /// Begins an act, or joins the one that is under way. Of one that `loads` a record it is known afterwards
  /// how far the history went when it did (see `Mark`).
  void BeginAct(const std::string& words, long undoes = 0, bool loads = true);
  /// Ends it, and with the outermost keeps what was written. Error -2147467259 when that fails: then nothing
  /// of it was.
  void EndAct();
  /// Ends it and keeps nothing of its unit.
  void AbandonAct();
  /// Keeps what was written so far; what the act writes from now on is a unit of its own.
  void Pause();
  /// The number of the operation that the last act became; 0 when it changed nothing.
  long LastOperation() const { return last_; }
  /// The newest act of this store that became an operation, and was not undone since; without a number when
  /// there is none.
  const ActRecord& Newest() const { return newest_; }
  /// True for an operation of this program since it was started.
  bool IsOwn(long operation) const { return own_.contains(operation); }
  /// The newest number in the history just before the last act that read anything began to read: what others
  /// wrote later, it may not have seen.
  long Mark() const { return mark_; }

  // For what is written past the history and has an undoing of its own; within the batch that writes it.
  /// Notes as an operation what stands in `table` under `key`. Nothing where no history is kept.
  void Note(const std::string& words, const std::string& table, const std::string& key);
  /// Notes that it was taken back.
  void NoteUndone(const std::string& words, const std::string& table, const std::string& key);

  /// Puts the act that is under way aside, for those of a window above it.
  class Aside;

  // Used by the rows opened for editing.
  /// Runs a write and the recording of it within the unit.
  void Within(const std::function<void()>& write);
  void Changed(const tsql::Table& table, const Image* before, const Image* after);
  /// Counts the units: rows that were read in an earlier one may have changed since.
  long unit() const { return units_; }
  bool InUnit() const { return open_; }

 protected:
  bool Execute(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;

 private:
  struct Running {
    ActRecord record;
    int depth = 0;
    bool wrote = false;   // in an earlier unit
    bool marked = false;  // where the history stood when it began to read is known
  };

  void Need();
  void SetMark();
  void WriteThrough();
  void Keep();
  void Abandon();
  void Run(const WriteTarget& target, const std::string& statement);
  zorCrmParvel::RecordsetRef Read(const WriteTarget& target);
  void Insert(const tsql::Table& table, const std::string& statement);

  std::shared_ptr<Store> inner_;
  std::shared_ptr<Store> past_;
  std::shared_ptr<embedded::Database> file_;
  Who who_;
  bool beside_;
  tsql::Catalog catalog_;
  Journal journal_;
  Running act_;
  bool open_ = false;   // a unit is under way
  bool batch_ = false;  // and was begun as a batch
  long units_ = 0;
  int writes_ = 0;     // of the unit
  long unitHead_ = 0;  // the act's number before it
  long last_ = 0;
  ActRecord newest_;
  long mark_ = 0;
  std::set<long> own_;
};

class KeepingStore::Aside {
 public:
  /// Keeps what the act wrote so far.
  explicit Aside(KeepingStore& store);
  ~Aside();
  Aside(const Aside&) = delete;
  Aside& operator=(const Aside&) = delete;

 private:
  KeepingStore& store_;
  Running act_;
};

/// The history of a database, to be read on the thread that asks for it.
std::unique_ptr<KeepingStore> Beside(std::shared_ptr<zorCrmParvel::Store> store);

/// Every store that remembers and is open in this process, but for those beside others.
const std::vector<KeepingStore*>& OpenStores();

}  // namespace history
