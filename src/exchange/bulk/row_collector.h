#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/bulk/new_rows.h"
#include "host/data_access.h"

namespace exchange {

/// The rows that a kind of event adds, held back and sent many at a time. It stands before a database:
/// records write through it as ever, and what reads or writes their table finds them there.
class RowCollector : public zorCrmParvel::DataAccess {
 public:
  /// A row that was sent: its number, and the mark of its values (see `MarkOf`).
  using Sent = std::function<void(std::int32_t number, std::string mark)>;

  /// `table` is one whose key, `number`, the database gives. `sent` is told of every row, in the order in
  /// which they were added, but not yet while one is being added.
  RowCollector(zorCrmParvel::DataAccessRef bd, std::string table, std::string number, Sent sent);

  /// Sends what is held back.
  void Flush();

  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override;
  void BeginSnapshot() override { bd_->BeginSnapshot(); }
  void EndSnapshot() noexcept override { bd_->EndSnapshot(); }

 protected:
  bool Execute(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;

 private:
  class Row;
  void Take(const std::vector<platform::FieldInfo>& fields,
            const std::vector<std::optional<platform::Variant>>& values);
  void FlushBefore(std::string_view statement);

  zorCrmParvel::DataAccessRef bd_;
  std::string newRow_;  // the statement that opens none, for adding one
  std::vector<platform::FieldInfo> fields_;
  NewRows held_;
  std::vector<std::string> marks_;
  Sent sent_;
};

}  // namespace exchange
