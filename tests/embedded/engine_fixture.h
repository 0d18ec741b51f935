#pragma once

#include <gtest/gtest.h>

#include <string>

#include "embedded/database.h"
#include "support/engine_tables.h"
#include "support/temporary_folder.h"

namespace embedded_tests {

using testing_support::ErrorOf;
using testing_support::NumberOf;
using testing_support::Table;
using testing_support::TemporaryFolder;
using zorCrmParvel::RecordsetRef;

/// A statement, and "number: words" of the error that it raises.
struct Refusal {
  const char* statement;
  const char* error;
};

inline embedded::OpenOptions Options(const std::string& schema = testing_support::EngineTables()) {
  embedded::OpenOptions options;
  options.schema = schema;
  options.busyTimeout = std::chrono::milliseconds(50);
  options.clock = [] { return platform::Date::FromParts(2024, 3, 1, 12, 0, 0); };
  return options;
}

class EngineTest : public testing::Test, protected testing_support::EngineUser {
 protected:
  using EngineUser::Run;

  EngineTest() { store_ = embedded::Database::Open(":memory:", Options()); }
  /// The number of rows from the current one on; the end is reached.
  static std::size_t ReadOn(const RecordsetRef& rows) {
    std::size_t count = 0;
    for (; !rows->Eof(); rows->MoveNext()) ++count;
    return count;
  }
  /// The one value of the first row.
  std::string Value(const std::string& statement) const { return Rows(statement).at(0).at(0); }
};

}  // namespace embedded_tests
