#pragma once

#include "history/keeping_store.h"
#include "platform/recordset.h"

namespace history {

/// Rows opened for editing whose writes are recorded. They go to the recordset of the engine as they are.
class KeptRows : public platform::Recordset {
 public:
  KeptRows(KeepingStore& store, const tsql::Table& table, zorCrmParvel::RecordsetRef inner);

 protected:
  bool Reach(std::size_t row) override;
  std::size_t Count() override;
  void Insert(const Assignments& values) override;
  void Change(std::size_t row, const Assignments& values) override;
  void Released() override;

 private:
  void Send(const Assignments& values);
  void GoTo(std::size_t row);
  void TakeRow(std::size_t row);
  Image RowAt(std::size_t row) const;
  Image Before(std::size_t row, const Assignments& values);
  bool KnowsWhole(const Assignments& values) const;

  KeepingStore& store_;
  const tsql::Table& table_;
  zorCrmParvel::RecordsetRef inner_;
  Places fieldOf_;
  long readIn_;  // the unit; 0: in none
  std::size_t innerRow_ = 0;
};

}  // namespace history
