#pragma once

#include <set>
#include <string>
#include <vector>

#include "history/drivers/driver_tables.h"

namespace history {

/// What the history holds on one driver.
class DriverHistory {
 public:
  /// `with` is the code that stands for the person afterwards.
  DriverHistory(KeepingStore& store, std::string code, std::string with)
      : store_(store), code_(std::move(code)), with_(std::move(with)) {}

  /// His record as it ever was.
  std::vector<Image> Records();
  /// Takes him out: what operations did to his own rows goes, and with it that they can be undone; in his
  /// events and in what the operations are called the other code stands for his.
  void Erase();

 private:
  struct Sides {
    std::vector<Image> before;
    std::vector<Image> after;
  };

  zorCrmParvel::RecordsetRef Open(const DriverTable& from, const std::string& condition);
  Sides Read(const tsql::Table& table, platform::Recordset& row) const;
  void Take(const DriverTable& from);
  void Replace(const DriverTable& from);
  void Store(const tsql::Table& table, platform::Recordset& row, const Sides& sides);
  void RenameHeads();

  KeepingStore& store_;
  std::string code_;
  std::string with_;
  std::set<long> heads_;    // of operations that touched his own rows
  std::vector<long> gone_;  // rows of the history of which nothing is left
};

}  // namespace history
