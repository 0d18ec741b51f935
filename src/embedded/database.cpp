#include "embedded/database.h"

#include <filesystem>

#include "embedded/storage/database_copy.h"
#include "embedded/storage/database_file.h"
#include "embedded/storage/database_look.h"
#include "embedded/storage/database_restore.h"
#include "embedded/storage/engine.h"
#include "embedded/storage/file_steps.h"
#include "embedded/storage/row_insert.h"
#include "embedded/storage/schema.h"

namespace schema {
extern const char* const kTables;
}

namespace embedded {
namespace {

class EngineConnection : public platform::Connection {
 public:
  explicit EngineConnection(std::shared_ptr<Engine> engine) : engine_(std::move(engine)) {}
  platform::RecordsetRef Execute(const std::string& statement) override {
    return engine_->Open(statement, Plan::Use::kRead);
  }

 private:
  std::shared_ptr<Engine> engine_;
};

Schema SchemaOf(const OpenOptions& options) {
  return Schema::Parse(options.schema.empty() ? schema::kTables : options.schema);
}

/// Says so when others than its owner may read a file.
void CheckMode(const std::string& path, std::vector<std::string>& problems) {
  using std::filesystem::perms;
  const perms mode = std::filesystem::status(path).permissions();
  if ((mode & (perms::group_all | perms::others_all)) != perms::none)
    problems.push_back(
        "Outros utilizadores desta máquina podem entrar no ficheiro, que tem dados de pessoas. "
        "Para que só o dono possa: chmod 600 \"" +
        path + "\"");
}

SqliteConnection OpenToLookAt(const std::string& file, const OpenOptions& options) {
  RequireFolder(file);
  const FolderLock lock(file, options.busyTimeout);
  return OpenExamined(file, SchemaOf(options).version, options.busyTimeout);
}

}  // namespace

Database::Database(std::shared_ptr<Engine> engine, OpenOptions options)
    : engine_(std::move(engine)), options_(std::move(options)) {}
Database::~Database() = default;

std::shared_ptr<Database> Database::Open(const std::string& path, OpenOptions options) {
  Schema tables = SchemaOf(options);
  SqliteConnection connection =
      path == ":memory:" ? OpenDatabaseInMemory(tables) : OpenDatabaseFile(path, tables, options.busyTimeout);
  const Clock clock = options.clock ? options.clock : Clock(&platform::SystemTime);
  auto engine = std::make_shared<Engine>(path, std::move(connection), std::move(tables.catalog), clock,
                                         LogLimits{options.logLimit, options.busyTimeout});
  return std::shared_ptr<Database>(new Database(std::move(engine), std::move(options)));
}

std::string Database::Restore(const std::string& path, const std::string& copy, const OpenOptions& options) {
  const platform::Date now = options.clock ? options.clock() : platform::SystemTime();
  return RestoreDatabase(path, copy, SchemaOf(options).version, now, options.busyTimeout);
}

FileReport Database::Check(const std::string& path, const OpenOptions& options) {
  const std::string file = RealPath(path);
  const SqliteConnection connection = OpenToLookAt(file, options);
  FileReport report;
  report.version = connection.Number("PRAGMA user_version");
  for (const auto& [table, rows] : CountRows(connection)) {
    ++report.tables;
    report.rows += rows;
  }
  const std::string faults = Faults(connection);
  if (faults != "ok")
    report.problems.push_back("Está danificada: reponha a última cópia com «parvel repor CÓPIA».\n" + faults);
  CheckMode(file, report.problems);
  return report;
}

std::map<std::string, std::int64_t> Database::Rows(const std::string& path, const OpenOptions& options) {
  return CountRows(OpenToLookAt(RealPath(path), options));
}

std::function<std::shared_ptr<zorCrmParvel::Store>()> Database::Opener() const {
  if (path() == ":memory:") return {};
  return [path = path(), options = options_] { return Open(path, options); };
}

const std::string& Database::path() const { return engine_->path(); }

void Database::CopyTo(const std::string& file) { engine_->CopyTo(file); }
void Database::KeepLogShort() { engine_->KeepLogShort(); }

void Database::WriteThrough() { engine_->WriteThrough(); }
bool Database::Compact() { return engine_->Compact(); }
std::int64_t Database::BytesOf(const std::vector<std::string>& tables) const {
  return engine_->BytesOf(tables);
}

/// Of a file that can't be written, all tables are only for reading.
zorCrmParvel::Refusals Database::Refused() {
  using zorCrmParvel::TableUse;
  zorCrmParvel::Refusals refusals;
  if (!engine_->ReadsOnly()) return refusals;
  for (const tsql::Table& table : engine_->catalog().tables())
    refusals[table.name] = {TableUse::kAdd, TableUse::kChange, TableUse::kRemove};
  return refusals;
}

void Database::BeginBatch() { engine_->BeginBatch(); }
void Database::CommitBatch() { engine_->CommitBatch(); }
void Database::AbandonBatch() { engine_->AbandonBatch(); }
void Database::AddRows(const std::string& table, const std::vector<std::string>& columns,
                       const std::vector<const zorCrmParvel::RowValues*>& rows) {
  embedded::AddRows(*engine_, engine_->catalog().Get(table), columns, rows);
}

void Database::BeginSnapshot() { engine_->BeginSnapshot(); }
void Database::EndSnapshot() noexcept { engine_->EndSnapshot(); }

bool Database::ObterLigacao(platform::Ref<platform::Connection>& connection) {
  connection = platform::MakeRef<EngineConnection>(engine_);
  return true;
}

bool Database::Execute(const std::string& statement) {
  engine_->Run(statement);
  return true;
}

zorCrmParvel::RecordsetRef Database::OpenForEditing(const std::string& statement) {
  return engine_->Open(statement, Plan::Use::kEdit);
}

zorCrmParvel::RecordsetRef Database::OpenForReading(const std::string& statement) {
  return engine_->Open(statement, Plan::Use::kRead);
}

}  // namespace embedded
