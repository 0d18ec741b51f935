#pragma once

#include <string_view>
#include <vector>

namespace exchange {

/// What stands in the text of a date: its numbers with their digits, the name of a month, a time.
class DateScan {
 public:
  struct Number {
    long long value;
    std::size_t digits;
  };
  /// Nothing but parts of a date and what may stand between them.
  explicit DateScan(std::string_view text);

  bool sound() const { return sound_; }
  const std::vector<Number>& numbers() const { return numbers_; }
  int month() const { return month_; }         // 0: no name
  int secondOfDay() const { return second_; }  // -1: no time
  bool monthBeforeNumbers() const { return monthBefore_; }

 private:
  void ReadDigits();
  void ReadTime(long long hour, char mark);
  void ReadWord();
  bool ReadNumber(long long& value, std::size_t& digits);
  void Halve(bool afternoon);
  char At(std::size_t place) const { return place < text_.size() ? text_[place] : '\0'; }

  std::string_view text_;
  std::size_t place_ = 0;
  bool sound_ = true;
  bool monthBefore_ = false;
  std::vector<Number> numbers_;
  int month_ = 0;
  int second_ = -1;
};

}  // namespace exchange
