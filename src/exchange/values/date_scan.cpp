#include "exchange/values/date_scan.h"

#include <algorithm>
#include <array>
#include <string>

#include "exchange/values/fold.h"

namespace exchange {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (static_cast<unsigned char>(c) >= 0x80);
}

/// How the names of the months begin, in four languages; "|" parts them.
constexpr std::array<std::string_view, 12> kMonths = {
    "jan|ene|janv",  "fev|feb|fevr", "mar|mars|marc", "abr|apr|avr|avril", "mai|may|maio", "jun|juin|junh",
    "jul|juil|julh", "ago|aug|aou",  "set|sep|sept",  "out|oct",           "nov",          "dez|dec|dic"};
constexpr std::string_view kWithoutMeaning =
    "|de|del|do|of|the|le|el|st|nd|rd|th|o|a|er|e|t|z|utc|gmt|as|at|h|seg|ter|qua|qui|sex|sab|dom|mon|tue|"
    "wed|"
    "thu|fri|sat|sun|lun|mie|jue|vie|jeu|ven|sam|dim|segunda|terca|quarta|quinta|sexta|sabado|domingo|feira|"
    "monday|tuesday|wednesday|thursday|friday|saturday|sunday|";

int MonthNamed(const std::string& word) {
  if (word.size() < 3) return 0;
  if (word.starts_with("mai") || word == "may" || word == "mayo") return 5;
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    std::string_view names = kMonths[i];
    while (!names.empty()) {
      const auto end = std::min(names.find('|'), names.size());
      // A name is written out, or cut after its beginning.
      if (word.starts_with(names.substr(0, end)) && word.size() <= 10) return static_cast<int>(i) + 1;
      names.remove_prefix(std::min(end + 1, names.size()));
    }
  }
  return 0;
}

}  // namespace

DateScan::DateScan(std::string_view text) : text_(text) {
  while (sound_ && place_ < text_.size()) {
    const char c = text_[place_];
    if (IsDigit(c)) {
      ReadDigits();
    } else if (second_ >= 0 && (c == '+' || (c == '-' && IsDigit(At(place_ + 1))))) {
      place_ = text_.size();  // the zone: what stands before it is the time of the place
    } else if (IsLetter(c)) {
      ReadWord();
    } else {
      sound_ = std::string_view(" -/.,'()\t").find(c) != std::string_view::npos;
      ++place_;
    }
  }
}

bool DateScan::ReadNumber(long long& value, std::size_t& digits) {
  value = 0;
  digits = 0;
  for (; IsDigit(At(place_)) && digits < 15; ++place_, ++digits) value = value * 10 + (text_[place_] - '0');
  return digits > 0 && !IsDigit(At(place_));
}

void DateScan::ReadDigits() {
  long long value = 0;
  std::size_t digits = 0;
  if (!ReadNumber(value, digits)) {
    sound_ = false;
    return;
  }
  const char mark = At(place_);
  const bool hour = mark == ':' || ((mark == 'h' || mark == 'H') && digits <= 2);
  if (hour && digits <= 2)
    ReadTime(value, mark);
  else
    numbers_.push_back({value, digits});
}

void DateScan::ReadTime(long long hour, char mark) {
  ++place_;
  std::array<long long, 2> parts{};  // minutes and seconds
  for (std::size_t i = 0; i < parts.size(); ++i) {
    std::size_t digits = 0;
    if (!ReadNumber(parts[i], digits)) {
      if (digits > 0 || i > 0 || mark == ':') sound_ = false;
      break;  // "8h"
    }
    const char next = At(place_);
    if (i == 0 && (next == ':' || next == 'm' || next == '\'') && IsDigit(At(place_ + 1)))
      ++place_;
    else
      break;
  }
  if (At(place_) == '.' && IsDigit(At(place_ + 1)))
    for (++place_; IsDigit(At(place_));) ++place_;  // parts of a second
  const bool beyond = hour > 24 || (hour == 24 && parts[0] + parts[1] > 0) || parts[0] > 59 || parts[1] > 59;
  if (second_ >= 0 || beyond) {
    sound_ = false;
    return;
  }
  second_ = static_cast<int>((hour * 60 + parts[0]) * 60 + parts[1]) % 86400;
}

void DateScan::ReadWord() {
  const std::size_t begin = place_;
  while (IsLetter(At(place_))) ++place_;
  std::string word = Folded(text_.substr(begin, place_ - begin));
  if ((word == "a" || word == "p") && At(place_) == '.' && (At(place_ + 1) | 0x20) == 'm') {
    word += 'm';
    place_ += At(place_ + 2) == '.' ? 3 : 2;
  }
  if (word == "am" || word == "pm") return Halve(word == "pm");
  if (kWithoutMeaning.find("|" + word + "|") != std::string_view::npos || word.empty()) return;
  const int month = MonthNamed(word);
  sound_ = month > 0 && month_ == 0;
  month_ = month;
  monthBefore_ = numbers_.empty();
}

void DateScan::Halve(bool afternoon) {
  // "8 PM" has an hour without minutes.
  if (second_ < 0 && !numbers_.empty()) {
    second_ = static_cast<int>(std::min(numbers_.back().value, 24LL)) * 3600;
    numbers_.pop_back();
  }
  constexpr int kHalf = 12 * 3600;
  if (second_ < 0 || second_ >= kHalf + 3600) {
    sound_ = second_ >= 0 && afternoon;  // "14:30 PM" is written as well
    return;
  }
  second_ = second_ % kHalf + (afternoon ? kHalf : 0);
}

}  // namespace exchange
