#pragma once

#include <string>
#include <utility>

#include "host/statement.h"
#include "platform/recordset.h"
#include "platform/ref.h"

namespace zorCrmParvel {

using platform::RecordsetRef;

/// The host's data-access object: everything that the module reads or writes goes through these four
/// operations. Each sends one statement. A failure is a `RuntimeError` raised at the call, and nothing was
/// sent or changed.
class DataAccess {
 public:
  virtual ~DataAccess() = default;

  /// Runs a statement that returns no rows. True when it succeeded; one that hits no row did.
  bool ExecutarSql(const std::string& reserved, const Statement& statement);
  /// Opens rows of one table for `AddNew`, assignments and `Update`. 3 and -1 are the lock and command types.
  bool AbrirEdicao(const Statement& statement, RecordsetRef& rows, long lockType = 3, long commandType = -1);
  /// Opens rows for reading.
  bool AbrirLeitura(const std::string& reserved, const Statement& statement, RecordsetRef& rows,
                    long cursorType = -1, int lockType = 0);
  /// The connection for lookups and reports.
  virtual bool ObterLigacao(platform::Ref<platform::Connection>& connection) = 0;

  // Used through `Snapshot`; an engine without any has nothing to do.
  virtual void BeginSnapshot() {}
  virtual void EndSnapshot() noexcept {}

 protected:
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
