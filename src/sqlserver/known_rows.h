#pragma once

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/recordset.h"
#include "sqlserver/result_reader.h"

namespace sqlserver {

/// Gives the place for rows of these fields.
using RowsPlace = std::function<platform::RowStore&(const std::vector<platform::FieldInfo>& fields)>;

/// Answers that hold until something is written: what was read since a batch began, in which nobody else
/// writes, and what was read ahead with a write.
class KnownRows {
 public:
  static constexpr std::size_t kMostRows = 5000;  // of an answer that is kept

  /// Gives the rows of a statement, if they are known.
  bool Give(const std::string& sql, const RowsPlace& place) const;
  void Keep(const std::string& sql, const std::vector<platform::FieldInfo>& fields,
            const platform::RowStore& rows);
  /// Keeps a result that is still to be read, however many rows it has.
  void Keep(const std::string& sql, ResultReader& result);
  void Forget() { answers_.clear(); }

 private:
  struct Answer {
    std::vector<platform::FieldInfo> fields;
    platform::RowStore rows;
  };
  std::unordered_map<std::string, std::unique_ptr<Answer>> answers_;
};

}  // namespace sqlserver
