#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "console/program.h"
#include "support/temporary_folder.h"

namespace console {

/// The program as it is called, and what its last call wrote.
class ProgramFixture : public testing::Test {
 protected:
  /// What the program keeps for its user stays in the folder, too.
  ProgramFixture() { setenv("XDG_DATA_HOME", File("dados").c_str(), 1); }
  ~ProgramFixture() override { unsetenv("XDG_DATA_HOME"); }
  std::string File(const std::string& name) const { return folder.File(name); }
  int Parvel(const std::vector<std::string>& arguments) {
    out.str("");
    err.str("");
    return console::Run(arguments, out, err);
  }
  int OnDatabase(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--db", database});
    return Parvel(arguments);
  }

  testing_support::TemporaryFolder folder;
  std::ostringstream out;
  std::ostringstream err;
  const std::string database = File("frota.db");
};

}  // namespace console
