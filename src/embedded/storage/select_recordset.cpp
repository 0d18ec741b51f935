#include "embedded/storage/select_recordset.h"

#include <algorithm>
#include <limits>

#include "embedded/compiler/server_error.h"

namespace embedded {
namespace {

using platform::Cell;
using platform::FieldType;

constexpr std::size_t kMostRowsAhead = 64;
// To look at the log is to ask the system for a file's size: done for every 64 rows, it made a read of
// 100,000 rows 8 % longer.
constexpr std::size_t kRowsBetweenLooks = 1024;

Cell WholeCell(sqlite3_value* value, int storage, FieldType type) {
  const std::int64_t number = sqlite3_value_int64(value);
  const bool fits = type != FieldType::kLong || number == static_cast<std::int32_t>(number);
  if (!fits || storage == SQLITE_FLOAT)
    Refuse("Arithmetic overflow error converting expression to data type int.");
  return Cell::Number(type, number);
}

/// One column of the current row, with its text and bytes kept in the store. The value's own functions, which
/// only one thread may use, take half the time of those that name a column.
Cell CellOf(sqlite3_value* value, FieldType type, platform::RowStore& store) {
  const auto block = [&](const void* data) {
    const auto length = static_cast<std::size_t>(sqlite3_value_bytes(value));
    return Cell::Block(type, store.Keep({static_cast<const char*>(data), length}));
  };
  if (type == FieldType::kText) {
    const auto* text = sqlite3_value_text(value);
    return text == nullptr ? Cell() : block(text);
  }
  const int storage = sqlite3_value_type(value);
  if (storage == SQLITE_NULL) return {};
  if (type == FieldType::kDouble) return Cell::Real(sqlite3_value_double(value));
  if (type != FieldType::kBytes) return WholeCell(value, storage, type);
  return block(sqlite3_value_blob(value));
}

}  // namespace

platform::RecordsetRef SelectRecordset::Start(std::shared_ptr<Engine> engine, std::shared_ptr<Plan> plan) {
  const auto rows = std::make_shared<SelectRecordset>(std::move(engine), std::move(plan));
  rows->Reach(0);
  return platform::RecordsetRef(rows);
}

SelectRecordset::SelectRecordset(std::shared_ptr<Engine> engine, std::shared_ptr<Plan> plan)
    : engine_(std::move(engine)), plan_(std::move(plan)) {
  Opened(plan_->fields());
  engine_->Started(this);
}

SelectRecordset::~SelectRecordset() { Finish(); }

// One more row than asked for shows whether there is another, and often ends the read of the file; then ever
// more. A log that has grown long meanwhile waits for the end of the read.
bool SelectRecordset::Reach(std::size_t row) {
  if (row < store().rows()) return true;
  LookAtLog();
  const std::size_t wanted = row + std::clamp(store().rows(), std::size_t{1}, kMostRowsAhead);
  while (store().rows() <= wanted && ReadRow()) {
  }
  if (row < store().rows()) return true;
  if (failure_) throw *failure_;
  return false;
}

void SelectRecordset::LookAtLog() {
  if (store().rows() < nextLook_ || engine_ == nullptr) return;
  nextLook_ = store().rows() + kRowsBetweenLooks;
  const std::shared_ptr<Engine> engine = engine_;  // the look may read these rows to their end
  engine->KeepLogShort();
}

std::size_t SelectRecordset::Count() {
  if (plan_ != nullptr) {
    if (!count_) count_ = engine_->CountOf(*plan_);
    return *count_;
  }
  if (failure_) throw *failure_;
  return store().rows();
}

void SelectRecordset::ReadToEnd() {
  while (ReadRow()) {
  }
}

bool SelectRecordset::ReadRow() {
  if (plan_ == nullptr) return false;
  try {
    if (plan_->rows().Step()) {
      sqlite3_stmt* statement = plan_->rows().get();
      const FieldType* const types = plan_->fieldTypes().data();
      const int columns = static_cast<int>(plan_->fieldTypes().size());
      platform::RowStore& rows = store();
      Cell* const cells = rows.NextRow();
      for (int i = 0; i < columns; ++i) cells[i] = CellOf(sqlite3_column_value(statement, i), types[i], rows);
      rows.TakeRow();
      RowRead(statement);
      return true;
    }
  } catch (const platform::RuntimeError& failure) {
    failure_ = failure;
  }
  Finish();
  return false;
}

void SelectRecordset::Finish() {
  if (plan_ == nullptr) return;
  plan_->rows().Reset();
  plan_.reset();
  engine_->Ended(this);
  engine_.reset();
}

}  // namespace embedded
