#include "platform/format.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/regional.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace platform {
namespace {

/// A number as decimal digits, without loss.
struct Digits {
  bool negative = false;
  std::string whole;
  std::string fraction;

  explicit Digits(std::string_view text) {
    if (!text.empty() && text[0] == '-') {
      negative = true;
      text.remove_prefix(1);
    }
    const auto point = text.find('.');
    whole = text.substr(0, point);
    if (point != std::string_view::npos) fraction = text.substr(point + 1);
  }

  /// Keeps `places` decimals; a tie goes away from zero.
  void Round(std::size_t places) {
    if (fraction.size() <= places) return;
    const bool up = fraction[places] >= '5';
    fraction.resize(places);
    if (!up) return;
    std::string all = "0" + whole + fraction;
    auto digit = all.rbegin();
    while (*digit == '9') *digit++ = '0';
    ++*digit;
    whole = all.substr(0, all.size() - places);
    fraction = all.substr(all.size() - places);
  }
};

struct NumberMask {
  std::size_t leastWhole = 0;  // digits shown even when they are zero
  bool grouped = false;
  std::size_t leastDecimals = 0;
  std::size_t mostDecimals = 0;

  explicit NumberMask(std::string_view mask) {
    const auto point = mask.find('.');
    const std::string_view whole = mask.substr(0, point);
    grouped = whole.find(',') != std::string_view::npos;
    const auto zero = whole.find('0');
    if (zero != std::string_view::npos)
      leastWhole = static_cast<std::size_t>(std::count_if(whole.begin() + static_cast<std::ptrdiff_t>(zero),
                                                          whole.end(), [](char c) { return c != ','; }));
    if (point == std::string_view::npos) return;
    const std::string_view decimals = mask.substr(point + 1);
    mostDecimals = decimals.size();
    const auto last = decimals.rfind('0');
    if (last != std::string_view::npos) leastDecimals = last + 1;
  }
};

std::string DecimalText(const Variant& value) {
  if (const auto* real = value.As<double>()) {
    std::array<char, 400> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), *real, std::chars_format::fixed).ptr;
    return {buffer.data(), end};
  }
  return value.ToCurrency().ToText('.');
}

std::string Apply(const NumberMask& mask, Digits digits) {
  digits.Round(mask.mostDecimals);
  digits.whole.erase(0, std::min(digits.whole.find_first_not_of('0'), digits.whole.size()));
  if (digits.whole.size() < mask.leastWhole)
    digits.whole.insert(0, mask.leastWhole - digits.whole.size(), '0');
  while (digits.fraction.size() > mask.leastDecimals && digits.fraction.back() == '0')
    digits.fraction.pop_back();
  if (digits.fraction.size() < mask.leastDecimals) digits.fraction.resize(mask.leastDecimals, '0');

  const Regional& regional = Regional::Current();
  std::string text = digits.whole;
  if (mask.grouped)
    for (std::size_t at = 3; at < digits.whole.size(); at += 3)
      text.insert(digits.whole.size() - at, 1, regional.grouping);
  if (!digits.fraction.empty()) text += regional.decimal + digits.fraction;
  const bool zero = text.find_first_of("123456789") == std::string::npos;
  return digits.negative && !zero ? "-" + text : text;
}

bool IsDateMask(std::string_view mask) { return mask.find_first_of("dmMyhns") != std::string_view::npos; }

}  // namespace

std::string FormatNumber(const Variant& value, std::string_view mask) {
  if (value.IsNull() || value.IsEmpty()) return {};
  const auto* text = value.As<std::string>();
  if (text && text->empty()) return {};
  try {
    return Apply(NumberMask(mask), Digits(DecimalText(value)));
  } catch (const RuntimeError&) {
    if (!text) throw;
    return *text;
  }
}

std::string FormatDate(Date value, std::string_view mask) {
  std::string text;
  bool afterHour = false;
  while (!mask.empty()) {
    const char letter = mask[0];
    const std::size_t run = std::min(mask.find_first_not_of(letter), mask.size());
    if (letter == 'd')
      text += Padded(value.day(), run);
    else if (letter == 'y')
      text += Padded(run <= 2 ? value.year() % 100 : value.year(), run);
    else if (letter == 'h')
      text += Padded(value.hour(), run);
    else if (letter == 's')
      text += Padded(value.second(), run);
    else if (letter == 'n' || (letter == 'm' && afterHour))
      text += Padded(value.minute(), run);
    else if (letter == 'm' || letter == 'M')
      text += Padded(value.month(), run);
    else
      text += mask.substr(0, run);
    if (letter != ':') afterHour = letter == 'h';
    mask.remove_prefix(run);
  }
  return text;
}

std::string Format(const Variant& value, std::string_view mask) {
  if (value.IsNull() || value.IsEmpty()) return {};
  if (!IsDateMask(mask)) return FormatNumber(value, mask);
  if (const auto* text = value.As<std::string>()) {
    Date date;
    return Date::TryParse(*text, date) ? FormatDate(date, mask) : *text;
  }
  return FormatDate(value.ToDate(), mask);
}

}  // namespace platform
