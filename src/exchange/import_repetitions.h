#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "host/data_access.h"

namespace exchange {

/// The rows of a table from before an import, each of which stands for one row of the file: of n equal rows
/// in the file and m in the table, n - m are new. Needs a bit for each row of the table.
class Repetitions {
 public:
  /// `id` is the column that the database numbers.
  Repetitions(zorCrmParvel::DataAccessRef bd, const char* table, const char* id)
      : bd_(std::move(bd)), table_(table), id_(id) {}

  /// True when one of the rows selected, from before the import and standing for no other row of the file,
  /// passes the test; it stands for this one from now on. The statement selects the id and ends in a
  /// condition.
  bool Stand(
      zorCrmParvel::Statement rows,
      const std::function<bool(platform::Recordset&)>& equal = [](platform::Recordset&) { return true; });

 private:
  void FindLast();
  bool Take(std::int32_t id);

  zorCrmParvel::DataAccessRef bd_;
  const char* table_;
  const char* id_;
  bool begun_ = false;
  std::int32_t last_ = 0;  // the highest id from before the import
  std::vector<bool> taken_;
};

}  // namespace exchange
