#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Money and measures: a 64-bit count of ten-thousandths, exact over its whole range.
/// Whatever doesn't fit between 922337203685477,5807 and its negative raises error 6; a tie in a rounding
/// goes to the even digit.
class Currency {
 public:
  constexpr Currency() = default;
  Currency(int whole) : Currency(static_cast<long long>(whole)) {}  // NOLINT(google-explicit-constructor)
  explicit Currency(long long whole);
  static constexpr Currency FromTenThousandths(std::int64_t units) {
    Currency c;
    c.units_ = units;
    return c;
  }
  /// The nearest ten-thousandth.
  static Currency FromDouble(double value);
  /// Reads a number in the current regional settings. Error 13 when there is none in the text.
  static Currency Parse(std::string_view text);

  constexpr std::int64_t tenThousandths() const { return units_; }
  double ToDouble() const;
  /// Rounded half to even to a whole number.
  std::int64_t ToWhole() const;
  /// Shortest form with the regional decimal separator and no grouping: "60,5".
  std::string ToText() const;
  /// Shortest form with the given decimal separator.
  std::string ToText(char decimal) const;

  Currency operator-() const;
  Currency& operator+=(Currency other);
  Currency& operator-=(Currency other);
  friend Currency operator+(Currency a, Currency b) { return a += b; }
  friend Currency operator-(Currency a, Currency b) { return a -= b; }
  /// Exact product, rounded half to even at four decimals.
  friend Currency operator*(Currency a, Currency b);
  friend constexpr auto operator<=>(Currency, Currency) = default;

 private:
  std::int64_t units_ = 0;
};

/// A text as a whole number, read as `Currency::Parse` reads and rounded once, half to even.
std::int64_t ParseWhole(std::string_view text);
/// A quotient in double precision. Error 11 when `b` is 0, error 6 when both are.
double Divide(double a, double b);

}  // namespace platform
