#pragma once

#include <string>
#include <vector>

#include "embedded/database.h"
#include "host/data_access.h"

namespace testing_support {

using Table = std::vector<std::vector<std::string>>;

/// A data-access object that keeps the text of every statement that went through it.
class RecordingDataAccess : public zorCrmParvel::DataAccess {
 public:
  explicit RecordingDataAccess(zorCrmParvel::DataAccessRef inner) : inner_(std::move(inner)) {}

  std::vector<std::string> statements;

  /// From now on any use of it fails the test.
  void Leave() { left_ = true; }

  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override {
    return Inner().ObterLigacao(connection);
  }
  void BeginSnapshot() override { Inner().BeginSnapshot(); }
  void EndSnapshot() noexcept override { inner_->EndSnapshot(); }

 protected:
  bool Execute(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;

 private:
  zorCrmParvel::DataAccess& Inner() const;

  zorCrmParvel::DataAccessRef inner_;
  bool left_ = false;
};

/// An empty embedded database in memory, whose getdate() is the current host's clock.
std::shared_ptr<embedded::Database> MemoryDatabase();
/// One of which the module knows the makes, and the programs around it nothing.
std::shared_ptr<embedded::Database> BareDatabase();

/// All rows of a recordset, and of a statement, as texts; null is "NULL".
Table Rows(const zorCrmParvel::RecordsetRef& rows);
Table Rows(const zorCrmParvel::DataAccessRef& bd, const std::string& statement);

}  // namespace testing_support
