#pragma once

#include <memory>
#include <string>

#include "embedded/database.h"
#include "host/sistema.h"
#include "platform/form.h"

namespace desktop {

/// One open database with the module on top of it.
class Workspace {
 public:
  /// Opens the database, or creates it. Error -2147467259 when it can't be used; it is then as it was.
  explicit Workspace(const std::string& path);

  zorCrmParvel::Sistema& sistema() { return sistema_; }
  embedded::Database& database() { return *database_; }
  /// Fills an empty database with demonstration data; one with data is left alone.
  void FillDemo();

 private:
  std::shared_ptr<embedded::Database> database_;
  platform::Form window_;  // the main window, as the module sees it
  zorCrmParvel::Sistema sistema_;
};

}  // namespace desktop
