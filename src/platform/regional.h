#pragma once

#include <string>

namespace platform {

/// The regional settings that texts of numbers and dates depend on. One object of the process; Portuguese
/// until another is installed, which a host does before it starts a second thread.
struct Regional {
  char decimal = ',';
  char grouping = '.';
  char dateSeparator = '-';  // short dates are day, month, year
  std::string currency = "€";

  static const Regional& Current();
  /// Takes a copy. Texts that are on the screen stay as they are.
  static void Install(const Regional& settings);
};

}  // namespace platform
