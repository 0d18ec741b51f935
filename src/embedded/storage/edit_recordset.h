#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "embedded/storage/select_recordset.h"

namespace embedded {

/// Rows of one table that can be added to and changed.
class EditRecordset : public SelectRecordset {
 public:
  static platform::RecordsetRef Start(std::shared_ptr<Engine> engine, const std::shared_ptr<Plan>& plan);
  EditRecordset(std::shared_ptr<Engine> engine, const std::shared_ptr<Plan>& plan);

 protected:
  void Insert(const Assignments& values) override;
  /// Error -2147217864 when the row has been removed meanwhile.
  void Change(std::size_t row, const Assignments& values) override;
  void RowRead(sqlite3_stmt* statement) override;

 private:
  std::vector<std::size_t> AssignedFields(const Assignments& values) const;
  void BindValues(sqlite3_stmt* statement, const std::vector<std::size_t>& fields,
                  const Assignments& values) const;
  void KeepValues(std::size_t row, const std::vector<std::size_t>& fields, const Assignments& values);

  std::shared_ptr<Engine> engine_;
  const tsql::Table& table_;
  std::vector<const tsql::Column*> columns_;  // behind the fields; null for an expression
  std::vector<std::int64_t> rowIds_;
  std::vector<std::size_t> inserted_;  // the fields of the row added last
  std::string insert_;                 // and its statement
};

}  // namespace embedded
