#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kill_tests {

/// What a program that was killed, or ended, has told before.
struct Told {
  std::vector<std::string> lines;  // an error's begins with "!"
  int steps = 0;                   // that it took; 0 when it was killed
  bool Has(const std::string& line) const;
};

using Tell = std::function<void(const std::string&)>;

/// Runs `act` in a program of its own that is killed before its step `killAt` (0: never), and in any case
/// ends without closing anything. `heard` gets each line as it is told.
Told RunKilled(
    int killAt, const std::function<void(const Tell&)>& act, const Tell& heard = [](const std::string&) {});

}  // namespace kill_tests
