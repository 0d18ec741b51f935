#include "platform/currency.h"

#include <cmath>
#include <limits>

#include "platform/regional.h"
#include "platform/runtime_error.h"

namespace platform {
namespace {

constexpr std::int64_t kScale = 10000;
__extension__ using Wide = __int128;

/// The least 64-bit number is left out: nothing could take its sign away.
std::int64_t Narrow(Wide units) {
  constexpr Wide kMost = std::numeric_limits<std::int64_t>::max();
  if (units > kMost || units < -kMost) throw RuntimeError(kOverflow);
  return static_cast<std::int64_t>(units);
}

/// `numerator / divisor`, rounded to the nearest, a tie to the even one.
Wide DivideHalfToEven(Wide numerator, Wide divisor) {
  Wide quotient = numerator / divisor;
  const Wide rest = numerator % divisor;
  const Wide twice = (rest < 0 ? -rest : rest) * 2;
  if (twice > divisor || (twice == divisor && quotient % 2 != 0)) quotient += numerator < 0 ? -1 : 1;
  return quotient;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Reads the digits of a number between blanks; what the text means is checked on the way. The number comes
/// in units of its last decimal kept, rounded there once, half to even.
class NumberReader {
 public:
  NumberReader(std::string_view text, int decimals) : rest_(text), wanted_(decimals) {
    const auto first = rest_.find_first_not_of(' ');
    rest_ = first == std::string_view::npos ? std::string_view{} : rest_.substr(first);
    rest_ = rest_.substr(0, rest_.find_last_not_of(' ') + 1);
  }

  std::int64_t Read() {
    const bool negative = Sign();
    Whole();
    Fraction();
    if (!anyDigit_ || !rest_.empty()) throw RuntimeError(kTypeMismatch);
    const Wide units = RoundFraction();
    return Narrow(negative ? -units : units);
  }

 private:
  bool Sign() {
    if (rest_.empty() || (rest_[0] != '-' && rest_[0] != '+')) return false;
    const bool negative = rest_[0] == '-';
    rest_.remove_prefix(1);
    return negative;
  }

  void Whole() {
    const Regional& regional = Regional::Current();
    while (!rest_.empty() && (IsDigit(rest_[0]) || (anyDigit_ && rest_[0] == regional.grouping))) {
      if (IsDigit(rest_[0])) Digit(rest_[0]);
      rest_.remove_prefix(1);
    }
  }

  void Fraction() {
    if (rest_.empty() || rest_[0] != Regional::Current().decimal) return;
    rest_.remove_prefix(1);
    while (!rest_.empty() && IsDigit(rest_[0])) {
      anyDigit_ = true;
      if (decimals_ < wanted_) {
        Digit(rest_[0]);
        ++decimals_;
      } else {
        tail_.push_back(rest_[0]);
      }
      rest_.remove_prefix(1);
    }
  }

  void Digit(char c) {
    anyDigit_ = true;
    digits_ = digits_ * 10 + (c - '0');
    if (digits_ > Wide{std::numeric_limits<std::int64_t>::max()} * 2) throw RuntimeError(kOverflow);
  }

  Wide RoundFraction() {
    for (; decimals_ < wanted_; ++decimals_) digits_ *= 10;
    if (tail_.empty()) return digits_;
    const bool tie = tail_[0] == '5' && tail_.find_first_not_of('0', 1) == std::string::npos;
    const bool up = tie ? digits_ % 2 != 0 : tail_[0] >= '5';
    return digits_ + (up ? 1 : 0);
  }

  std::string_view rest_;
  int wanted_;
  Wide digits_ = 0;
  int decimals_ = 0;
  std::string tail_;  // digits beyond the last decimal kept
  bool anyDigit_ = false;
};

}  // namespace

Currency::Currency(long long whole) : units_(Narrow(Wide{whole} * kScale)) {}

Currency Currency::FromDouble(double value) {
  const double scaled = value * kScale;
  const double rounded = std::nearbyint(scaled);
  if (!(std::fabs(rounded) < 9223372036854775808.0)) throw RuntimeError(kOverflow);
  return FromTenThousandths(static_cast<std::int64_t>(rounded));
}

Currency Currency::Parse(std::string_view text) { return FromTenThousandths(NumberReader(text, 4).Read()); }

double Currency::ToDouble() const { return static_cast<double>(units_) / kScale; }

std::int64_t Currency::ToWhole() const { return static_cast<std::int64_t>(DivideHalfToEven(units_, kScale)); }

std::string Currency::ToText() const { return ToText(Regional::Current().decimal); }

std::string Currency::ToText(char decimal) const {
  const bool negative = units_ < 0;
  const std::uint64_t size =
      negative ? 0 - static_cast<std::uint64_t>(units_) : static_cast<std::uint64_t>(units_);
  std::string text = (negative ? "-" : "") + std::to_string(size / kScale);
  std::uint64_t fraction = size % kScale;
  if (fraction == 0) return text;
  text += decimal;
  for (std::uint64_t place = kScale / 10; fraction != 0; place /= 10) {
    text += static_cast<char>('0' + fraction / place);
    fraction %= place;
  }
  return text;
}

Currency Currency::operator-() const { return FromTenThousandths(Narrow(-Wide{units_})); }

Currency& Currency::operator+=(Currency other) {
  units_ = Narrow(Wide{units_} + other.units_);
  return *this;
}

Currency& Currency::operator-=(Currency other) {
  units_ = Narrow(Wide{units_} - other.units_);
  return *this;
}

Currency operator*(Currency a, Currency b) {
  return Currency::FromTenThousandths(Narrow(DivideHalfToEven(Wide{a.units_} * b.units_, kScale)));
}

std::int64_t ParseWhole(std::string_view text) { return NumberReader(text, 0).Read(); }

double Divide(double a, double b) {
  if (b == 0) throw RuntimeError(a == 0 ? kOverflow : kDivisionByZero);
  const double quotient = a / b;
  if (!std::isfinite(quotient)) throw RuntimeError(kOverflow);
  return quotient;
}

}  // namespace platform
