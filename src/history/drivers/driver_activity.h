#pragma once

#include <optional>
#include <string>
#include <vector>

#include "history/keeping_store.h"

namespace history {

/// A driver on whom nothing has happened for long.
struct QuietDriver {
  std::string code;
  std::string name;
  std::optional<platform::Date> last;  // the last expense, fine or accident; none: there was never one
};

/// The drivers without an event from a day on, those of whom nothing has been heard for longest first.
std::vector<QuietDriver> DriversQuietSince(KeepingStore& store, platform::Date day);
/// Whether there is a driver of that code, and his name.
std::optional<std::string> NameOfDriver(KeepingStore& store, const std::string& code);

}  // namespace history
