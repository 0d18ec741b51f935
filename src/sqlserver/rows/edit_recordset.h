#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/recordset.h"
#include "sqlserver/rows/editable_rows.h"
#include "sqlserver/session.h"

namespace sqlserver {

/// Rows of one table that can be added to and changed, each by its primary key. All are read when it is
/// opened; `Update` sends one INSERT or UPDATE with the columns assigned.
class EditRecordset : public platform::Recordset {
 public:
  /// Errors as of `EditableRows::Of`, and the server's.
  EditRecordset(std::shared_ptr<Session> session, std::shared_ptr<const tsql::Catalog> catalog,
                const std::string& statement);

 protected:
  bool Reach(std::size_t row) override { return row < store().rows(); }
  std::size_t Count() override { return store().rows(); }
  void Insert(const Assignments& values) override;
  /// Error -2147217864 when the row has been removed meanwhile.
  void Change(std::size_t row, const Assignments& values) override;

 private:
  struct Key {
    std::size_t place;  // in the stored row, also beyond the fields
    platform::FieldInfo field;
  };

  void TakeFields();
  Session::Ahead Expected(std::size_t row, const Assignments& values);
  std::vector<std::size_t> AssignedFields(const Assignments& values) const;
  void KeepValues(std::size_t row, const std::vector<std::size_t>& fields, const Assignments& values);

  std::shared_ptr<Session> session_;
  std::shared_ptr<const tsql::Catalog> catalog_;  // holds the table
  EditableRows rows_;
  std::vector<std::string> columns_;  // behind the stored columns; empty for what can't be written
  std::vector<Key> keys_;
};

}  // namespace sqlserver
