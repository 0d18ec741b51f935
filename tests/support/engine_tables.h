#pragma once

#include <memory>
#include <string>

#include "store/store.h"
#include "support/errors.h"
#include "support/recording_data_access.h"

namespace testing_support {

/// The schema of two tables: Tudo, with a column of every type, and Codigos. Their names begin with `prefix`.
std::string EngineTables(const std::string& prefix = "");

/// Statements on these tables, in whatever engine holds them.
class EngineUser {
 protected:
  explicit EngineUser(const std::string& prefix = "") : codes_(prefix + "Codigos") {}

  void Run(const std::string& statement) const { store_->ExecutarSql("", statement.c_str()); }
  zorCrmParvel::RecordsetRef Open(const std::string& statement) const;
  zorCrmParvel::RecordsetRef Edit(const std::string& statement) const;
  Table Rows(const std::string& statement) const { return testing_support::Rows(store_, statement); }
  /// The codes C1001, C1002, … with names.
  void AddCodes(int count) const;

  std::shared_ptr<zorCrmParvel::Store> store_;

 private:
  std::string codes_;
};

}  // namespace testing_support
