#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// A day and a time of day on the civil calendar, to the second, without a time zone.
/// The zero date is 30-12-1899 00:00:00; in the program it stands for "no date".
class Date {
 public:
  constexpr Date() = default;
  /// Error 13 when there is no such day or time.
  static Date FromParts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
  /// The same without the error, for a time in seconds since midnight; false leaves `out` alone.
  static bool TryFromParts(int year, int month, int day, int secondOfDay, Date& out);
  static constexpr Date FromSeconds(std::int64_t sinceZero) {
    Date d;
    d.seconds_ = sinceZero;
    return d;
  }
  /// Reads "dd-mm-yyyy" (also "/" and "."), "yyyy-mm-dd", "yyyy.mm.dd", each with an optional time, or a time
  /// alone. A two-digit year below 30 is 20xx, else 19xx. Error 13 when the text is no date.
  static Date Parse(std::string_view text);
  /// The same without the error; false leaves `out` alone.
  static bool TryParse(std::string_view text, Date& out);

  int year() const;
  int month() const;
  int day() const;
  int hour() const;
  int minute() const;
  int second() const;
  /// Whole days since the zero date; days before it are negative.
  std::int64_t days() const;
  /// Seconds since the zero date.
  constexpr std::int64_t seconds() const { return seconds_; }
  bool IsZero() const { return seconds_ == 0; }
  /// The midnight that the day began with.
  Date DayOnly() const;

  Date AddDays(std::int64_t days) const;
  /// Keeps the day, or clips it to the last one of the month.
  Date AddMonths(int months) const;
  /// The face that the regional settings give: a midnight is shown without its time, the zero date as
  /// "00:00:00".
  std::string ToText() const;

  friend constexpr auto operator<=>(Date, Date) = default;

 private:
  std::int64_t seconds_ = 0;
};

/// The computer's clock, in local time.
Date SystemTime();
/// Midnights from `a` to `b`, signed; the time of day does not count.
std::int64_t DaysBetween(Date a, Date b);
/// A date compared with one of the texts "00:00:00" or "30-12-1899": both are faces of the zero date.
bool EqualsText(Date date, std::string_view text);

}  // namespace platform
