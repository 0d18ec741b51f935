#pragma once

#include <string>
#include <utility>

#include "host/statement.h"
#include "platform/recordset.h"
#include "platform/ref.h"

namespace zorCrmParvel {

using platform::RecordsetRef;

/// The host's data-access object: everything that the module reads or writes goes through its four
/// operations, for one thread at a time. Three of them take a statement and send it as one; the fourth gives
/// a connection that sends for itself. A statement whose value gets out of its literal raises error
/// -2147217900 before anything is sent. Whatever else fails is a `RuntimeError` of the engine's, at the call
/// or, in a recordset that reads rows as they are asked for, later; a write that failed has changed nothing,
/// except that a server that was lost on the way may have done it.
class DataAccess {
 public:
  virtual ~DataAccess() = default;

  // `reserved`, cursor and lock types are the contract's, and nothing reads them.

  /// Runs an INSERT, UPDATE or DELETE. True when it succeeded; one that hits no row did.
  bool ExecutarSql(const std::string& reserved, const Statement& statement);
  /// Opens rows of one table for `AddNew`, assignments and `Update`. The recordset keeps the engine alive.
  bool AbrirEdicao(const Statement& statement, RecordsetRef& rows, long lockType = 3, long commandType = -1);
  /// Opens rows for reading, as they are now: what is written later does not show in them.
  bool AbrirLeitura(const std::string& reserved, const Statement& statement, RecordsetRef& rows,
                    long cursorType = -1, int lockType = 0);
  /// The connection for lookups and reports, whose statements carry their values inside them. Always true.
  virtual bool ObterLigacao(platform::Ref<platform::Connection>& connection) = 0;

  // Used through `Snapshot`; an engine without any has nothing to do.
  virtual void BeginSnapshot() {}
  virtual void EndSnapshot() noexcept {}

 protected:
  // What an engine does with a statement that has been looked through.
  virtual bool Execute(const std::string& statement) = 0;
  virtual RecordsetRef OpenForEditing(const std::string& statement) = 0;
  virtual RecordsetRef OpenForReading(const std::string& statement) = 0;
};

using DataAccessRef = platform::Ref<DataAccess>;

/// For a loop that reads something else for each of its rows: while it lives, the embedded engine's reads all
/// see the data as it was at the first of them, and each costs less. Snapshots nest. The first write ends
/// them for good; what is read after that is as new as ever.
class Snapshot {
 public:
  explicit Snapshot(DataAccessRef bd) : bd_(std::move(bd)) { bd_->BeginSnapshot(); }
  ~Snapshot() { bd_->EndSnapshot(); }
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

 private:
  DataAccessRef bd_;
};

}  // namespace zorCrmParvel
