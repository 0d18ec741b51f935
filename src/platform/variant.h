#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/currency.h"
#include "platform/date.h"

namespace platform {

using Bytes = std::vector<std::uint8_t>;

/// One value of any kind that a column, a control or a late-bound call can hold. Text is UTF-8.
/// Conversions raise error 94 on null, 13 on a text that does not fit or on bytes, and 6 on a number too
/// large. Empty, the value of nothing yet, is "" and 0; true is -1 and "True"; a date as a number counts days
/// since the zero date; fractions go to the nearest whole number, a tie to the even one. Texts of numbers and
/// dates are read and made by the regional settings.
class Variant {
 public:
  struct Null {
    friend bool operator==(Null, Null) { return true; }
  };

  Variant() = default;                                     // empty
  Variant(Null) : value_(Null{}) {}                        // NOLINT(google-explicit-constructor)
  Variant(bool b) : value_(b) {}                           // NOLINT(google-explicit-constructor)
  Variant(std::int16_t i) : value_(i) {}                   // NOLINT(google-explicit-constructor)
  Variant(std::int32_t i) : value_(i) {}                   // NOLINT(google-explicit-constructor)
  Variant(double d) : value_(d) {}                         // NOLINT(google-explicit-constructor)
  Variant(Currency c) : value_(c) {}                       // NOLINT(google-explicit-constructor)
  Variant(Date d) : value_(d) {}                           // NOLINT(google-explicit-constructor)
  Variant(std::string s) : value_(std::move(s)) {}         // NOLINT(google-explicit-constructor)
  Variant(std::string_view s) : value_(std::string(s)) {}  // NOLINT(google-explicit-constructor)
  Variant(const char* s) : value_(std::string(s)) {}       // NOLINT(google-explicit-constructor)
  Variant(Bytes b) : value_(std::move(b)) {}               // NOLINT(google-explicit-constructor)

  bool IsEmpty() const { return std::holds_alternative<std::monostate>(value_); }
  bool IsNull() const { return std::holds_alternative<Null>(value_); }
  /// The value where it is of this very type, else null. No conversion.
  template <typename T>
  const T* As() const {
    return std::get_if<T>(&value_);
  }

  std::string ToText() const&;
  std::string ToText() &&;  // takes a text instead of copying it
  bool ToBool() const;
  std::int16_t ToInteger() const;
  std::int32_t ToLong() const;
  double ToDouble() const;
  Currency ToCurrency() const;
  Date ToDate() const;
  /// The bytes of a binary value; error 13 for any other kind.
  const Bytes& ToBytes() const;

  /// Same kind and same value.
  friend bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }

 private:
  std::variant<std::monostate, Null, bool, std::int16_t, std::int32_t, double, Currency, Date, std::string,
               Bytes>
      value_;
};

/// Narrowing with a check: error 6 when the value does not fit.
std::int16_t ToInteger(std::int64_t value);
std::int32_t ToLong(std::int64_t value);

}  // namespace platform
