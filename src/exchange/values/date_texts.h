#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/date.h"

namespace exchange {

/// In which order a file writes the parts of its dates.
enum class DateOrder { kDayFirst, kMonthFirst, kYearFirst };

/// A date as people and programs write it: the parts in the order told (a year of four digits tells itself),
/// with names of months in Portuguese, English, Spanish or French, "20240305", a day's number in a
/// spreadsheet ("45356", "45356,5"), with a time in 24 or 12 hours or without. A time alone is on the zero
/// date. None when it is no date.
std::optional<platform::Date> ReadDateText(std::string_view text, DateOrder order, bool calendar1904 = false);
/// The day and time of a spreadsheet's number, in the calendar that begins with 1900 or 1904. None when it is
/// no plausible day (before 1900 or after 2199).
std::optional<platform::Date> DayOfSerial(double serial, bool calendar1904);
/// The time that stands in a column of its own: "8:30", "0830", "083015", 0.354166 of a day. None when it is
/// no time.
std::optional<int> ReadTimeText(std::string_view text);

/// Finds out the order of a file's dates: one whose day is above 12 tells it.
class DateOrders {
 public:
  void Look(std::string_view text);
  /// None when there are dates that can be read in two ways and no other date tells, or they contradict each
  /// other. Without any doubt the day is first.
  std::optional<DateOrder> Found() const;
  /// The first date that can be read in two ways, for asking.
  const std::string& Doubt() const { return doubt_; }

 private:
  long dayFirst_ = 0;
  long monthFirst_ = 0;
  std::string doubt_;
};

}  // namespace exchange
