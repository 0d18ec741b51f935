#pragma once

#include <string>

namespace platform {

/// The regional settings that texts of numbers and dates depend on. One object of the process; Portuguese
/// until another is installed.
struct Regional {
  char decimal = ',';
  char grouping = '.';
  char dateSeparator = '-';  // short dates are day, month, year
  std::string currency = "€";

  static const Regional& Current();
  static void Install(const Regional& settings);
};

}  // namespace platform
