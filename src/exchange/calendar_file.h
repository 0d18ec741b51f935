#pragma once

#include <string>
#include <vector>

#include "platform/date.h"

namespace exchange {

/// An all-day entry of a calendar. Texts are plain; the writer escapes them.
struct CalendarEntry {
  std::string uid;  // the same for the same entry in every file
  platform::Date day;
  std::string summary;
  std::string description;
};

/// A calendar in the iCalendar format (RFC 5545), in UTF-8. `stamp` is the local time of writing.
std::string WriteCalendar(const std::vector<CalendarEntry>& entries, platform::Date stamp);

}  // namespace exchange
