#pragma once

#include <string>

namespace history {

/// Who works, and where.
struct Who {
  std::string operador;
  std::string posto;
  /// The name with which somebody is logged in, and the computer's.
  static Who OfThisProcess();
};

}  // namespace history
