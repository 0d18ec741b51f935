#pragma once

#include <memory>
#include <string>

#include "sqlserver/limits.h"
#include "sqlserver/secret.h"
#include "sqlserver/traffic.h"
#include "store/store.h"
#include "store/store_reads.h"

namespace tsql {
class Catalog;
}

namespace sqlserver {

class Session;

/// Which server, as whom, and with how much patience.
struct OpenOptions {
  /// An ODBC connection string or the name of a DSN, without the password.
  std::string connection;
  Secret password;
  Limits limits;
  /// Where to count what goes to and fro; empty: nowhere.
  std::shared_ptr<Traffic> traffic;
  /// What is read after a write in a batch; empty: nothing is read ahead.
  store::ReadsAfterWrite expected;
  /// The tables that statements may open for editing; empty: the program's own.
  std::string schema;
};

/// The data-access contract on a Microsoft SQL Server, over ODBC. Statements go as they stand; a recordset is
/// read to its end when it is opened, so that any number may be open at once and none holds a lock.
class Database : public zorCrmParvel::Store {
 public:
  /// Connects. Error -2147467259, with what to do, when that fails.
  static std::shared_ptr<Database> Open(const OpenOptions& options);

  /// The database and the server, for people: "frota em servidor".
  std::string Place() const override;
  std::function<std::shared_ptr<zorCrmParvel::Store>()> Opener() const override;
  zorCrmParvel::Refusals Refused() override;
  const tsql::Catalog& catalog() const { return *catalog_; }
  /// The connection itself, for work on the tables.
  Session& session() { return *session_; }

  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override;
  void BeginBatch() override;
  void CommitBatch() override;
  void AbandonBatch() override;
  void AddRows(const std::string& table, const std::vector<std::string>& columns,
               const std::vector<const zorCrmParvel::RowValues*>& rows) override;

 protected:
  bool Execute(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;

 private:
  Database(std::shared_ptr<Session> session, std::shared_ptr<const tsql::Catalog> catalog,
           OpenOptions options);

  std::shared_ptr<Session> session_;
  std::shared_ptr<const tsql::Catalog> catalog_;
  OpenOptions options_;
};

}  // namespace sqlserver
