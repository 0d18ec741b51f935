#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// Takes the parts of a date or a time from the front of a text, whatever their order. After an answer of
/// false the rest of the text means nothing.
class DateReader {
 public:
  explicit DateReader(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  /// A number of `least` to `most` digits, at most nine.
  bool Number(std::size_t least, std::size_t most, int& out) {
    out = 0;
    digits_ = 0;
    for (; digits_ < rest_.size() && digits_ < most && IsDigit(rest_[digits_]); ++digits_)
      out = out * 10 + (rest_[digits_] - '0');
    rest_.remove_prefix(digits_);
    return digits_ >= least;
  }
  /// How many digits the last number had.
  std::size_t digits() const { return digits_; }

  /// One of the characters allowed.
  bool Mark(std::string_view allowed, char& out) {
    if (rest_.empty() || allowed.find(rest_.front()) == std::string_view::npos) return false;
    out = rest_.front();
    rest_.remove_prefix(1);
    return true;
  }

  /// A time of the day, "h:mm" or "h:mm:ss", in seconds since midnight; minutes and seconds have `least`
  /// digits at least.
  bool Time(std::size_t least, int& secondOfDay) {
    int hour = 0;
    int minute = 0;
    int second = 0;
    char mark = 0;
    if (!Number(1, 2, hour) || !Mark(":", mark) || !Number(least, 2, minute)) return false;
    if (Mark(":", mark) && !Number(least, 2, second)) return false;
    secondOfDay = (hour * 60 + minute) * 60 + second;
    return hour < 24 && minute < 60 && second < 60;
  }

 private:
  static bool IsDigit(char c) { return c >= '0' && c <= '9'; }

  std::string_view rest_;
  std::size_t digits_ = 0;
};

}  // namespace platform
