#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "embedded/storage/engine.h"
#include "embedded/storage/plan.h"
#include "platform/recordset.h"
#include "platform/runtime_error.h"

namespace embedded {

/// The rows of a SELECT, read from the file as they are asked for.
class SelectRecordset : public platform::Recordset {
 public:
  /// Opens on a plan whose run has begun. A failure of the first row is raised here.
  static platform::RecordsetRef Start(std::shared_ptr<Engine> engine, std::shared_ptr<Plan> plan);
  SelectRecordset(std::shared_ptr<Engine> engine, std::shared_ptr<Plan> plan);
  ~SelectRecordset() override;

  /// Reads the rows that are left. A failure is raised when a row that is missing for it is asked for.
  void ReadToEnd();

 protected:
  bool Reach(std::size_t row) override;
  std::size_t Count() override;
  void Released() override { Finish(); }

  /// Called with the statement on each row, after the row was put into the store.
  virtual void RowRead(sqlite3_stmt*) {}

 private:
  bool ReadRow();
  void LookAtLog();
  void Finish();

  std::shared_ptr<Engine> engine_;  // both null when there is nothing left to read
  std::shared_ptr<Plan> plan_;
  std::optional<std::size_t> count_;  // asked for once: the rows stay those of the opening
  std::optional<platform::RuntimeError> failure_;
  std::size_t nextLook_ = 1;  // the rows at which the log is looked at next
};

}  // namespace embedded
