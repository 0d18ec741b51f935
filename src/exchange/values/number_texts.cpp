#include "exchange/values/number_texts.h"

#include <algorithm>
#include <array>
#include <vector>

#include "exchange/values/fold.h"
#include "platform/runtime_error.h"

namespace exchange {
namespace {

using platform::Currency;

constexpr std::array<std::string_view, 5> kMinus = {"-", "\xE2\x88\x92", "\xE2\x80\x93", "\xE2\x80\x94",
                                                    "\xEF\xBC\x8D"};
constexpr std::array<std::string_view, 10> kNothing = {
    " ", "\t",      "'", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89", "\xE2\x80\x99", "\xE2\x82\xAC",
    "$", "\xC2\xA3"};
constexpr std::string_view kUnits =
    "|eur|euro|euros|usd|gbp|brl|r|km|kms|l|lt|lts|ltr|litro|litros|litres|liters|kwh|un|und|unid|km h|cr|db|"
    "dr|c|d|mi|miles|";

template <std::size_t N>
std::size_t OneOf(const std::array<std::string_view, N>& marks, std::string_view text) {
  for (const std::string_view mark : marks)
    if (text.starts_with(mark)) return mark.size();
  return 0;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// True when the pieces, at least two, between grouping marks are groups: the last of three digits, those
/// before of two or three, the first of one to three and no zero.
bool AreGroups(const std::vector<std::string_view>& pieces) {
  if (pieces.back().size() != 3) return false;
  if (pieces.front().empty() || pieces.front().size() > 3 || pieces.front()[0] == '0') return false;
  return std::all_of(pieces.begin() + 1, pieces.end() - 1,
                     [](std::string_view piece) { return piece.size() == 3 || piece.size() == 2; });
}

/// The digits of a whole part; none when the marks in it don't group.
std::optional<std::string> WithoutGroups(std::string_view text, char mark) {
  std::vector<std::string_view> pieces;
  for (std::size_t begin = 0; begin <= text.size();) {
    const auto end = std::min(text.find(mark, begin), text.size());
    pieces.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  if (pieces.size() > 1 && !AreGroups(pieces)) return std::nullopt;
  std::string digits;
  for (const std::string_view piece : pieces) digits += piece;
  return digits;
}

std::size_t DigitsAt(std::string_view text, std::size_t place) {
  const auto end = std::min(text.find_first_not_of("0123456789", place), text.size());
  return end - std::min(place, end);
}

bool AllDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); }

/// Ten-thousandths of digits and decimals, rounded half to even; none when they don't fit.
std::optional<std::int64_t> Scaled(const std::string& whole, std::string_view decimals) {
  std::string digits = whole + std::string(decimals.substr(0, 4));
  digits.append(decimals.size() < 4 ? 4 - decimals.size() : 0, '0');
  const auto first = std::min(digits.find_first_not_of('0'), digits.size());
  if (digits.size() - first > 18) return std::nullopt;
  std::int64_t value = 0;
  for (const char c : digits) value = value * 10 + (c - '0');
  if (decimals.size() > 4) {
    const bool beyond = decimals.find_first_not_of('0', 5) != std::string_view::npos;
    const char next = decimals[4];
    if (next > '5' || (next == '5' && (beyond || value % 2 != 0))) ++value;
  }
  return value;
}

/// A bare number without its sign, by one decimal mark.
std::optional<std::int64_t> Unsigned(std::string_view bare, const NumberFace& face) {
  const char grouping = face.decimal == ',' ? '.' : ',';
  auto point = bare.find(face.decimal);
  // Twice the decimal mark: there it groups.
  if (point != std::string_view::npos && bare.find(face.decimal, point + 1) != std::string_view::npos) {
    if (bare.find(grouping) != std::string_view::npos) return std::nullopt;
    const auto digits = WithoutGroups(bare, face.decimal);
    if (!digits) return std::nullopt;
    return Scaled(*digits, {});
  }
  const bool pointed = point != std::string_view::npos;
  point = std::min(point, bare.size());
  const auto digits = WithoutGroups(bare.substr(0, point), grouping);
  const std::string_view decimals = pointed ? bare.substr(point + 1) : std::string_view();
  if (!digits || !AllDigits(*digits) || !AllDigits(decimals) || digits->size() + decimals.size() == 0)
    return std::nullopt;
  if (pointed || face.impliedDecimals == 0) return Scaled(*digits, decimals);
  const auto implied = static_cast<std::size_t>(face.impliedDecimals);
  std::string padded = *digits;
  if (padded.size() < implied) padded.insert(0, implied - padded.size(), '0');
  return Scaled(padded.substr(0, padded.size() - implied), padded.substr(padded.size() - implied));
}

}  // namespace

std::string BareNumber(std::string_view text) {
  const std::string stripped = Stripped(text);
  text = stripped;
  std::string bare;
  std::string letters;
  bool minus = false;
  bool closed = false;  // a minus stood behind the digits
  for (std::size_t i = 0; i < text.size();) {
    const std::string_view rest = text.substr(i);
    const char c = rest[0];
    if (IsDigit(c) || c == ',' || c == '.') {
      if (IsDigit(c) && closed) return {};
      // A full stop after a unit ("Lts.", "Kms.") isn't the number's.
      if (IsDigit(c) || letters.empty() || DigitsAt(text, i + 1) > 0) bare += c;
      ++i;
    } else if (const std::size_t sign = OneOf(kMinus, rest)) {
      if (minus) return {};
      minus = true;
      closed = !bare.empty();
      i += sign;
    } else if (const std::size_t nothing = OneOf(kNothing, rest)) {
      i += nothing;
      if (!bare.empty() && DigitsAt(text, i) != 0 && DigitsAt(text, i) != 3) return {};
    } else if (c == '(' || c == ')') {
      minus = true;
      ++i;
    } else if (c == '+') {
      ++i;
    } else if ((c | 0x20) >= 'a' && (c | 0x20) <= 'z') {
      letters += static_cast<char>(c | 0x20);
      ++i;
    } else {
      return {};
    }
  }
  if (!letters.empty() && kUnits.find("|" + letters + "|") == std::string_view::npos) return {};
  while (!bare.empty() && !IsDigit(bare.back())) bare.pop_back();
  if (bare.empty()) return {};
  if (letters == "cr") minus = !minus;
  return (minus ? "-" : "") + bare;
}

std::optional<Currency> ReadNumberText(std::string_view text, const NumberFace& face) {
  const std::string bare = BareNumber(text);
  if (bare.empty()) return std::nullopt;
  const bool minus = bare[0] == '-';
  const auto units = Unsigned(std::string_view(bare).substr(minus ? 1 : 0), face);
  if (!units) return std::nullopt;
  return Currency::FromTenThousandths(minus != face.turned ? -*units : *units);
}

void DecimalMarks::Look(std::string_view text) {
  if (text.find_first_of(",.") == std::string_view::npos) return;
  const auto comma = ReadNumberText(text, {.decimal = ','});
  const auto point = ReadNumberText(text, {.decimal = '.'});
  if (comma && point && *comma != *point) {
    if (doubt_.empty()) doubt_ = Stripped(text);
  } else if (comma.has_value() != point.has_value()) {
    ++(comma ? commas_ : points_);
  }
}

std::optional<char> DecimalMarks::Found() const {
  if (commas_ > 0 && points_ > 0 && !doubt_.empty()) return std::nullopt;
  if (commas_ + points_ == 0 && !doubt_.empty()) return std::nullopt;
  return points_ > commas_ ? '.' : ',';
}

}  // namespace exchange
