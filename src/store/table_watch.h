#pragma once

#include <set>
#include <string>
#include <utility>

#include "store/forwarding_store.h"

namespace store {

/// Names of tables, in small letters.
using TableNames = std::set<std::string>;

/// A database that notes which tables are read through it and which may have been written: rows opened for
/// editing count as written. Lookups and reports, which read through a connection, are not noted.
class TableWatch : public ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;

  /// Those noted since the last call.
  TableNames TakeRead() { return std::exchange(read_, {}); }
  TableNames TakeWritten() { return std::exchange(written_, {}); }

 protected:
  bool Execute(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;

 private:
  TableNames read_;
  TableNames written_;
};

/// The tables that a statement names: behind FROM, JOIN, INTO, UPDATE and DELETE.
TableNames TablesIn(const std::string& statement);

}  // namespace store
