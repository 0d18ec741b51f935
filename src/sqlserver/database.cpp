#include "sqlserver/database.h"

#include "sqlserver/edit_recordset.h"
#include "sqlserver/select_recordset.h"
#include "sqlserver/session.h"
#include "tsql/parser.h"

namespace schema {
extern const char* const kTables;
}

namespace sqlserver {
namespace {

/// Only one statement of the four kinds goes to the server, whatever stands in the text.
bool Reads(const std::string& statement) {
  return std::holds_alternative<tsql::Select>(tsql::ParseStatement(statement));
}

platform::RecordsetRef Read(Session& session, const std::string& statement) {
  if (Reads(statement)) return platform::MakeRef<SelectRecordset>(session, statement);
  Parameters none;
  session.Write(statement, none);
  return platform::MakeRef<platform::MemoryRecordset>();
}

class SessionConnection : public platform::Connection {
 public:
  explicit SessionConnection(std::shared_ptr<Session> session) : session_(std::move(session)) {}
  platform::RecordsetRef Execute(const std::string& statement) override { return Read(*session_, statement); }

 private:
  std::shared_ptr<Session> session_;
};

}  // namespace

Database::Database(std::shared_ptr<Session> session, std::shared_ptr<const tsql::Catalog> catalog)
    : session_(std::move(session)), catalog_(std::move(catalog)) {}

std::shared_ptr<Database> Database::Open(const OpenOptions& options) {
  auto catalog = std::make_shared<tsql::Catalog>(
      tsql::ParseSchema(options.schema.empty() ? schema::kTables : options.schema.c_str()));
  auto session =
      std::make_shared<Session>(ConnectionText(options.connection), options.password, options.limits);
  return std::shared_ptr<Database>(new Database(std::move(session), std::move(catalog)));
}

std::string Database::Place() const { return session_->Place(); }

void Database::BeginBatch() { session_->BeginBatch(); }
void Database::CommitBatch() { session_->CommitBatch(); }
void Database::AbandonBatch() { session_->AbandonBatch(); }
void Database::BringNumbers(const std::string& table, bool on) { session_->BringNumbers(table, on); }

bool Database::ObterLigacao(platform::Ref<platform::Connection>& connection) {
  connection = platform::MakeRef<SessionConnection>(session_);
  return true;
}

bool Database::Execute(const std::string& statement) {
  Read(*session_, statement);
  return true;
}

zorCrmParvel::RecordsetRef Database::OpenForEditing(const std::string& statement) {
  return platform::MakeRef<EditRecordset>(session_, catalog_, statement);
}

zorCrmParvel::RecordsetRef Database::OpenForReading(const std::string& statement) {
  return Read(*session_, statement);
}

}  // namespace sqlserver
