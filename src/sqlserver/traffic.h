#pragma once

#include <chrono>
#include <string>

namespace sqlserver {

/// What went between the program and a server.
struct Traffic {
  long statements = 0;
  /// Times that the server was waited for. Rows that follow an answer take none of their own.
  long trips = 0;
  long rows = 0;   // read
  long bytes = 0;  // of their values, as they came
  /// The statement that took the longest, with its rows.
  std::chrono::microseconds slowest{0};
  std::string slowestStatement;
};

}  // namespace sqlserver
