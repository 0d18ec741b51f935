#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "notice/due_dates.h"

namespace notice {

/// Tells what becomes due from one look at a database to the next.
class DueWatch {
 public:
  /// Of what is due now, in its order, that which has come near, falls on today or is past and did not at the
  /// look before. What is dealt with or put off is left out. The first look tells nothing.
  std::vector<DueDate> Look(const std::vector<DueDate>& dates);

 private:
  enum class Nearness { kNear, kToday, kPast };
  static Nearness NearnessOf(const DueDate& due);

  std::optional<std::map<std::string, Nearness>> before_;
};

/// A few words to somebody who is at something else.
struct Announcement {
  std::string title;  // "Frota: 2 prazos"
  std::string text;   // a line for each of the first, and how many more there are
};
Announcement Announce(const std::vector<DueDate>& news);

}  // namespace notice
