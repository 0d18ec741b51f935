#pragma once

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "support/errors.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"

namespace testing_support {

/// A user whose answers the test sets, and an empty database in memory.
template <typename Data>
class BasicDatabaseTest : public testing::Test {
 protected:
  void Sql(const std::string& statement) { bd->ExecutarSql("", statement.c_str()); }

  ScriptedHost host;  // 15-03-2024
  platform::Ref<Data> bd = Make();

 private:
  static platform::Ref<Data> Make() {
    if constexpr (std::is_same_v<Data, RecordingDataAccess>)
      return platform::MakeRef<RecordingDataAccess>(MemoryDatabase());
    else
      return MemoryDatabase();
  }
};

using DatabaseTest = BasicDatabaseTest<embedded::Database>;
/// The same, which keeps the statements.
using RecordedTest = BasicDatabaseTest<RecordingDataAccess>;

}  // namespace testing_support
