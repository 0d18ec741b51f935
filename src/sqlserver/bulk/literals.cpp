#include "sqlserver/bulk/literals.h"

#include <array>
#include <charconv>

#include "host/literal.h"
#include "platform/format.h"
#include "sqlserver/values.h"

namespace sqlserver {
namespace {

using platform::FieldType;
using platform::Variant;

constexpr std::size_t kLongest = 4000;  // characters of a text, bytes of anything else

std::optional<std::string> TextThatFits(const std::string& text) {
  if (text.size() > kLongest || text.find('\0') != std::string::npos) return {};
  for (auto at = text.find('\\'); at != std::string::npos; at = text.find('\\', at + 1))
    if (at + 1 < text.size() && (text[at + 1] == '\n' || text[at + 1] == '\r')) return {};
  return zorCrmParvel::TextLiteral(text);
}

/// With an exponent: so it is a float from the start, and every digit counts.
std::string RealLiteral(double value) {
  std::array<char, 40> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::scientific).ptr;
  return {digits.data(), end};
}

}  // namespace

std::optional<std::string> LiteralOf(FieldType type, const Variant& value) {
  if (value.IsNull()) return "NULL";
  switch (type) {
    case FieldType::kBool:
      return value.ToBool() ? "1" : "0";
    case FieldType::kInteger:
      return std::to_string(value.ToInteger());
    case FieldType::kLong:
      return std::to_string(value.ToLong());
    case FieldType::kDouble:
      return RealLiteral(value.ToDouble());
    case FieldType::kCurrency:
      return MoneyText(value.ToCurrency());
    case FieldType::kDate:
      return "'" + platform::FormatDate(value.ToDate(), "yyyy-mm-dd hh:mm:ss") + "'";
    case FieldType::kText:
      return TextThatFits(value.ToText());
    case FieldType::kBytes:
      break;
  }
  return {};
}

}  // namespace sqlserver
