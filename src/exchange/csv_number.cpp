#include "exchange/csv_number.h"

#include <algorithm>
#include <stdexcept>

#include "platform/regional.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace exchange {
namespace {

using platform::Currency;

/// The whole part of a number without its grouping marks; none when they don't part groups of three.
std::optional<std::string> WithoutGroups(std::string_view text, char grouping) {
  std::string digits;
  std::size_t sinceGroup = 0;
  bool grouped = false;
  for (const char c : text) {
    if (c == grouping) {
      if (digits.empty() || (grouped ? sinceGroup != 3 : sinceGroup > 3)) return std::nullopt;
      grouped = true;
      sinceGroup = 0;
    } else if (c >= '0' && c <= '9') {
      digits += c;
      ++sinceGroup;
    } else {
      return std::nullopt;
    }
  }
  if (grouped && (sinceGroup != 3 || digits.front() == '0')) return std::nullopt;
  return digits;
}

/// The number in the form that the platform reads; empty when it is none.
std::string RegionalNumber(std::string_view text, char decimal) {
  const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  const auto point = std::min(text.find(decimal), text.size());
  if (point < sign) return {};
  const auto whole = WithoutGroups(text.substr(sign, point - sign), decimal == ',' ? '.' : ',');
  if (!whole) return {};
  std::string number = std::string(text.substr(0, sign)) + *whole;
  if (point == text.size()) return number;
  const std::string_view decimals = text.substr(point + 1);
  if (decimals.find_first_not_of("0123456789") != std::string_view::npos) return {};
  return number + platform::Regional::Current().decimal + std::string(decimals);
}

}  // namespace

std::optional<Currency> NumberOf(std::string_view text, char decimal, bool whole) {
  try {
    const Currency number = Currency::Parse(RegionalNumber(platform::Trim(text), decimal));
    if (whole && number.tenThousandths() % Currency(1).tenThousandths() != 0) return std::nullopt;
    return number;
  } catch (const platform::RuntimeError&) {
    return std::nullopt;  // no number, or one too large
  }
}

void DecimalMark::Look(const char* column, std::string_view text, bool whole, long line) {
  if (text.find_first_of(",.") == std::string_view::npos) return;
  const auto comma = NumberOf(text, ',', whole);
  const auto point = NumberOf(text, '.', whole);
  if (comma && point && *comma != *point) {
    if (!doubt_) doubt_ = Doubt{column, platform::Trim(text), line};
  } else if (comma.has_value() != point.has_value()) {
    ++(comma ? commas_ : points_);
  }
}

char DecimalMark::Found() const {
  const char most = points_ > commas_ ? '.' : ',';
  if (!doubt_ || (commas_ > 0) != (points_ > 0)) return most;
  throw std::runtime_error(
      "A coluna «" + doubt_->column + "» tem números que se podem ler de duas maneiras: «" + doubt_->text +
      "», na linha " + std::to_string(doubt_->line) + ", é " + NumberOf(doubt_->text, ',')->ToText() +
      " ou " + NumberOf(doubt_->text, '.')->ToText() +
      ". Diga qual é o sinal dos decimais do ficheiro, com «--decimal ,» ou «--decimal .».");
}

}  // namespace exchange
