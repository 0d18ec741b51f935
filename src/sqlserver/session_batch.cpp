// Writes that are kept together, and what is read ahead within them.
#include <optional>
#include <utility>

#include "sqlserver/errors.h"
#include "sqlserver/result_numbers.h"
#include "sqlserver/session.h"

namespace sqlserver {
namespace {

constexpr const char* kRollback = "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION";

}  // namespace

/// Some failures of one statement make the server undo everything before it. Nothing may be written after
/// that as if it were still there: the connection goes, and the batch with it.
void Session::RequireBatchStands() {
  if (*dialect_->batchTest == '\0' || !batchWrote_) return;
  std::optional<long> state;
  try {
    const auto statement = link_->NewStatement();
    ++traffic_->trips;
    statement->Execute(dialect_->batchTest);
    state = NumberIn(*statement);
  } catch (const OdbcFailure&) {
    state.reset();
  }
  if (state != 1) link_.reset();
}

Session::Ahead Session::Expected(const std::string& table, const store::WrittenValue& value) const {
  if (!batch_ || !expect_ || !dialect_->batches) return {};
  return expect_(table, value);
}

/// Keeps the answers to what was read ahead of a write that is done. One that fails is asked again when it is
/// wanted, and is told then.
void Session::TakeAhead(const OdbcStatement& statement, const Ahead& ahead) {
  try {
    for (const std::string& read : ahead) {
      if (!statement.NextResult() || !AtRows(statement)) return;
      ResultReader reader(statement);
      known_.Keep(read, reader);
      traffic_->rows += reader.rows();
      traffic_->bytes += reader.bytes();
    }
    while (statement.NextResult()) {
    }
  } catch (const OdbcFailure& failure) {
    known_.Forget();
    if (IsTimeout(failure) || IsConnectionLost(failure) || link_->BrokeOff()) throw;
    RequireBatchStands();
  }
}

void Session::RunAlone(Work work, const std::string& sql) {
  Do(work, [&](const Link& link) {
    ++traffic_->trips;
    const auto statement = link.NewStatement();
    statement->Execute(sql);
    while (statement->NextResult()) {
    }
  });
}

/// Begins a batch on the server before a statement that can't bring the beginning along.
void Session::BeginAlone() {
  if (begin_.empty()) return;
  RunAlone(Work::kBegin, begin_);
  begin_.clear();
}

/// The text that was to begin the batch failed: nothing of it stays, and the next one begins it.
void Session::NotBegun(const std::string& begin) {
  try {
    ++traffic_->trips;
    link_->NewStatement()->Execute(kRollback);
    begin_ = begin;
  } catch (const OdbcFailure&) {
    link_.reset();
  }
}

void Session::BeginBatch() {
  known_.Forget();
  batchWrote_ = false;
  if (dialect_->batches) {
    Do(Work::kBegin, [](const Link&) {});
    begin_ = std::string("BEGIN TRANSACTION; ") + dialect_->takeTurn + "; ";
  } else {
    ++traffic_->trips;
    Do(Work::kBegin, [](const Link& link) { link.CommitEach(false); });
  }
  batch_ = true;
}

void Session::CommitBatch() {
  known_.Forget();
  if (dialect_->batches) {
    if (begin_.empty()) RunAlone(Work::kCommit, "COMMIT TRANSACTION");
    begin_.clear();
    batch_ = false;
    return;
  }
  ++traffic_->trips;
  Do(Work::kCommit, [](const Link& link) { link.End(SQL_COMMIT); });
  batch_ = false;
  try {
    ++traffic_->trips;
    link_->CommitEach(true);
  } catch (const OdbcFailure&) {
    link_.reset();  // all is stored, and the next operation connects anew
  }
}

void Session::AbandonBatch() {
  known_.Forget();
  const bool begun = begin_.empty();
  begin_.clear();
  batch_ = false;
  if (link_ == nullptr || !begun) return;
  try {
    ++traffic_->trips;
    if (dialect_->batches) {
      link_->NewStatement()->Execute(kRollback);
      return;
    }
    ++traffic_->trips;
    link_->End(SQL_ROLLBACK);
    link_->CommitEach(true);
  } catch (const OdbcFailure&) {
    link_.reset();  // the server undoes what a closed connection left
  }
}

}  // namespace sqlserver
