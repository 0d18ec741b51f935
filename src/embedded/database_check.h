#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace embedded {

/// What a look at a database file found.
struct FileReport {
  std::int64_t version = 0;
  std::int64_t tables = 0;
  std::int64_t rows = 0;
  std::vector<std::string> problems;  // each says what to do; none when all is well
};

}  // namespace embedded
