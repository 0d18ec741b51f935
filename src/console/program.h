#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace console {

/// Exit codes of the program, for scripts.
enum ExitCode : int {
  kDone = 0,
  kRefused =
      1,  // understood, but not to be done: a list that isn't there, demonstration data on a full database
  kUsage = 2,   // the call's words are off
  kFailed = 3,  // the database or the disk failed
  kDue = 10,    // alerts: something is due; exceptions: some are open
};

/// Runs the program on its arguments (without its name). Results go to `out`, messages to `err`. `kFailed`,
/// whatever was done, when `out` didn't take all of it.
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace console
