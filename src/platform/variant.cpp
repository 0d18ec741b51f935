#include "platform/variant.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/regional.h"
#include "platform/runtime_error.h"

namespace platform {
namespace {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::string DoubleText(double value) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  std::string text(buffer.data(), end);
  if (const auto point = text.find('.'); point != std::string::npos)
    text[point] = Regional::Current().decimal;
  return text;
}

template <typename T>
T Checked(std::int64_t value) {
  if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max())
    throw RuntimeError(kOverflow);
  return static_cast<T>(value);
}

std::int64_t RoundToWhole(double value) {
  const double rounded = std::nearbyint(value);
  if (!(std::fabs(rounded) < 9.2e18)) throw RuntimeError(kOverflow);
  return static_cast<std::int64_t>(rounded);
}

/// Any value as a whole number, fractions rounded half to even.
std::int64_t ToWhole(const Variant& v) {
  if (const auto* b = v.As<bool>()) return *b ? -1 : 0;
  if (const auto* i = v.As<std::int16_t>()) return *i;
  if (const auto* l = v.As<std::int32_t>()) return *l;
  if (const auto* c = v.As<Currency>()) return c->ToWhole();
  if (v.IsEmpty()) return 0;
  return v.As<std::string>() ? ParseWhole(*v.As<std::string>()) : RoundToWhole(v.ToDouble());
}

}  // namespace

std::int16_t ToInteger(std::int64_t value) { return Checked<std::int16_t>(value); }
std::int32_t ToLong(std::int64_t value) { return Checked<std::int32_t>(value); }

std::string Variant::ToText() && {
  if (auto* text = std::get_if<std::string>(&value_)) return std::move(*text);
  return std::as_const(*this).ToText();
}

std::string Variant::ToText() const& {
  return std::visit(Overloaded{
                        [](std::monostate) { return std::string(); },
                        [](Null) -> std::string { throw RuntimeError(kInvalidUseOfNull); },
                        [](bool b) { return std::string(b ? "True" : "False"); },
                        [](std::int16_t i) { return std::to_string(i); },
                        [](std::int32_t i) { return std::to_string(i); },
                        [](double d) { return DoubleText(d); },
                        [](Currency c) { return c.ToText(); },
                        [](Date d) { return d.ToText(); },
                        [](const std::string& s) { return s; },
                        [](const Bytes&) -> std::string { throw RuntimeError(kTypeMismatch); },
                    },
                    value_);
}

bool Variant::ToBool() const {
  if (const auto* b = As<bool>()) return *b;
  if (const auto* s = As<std::string>(); s && (*s == "True" || *s == "False")) return *s == "True";
  return ToDouble() != 0;
}

std::int16_t Variant::ToInteger() const { return platform::ToInteger(ToWhole(*this)); }
std::int32_t Variant::ToLong() const { return platform::ToLong(ToWhole(*this)); }

double Variant::ToDouble() const {
  return std::visit(Overloaded{
                        [](std::monostate) { return 0.0; },
                        [](Null) -> double { throw RuntimeError(kInvalidUseOfNull); },
                        [](bool b) { return b ? -1.0 : 0.0; },
                        [](std::int16_t i) { return static_cast<double>(i); },
                        [](std::int32_t i) { return static_cast<double>(i); },
                        [](double d) { return d; },
                        [](Currency c) { return c.ToDouble(); },
                        [](Date d) { return static_cast<double>(d.seconds()) / 86400.0; },
                        [](const std::string& s) { return Currency::Parse(s).ToDouble(); },
                        [](const Bytes&) -> double { throw RuntimeError(kTypeMismatch); },
                    },
                    value_);
}

Currency Variant::ToCurrency() const {
  if (const auto* c = As<Currency>()) return *c;
  if (const auto* s = As<std::string>()) return Currency::Parse(*s);
  if (As<std::int32_t>() || As<std::int16_t>() || As<bool>())
    return Currency(static_cast<long long>(ToWhole(*this)));
  return Currency::FromDouble(ToDouble());
}

Date Variant::ToDate() const {
  if (const auto* d = As<Date>()) return *d;
  if (const auto* s = As<std::string>()) return Date::Parse(*s);
  static const Date first = Date::FromParts(100, 1, 1);
  static const Date last = Date::FromParts(9999, 12, 31, 23, 59, 59);
  const Date date = Date::FromSeconds(RoundToWhole(ToDouble() * 86400.0));
  if (date < first || date > last) throw RuntimeError(kOverflow);
  return date;
}

const Bytes& Variant::ToBytes() const {
  if (IsNull()) throw RuntimeError(kInvalidUseOfNull);
  const auto* bytes = As<Bytes>();
  if (bytes == nullptr) throw RuntimeError(kTypeMismatch);
  return *bytes;
}

}  // namespace platform
