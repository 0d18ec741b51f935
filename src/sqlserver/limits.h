#pragma once

#include <chrono>

namespace sqlserver {

/// How long to wait for a server.
struct Limits {
  /// How long one statement may take; 0: for ever.
  std::chrono::seconds statement{30};
  /// How long the server may take to answer a connection.
  std::chrono::seconds login{15};
  /// A connection unused for longer is tried before something is written on it.
  std::chrono::seconds idle{30};
};

}  // namespace sqlserver
