#include "sqlserver/database.h"

#include "sqlserver/bulk/brought_numbers.h"
#include "sqlserver/bulk/row_writer.h"
#include "sqlserver/rows/edit_recordset.h"
#include "sqlserver/rows/select_recordset.h"
#include "sqlserver/rows/walk_recordset.h"
#include "sqlserver/schema/refusals.h"
#include "sqlserver/session.h"
#include "tsql/fields.h"
#include "tsql/parser.h"

namespace schema {
extern const char* const kTables;
}

namespace sqlserver {
namespace {

/// Only one statement of the four kinds goes to the server, whatever stands in the text.
platform::RecordsetRef Read(const std::shared_ptr<Session>& session, const std::string& statement) {
  const tsql::StatementNode node = tsql::ParseStatement(statement);
  if (const auto* select = std::get_if<tsql::Select>(&node)) {
    const auto walk = session->dialect().batches ? Walk::Of(statement, *select) : std::nullopt;
    if (walk) return platform::MakeRef<WalkRecordset>(session, *walk);
    return platform::MakeRef<SelectRecordset>(*session, statement);
  }
  Parameters none;
  session->Write(statement, none);
  return platform::MakeRef<platform::MemoryRecordset>();
}

class SessionConnection : public platform::Connection {
 public:
  explicit SessionConnection(std::shared_ptr<Session> session) : session_(std::move(session)) {}
  platform::RecordsetRef Execute(const std::string& statement) override { return Read(session_, statement); }

 private:
  std::shared_ptr<Session> session_;
};

}  // namespace

Database::Database(std::shared_ptr<Session> session, std::shared_ptr<const tsql::Catalog> catalog,
                   OpenOptions options)
    : session_(std::move(session)), catalog_(std::move(catalog)), options_(std::move(options)) {}

std::shared_ptr<Database> Database::Open(const OpenOptions& options) {
  auto catalog = std::make_shared<tsql::Catalog>(
      tsql::ParseSchema(options.schema.empty() ? schema::kTables : options.schema.c_str()));
  auto session = std::make_shared<Session>(ConnectionText(options.connection), options.password,
                                           options.limits, options.traffic);
  session->Expect(options.expected);
  return std::shared_ptr<Database>(new Database(std::move(session), std::move(catalog), options));
}

std::string Database::Place() const { return session_->Place(); }

std::function<std::shared_ptr<zorCrmParvel::Store>()> Database::Opener() const {
  OpenOptions options = options_;
  options.traffic.reset();  // one thread's
  options.expected = {};    // it writes nothing
  return [options] { return Open(options); };
}

zorCrmParvel::Refusals Database::Refused() { return RefusedBy(*session_, *catalog_); }

void Database::BeginBatch() { session_->BeginBatch(); }
void Database::CommitBatch() { session_->CommitBatch(); }
void Database::AbandonBatch() { session_->AbandonBatch(); }

void Database::AddRows(const std::string& table, const std::vector<std::string>& columns,
                       const std::vector<const zorCrmParvel::RowValues*>& rows) {
  const tsql::Table& declared = catalog_->Get(table);
  const std::vector<platform::FieldInfo> fields = tsql::FieldsOf(declared, columns);
  const BroughtNumbers numbers(*session_, declared);
  RowWriter writer(*session_, declared, fields);
  for (const zorCrmParvel::RowValues* row : rows) writer.Add(*row, false);
  writer.Finish();
}

bool Database::ObterLigacao(platform::Ref<platform::Connection>& connection) {
  connection = platform::MakeRef<SessionConnection>(session_);
  return true;
}

bool Database::Execute(const std::string& statement) {
  Read(session_, statement);
  return true;
}

zorCrmParvel::RecordsetRef Database::OpenForEditing(const std::string& statement) {
  return platform::MakeRef<EditRecordset>(session_, catalog_, statement);
}

zorCrmParvel::RecordsetRef Database::OpenForReading(const std::string& statement) {
  return Read(session_, statement);
}

}  // namespace sqlserver
