#include "embedded/storage/engine.h"

#include "embedded/storage/database_copy.h"
#include "embedded/storage/edit_recordset.h"
#include "embedded/storage/select_recordset.h"
#include "platform/runtime_error.h"

namespace embedded {
namespace {

constexpr std::size_t kMostWrites = 128;

/// Ends a run however it goes.
class RunGuard {
 public:
  explicit RunGuard(const SqliteStatement& statement) : statement_(statement) {}
  ~RunGuard() { statement_.Reset(); }
  RunGuard(const RunGuard&) = delete;
  RunGuard& operator=(const RunGuard&) = delete;

 private:
  const SqliteStatement& statement_;
};

}  // namespace

Engine::Engine(std::string path, SqliteConnection connection, tsql::Catalog catalog, Clock clock,
               const LogLimits& limits)
    : path_(std::move(path)),
      connection_(std::move(connection)),
      log_(connection_, limits.bytes, limits.busyTimeout),
      catalog_(std::move(catalog)),
      clock_(std::move(clock)),
      plans_(connection_.get(), catalog_) {}

std::shared_ptr<Plan> Engine::Begin(const std::string& statement, Plan::Use use) {
  log_.RequireStill();
  if (!inSnapshot_) Settle();
  return plans_.Begin(statement, use, clock_);
}

platform::RecordsetRef Engine::Open(const std::string& statement, Plan::Use use) {
  std::shared_ptr<Plan> plan = Begin(statement, use);
  if (!plan->reads()) {
    Run(*plan);
    return platform::MakeRef<platform::MemoryRecordset>();
  }
  if (use == Plan::Use::kEdit) return EditRecordset::Start(shared_from_this(), plan);
  return SelectRecordset::Start(shared_from_this(), std::move(plan));
}

void Engine::Run(const std::string& statement) { Run(*Begin(statement, Plan::Use::kRead)); }

void Engine::Run(const Plan& plan) {
  {
    const RunGuard guard(plan.rows());
    if (!plan.reads()) {
      SettleToWrite();
      RequireInPlace();
    }
    while (plan.rows().Step()) {
    }
  }
  if (!plan.reads()) Written();
}

int Engine::Write(const std::string& sql, const std::function<void(sqlite3_stmt*)>& bind) {
  SettleToWrite();
  if (!batch_) RequireInPlace();  // a batch looks at its beginning and its end
  auto found = writes_.find(sql);
  if (found == writes_.end()) {
    if (writes_.size() == kMostWrites) writes_.clear();
    found = writes_.emplace(sql, SqliteStatement(connection_.get(), sql)).first;
  }
  int hit = 0;
  {
    const RunGuard guard(found->second);
    bind(found->second.get());
    found->second.Step();
    hit = sqlite3_changes(connection_.get());
  }
  Written();
  return hit;
}

void Engine::BeginSnapshot() {
  if (snapshots_ == 0 && !batch_) {
    Settle();
    connection_.Execute("BEGIN");
    inSnapshot_ = true;
  }
  ++snapshots_;
}

void Engine::EndSnapshot() noexcept {
  if (--snapshots_ == 0) LeaveSnapshot();
}

// Recordsets that still read go on reading what they saw.
void Engine::LeaveSnapshot() noexcept {
  if (inSnapshot_) sqlite3_exec(connection_.get(), "COMMIT", nullptr, nullptr, nullptr);
  inSnapshot_ = false;
}

void Engine::BeginBatch() {
  SettleToWrite();
  RequireInPlace();
  batch_.emplace(connection_);
}

void Engine::CommitBatch() {
  RequireBatch();
  RequireInPlace();
  Settle();
  batch_->Commit();
  batch_.reset();
  Written();
}

void Engine::CopyTo(const std::string& file) {
  SettleToWrite();
  CopyDatabase(connection_, file);
}

void Engine::KeepLogShort() {
  if (batch_ || inSnapshot_ || !log_.IsLong()) return;
  Settle();
  log_.BringBack();
}

void Engine::WriteThrough() {
  if (!batch_) return;
  RequireBatch();
  const int code = sqlite3_db_cacheflush(connection_.get());
  if (code != SQLITE_OK) RaiseSqlite(connection_.get(), code);
}

bool Engine::Compact() {
  SettleToWrite();
  writes_.clear();
  connection_.Execute("VACUUM");
  Written();
  log_.BringBack();
  return log_.IsEmpty();
}

std::int64_t Engine::BytesOf(const std::vector<std::string>& tables) const {
  std::string names;
  for (const std::string& table : tables) names += (names.empty() ? "'" : ", '") + table + "'";
  return connection_.Number(
      "SELECT SUM(pgsize) FROM dbstat WHERE aggregate = 1 AND name IN (SELECT name FROM "
      "sqlite_schema WHERE tbl_name IN (" +
      names + "))");
}

void Engine::Written() {
  if (!batch_) log_.Written();
}

void Engine::Settle() {
  while (!reading_.empty()) reading_.back()->ReadToEnd();
}

void Engine::SettleToWrite() {
  RequireBatch();
  Settle();
  LeaveSnapshot();
}

void Engine::Ended(SelectRecordset* rows) { std::erase(reading_, rows); }

// A disk that is full or fails ends the transaction, and whatever came after it would stand alone.
void Engine::RequireBatch() const {
  if (batch_ && sqlite3_get_autocommit(connection_.get()) != 0)
    throw platform::RuntimeError(platform::kEngineFailure, path_,
                                 "A gravação foi interrompida a meio por uma falha do disco: nada do que lhe "
                                 "pertence ficou gravado. Verifique o espaço no disco e repita.");
}

// A file that was removed can still be written to, but nobody would ever find what is written.
void Engine::RequireInPlace() const {
  int moved = 0;
  sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  if (moved != 0)
    throw platform::RuntimeError(
        platform::kEngineFailure, path_,
        "O ficheiro da base de dados já não está no seu lugar: foi movido ou apagado. Nada foi "
        "gravado. O que está aberto ainda se pode guardar com \"Ficheiro > Guardar cópia…\".");
}

}  // namespace embedded
