#include "embedded/database.h"

#include "embedded/database_file.h"
#include "embedded/engine.h"
#include "embedded/schema.h"

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

}  // namespace

Database::Database(std::shared_ptr<Engine> engine) : engine_(std::move(engine)) {}
Database::~Database() = default;

std::shared_ptr<Database> Database::Open(const std::string& path, OpenOptions options) {
  Schema tables = Schema::Parse(options.schema.empty() ? schema::kTables : options.schema);
  SqliteConnection connection = OpenDatabaseFile(path, tables.version, options.busyTimeout);
  BringUpToDate(connection, tables, path);
  UseWriteAheadLog(connection, options.busyTimeout);
  Clock clock = options.clock ? std::move(options.clock) : Clock(&platform::SystemTime);
  auto engine =
      std::make_shared<Engine>(path, std::move(connection), std::move(tables.catalog), std::move(clock));
  return std::shared_ptr<Database>(new Database(std::move(engine)));
}

const std::string& Database::path() const { return engine_->path(); }

void Database::CopyTo(const std::string& file) { engine_->CopyTo(file); }

void Database::BeginBatch() { engine_->BeginBatch(); }
void Database::CommitBatch() { engine_->CommitBatch(); }
void Database::AbandonBatch() { engine_->AbandonBatch(); }

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
