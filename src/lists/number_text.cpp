#include "lists/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "lists/words.h"
#include "platform/date.h"

namespace lists {
namespace {

constexpr std::size_t kSamples = 64;
constexpr int kDecimals = 4;  // of the numbers that are written here
constexpr std::int64_t kUnit = 10000;
constexpr double kMost = 9e14;
constexpr int kGroup = 3;
constexpr int kMinute = 60;
constexpr std::int64_t kDay = std::int64_t{24} * kMinute * kMinute;

/// Writes from the end of a place to its beginning.
class Backwards {
 public:
  template <std::size_t size>
  explicit Backwards(std::array<char, size>& place) : begin_(place.data() + size), end_(begin_) {}
  void Add(char c) { *--begin_ = c; }
  void AddDigits(std::int64_t number, int digits) {
    for (int i = 0; i < digits; ++i, number /= 10) Add(static_cast<char>('0' + number % 10));
  }
  std::string_view Text() const { return {begin_, static_cast<std::size_t>(end_ - begin_)}; }

 private:
  char* begin_;
  char* end_;
};

std::int64_t Power(int exponent) {
  std::int64_t power = 1;
  for (int i = 0; i < exponent; ++i) power *= 10;
  return power;
}

/// The sign is a hyphen, which folded texts don't have.
void WriteNumber(std::int64_t units, int decimals, Backwards& out) {
  const bool grouped = decimals >= 0;
  std::int64_t number = units;
  if (grouped) {
    const std::int64_t step = Power(kDecimals - decimals);
    number = (units + step / 2) / step;
  } else {
    for (decimals = kDecimals; decimals > 0 && number % 10 == 0; --decimals) number /= 10;
  }
  out.AddDigits(number, decimals);
  number /= Power(decimals);
  if (decimals > 0) out.Add(',');
  int written = 0;
  do {
    if (grouped && written > 0 && written % kGroup == 0) out.Add('.');
    out.AddDigits(number, 1);
    number /= 10;
    ++written;
  } while (number > 0);
}

/// "24112026", with a time "2411202613:45:00".
void WriteDate(std::int64_t seconds, bool time, Backwards& out) {
  const platform::Date date = platform::Date::FromSeconds(seconds);
  const std::int64_t of_day = (seconds % kDay + kDay) % kDay;
  if (time && of_day != 0) {
    out.AddDigits(of_day % kMinute, 2);
    out.Add(':');
    out.AddDigits(of_day / kMinute % kMinute, 2);
    out.Add(':');
    out.AddDigits(of_day / kMinute / kMinute, 2);
  }
  out.AddDigits(date.year(), 4);
  out.AddDigits(date.month(), 2);
  out.AddDigits(date.day(), 2);
}

}  // namespace

NumberText::NumberText(const Cells& cells, std::size_t column, Kind kind,
                       const std::vector<double>& numbers) {
  if (kind == Kind::kDate) {
    styles_ = {{.kind = kind, .time = true}, {.kind = kind, .time = false}};
  } else {
    for (int decimals = -1; decimals < kDecimals; ++decimals)
      styles_.push_back({.kind = kind, .decimals = decimals});
  }
  const std::size_t step = numbers.size() / kSamples + 1;
  for (std::size_t row = 0; row < numbers.size(); row += step) {
    if (std::isnan(numbers[row])) continue;
    const std::string shown = Folded(cells.Shown(static_cast<long>(row), column));
    std::erase_if(styles_, [&](const Style& style) {
      const auto written = Write(style, numbers[row], place_);
      return written && *written != shown;
    });
  }
}

bool NumberText::CanHold(std::string_view word) const {
  if (word.find_first_not_of("0123456789") != std::string_view::npos) return true;
  return std::any_of(styles_.begin(), styles_.end(), [&](const Style& style) {
    return style.kind == Kind::kDate || style.decimals < 0 ||
           word.size() <= static_cast<std::size_t>(std::max(kGroup, style.decimals));
  });
}

bool NumberText::IsPlain(double number) {
  const double units = std::abs(number) * static_cast<double>(kUnit);
  return std::isnan(number) || (units < kMost && std::abs(units - std::round(units)) <= 1e-4);
}

std::optional<std::string_view> NumberText::Write(const Style& style, double number, Place& place) {
  Backwards out(place);
  if (style.kind == Kind::kDate) {
    if (number == 0) return {};  // its face is another's
    WriteDate(static_cast<std::int64_t>(number), style.time, out);
    return out.Text();
  }
  if (!IsPlain(number)) return {};
  WriteNumber(std::llround(std::abs(number) * static_cast<double>(kUnit)), style.decimals, out);
  return out.Text();
}

std::optional<std::string_view> NumberText::Of(double number) {
  if (std::isnan(number)) return std::string_view();
  std::optional<std::string_view> text;
  for (std::size_t i = 0; i < styles_.size(); ++i) {
    const auto written = Write(styles_[i], number, i == 0 ? place_ : other_);
    if (!written || (i > 0 && *written != *text)) return {};
    text = i == 0 ? written : text;
  }
  return text;
}

}  // namespace lists
