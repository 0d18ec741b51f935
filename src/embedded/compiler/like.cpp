#include "embedded/compiler/like.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace embedded {
namespace {

/// UTF-16 units, the letters among them in one case.
std::u16string Folded(std::string_view text) {
  std::u16string characters(text.size(), u'\0');
  std::int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8WithSub(characters.data(), static_cast<std::int32_t>(characters.size()), &length, text.data(),
                       static_cast<std::int32_t>(text.size()), 0xFFFD, nullptr, &status);
  characters.resize(static_cast<std::size_t>(length));
  for (char16_t& c : characters) c = static_cast<char16_t>(u_foldCase(c, U_FOLD_CASE_DEFAULT));
  return characters;
}

/// One place of a pattern: any text, or one character of a set of ranges.
struct Place {
  bool anyText = false;
  bool negated = false;
  std::vector<std::pair<char16_t, char16_t>> ranges;

  bool Takes(char16_t c) const {
    const bool inside = std::any_of(ranges.begin(), ranges.end(),
                                    [c](const auto& range) { return range.first <= c && c <= range.second; });
    return inside != negated;
  }
};

/// Reads a set from behind its opening bracket; nothing when it has no end.
std::optional<Place> ReadSet(const std::u16string& pattern, std::size_t& at) {
  Place place;
  place.negated = at < pattern.size() && pattern[at] == '^';
  if (place.negated) ++at;
  while (at < pattern.size() && pattern[at] != ']') {
    const bool isRange = at + 2 < pattern.size() && pattern[at + 1] == '-' && pattern[at + 2] != ']';
    place.ranges.emplace_back(pattern[at], pattern[isRange ? at + 2 : at]);
    at += isRange ? 3 : 1;
  }
  if (at >= pattern.size()) return std::nullopt;
  ++at;
  return place;
}

std::optional<std::vector<Place>> ReadPattern(const std::u16string& pattern) {
  std::vector<Place> places;
  for (std::size_t at = 0; at < pattern.size();) {
    const char16_t c = pattern[at++];
    if (c == '[') {
      auto set = ReadSet(pattern, at);
      if (!set) return std::nullopt;
      places.push_back(std::move(*set));
    } else if (c == '%' || c == '_') {
      places.push_back({c == '%', true, {}});
    } else {
      places.push_back({false, false, {{c, c}}});
    }
  }
  return places;
}

}  // namespace

// After a `%`, the shortest text is tried first; only the last `%` ever has to take more.
bool Like(std::string_view text, std::string_view pattern) {
  const std::u16string characters = Folded(text);
  const auto places = ReadPattern(Folded(pattern));
  if (!places) return false;
  std::size_t at = 0;
  std::size_t place = 0;
  std::optional<std::pair<std::size_t, std::size_t>> retry;  // place behind the last `%`, and where it began
  while (at < characters.size()) {
    if (place < places->size() && (*places)[place].anyText) {
      retry = {++place, at};
    } else if (place < places->size() && (*places)[place].Takes(characters[at])) {
      ++place;
      ++at;
    } else if (retry) {
      place = retry->first;
      at = ++retry->second;
    } else {
      return false;
    }
  }
  while (place < places->size() && (*places)[place].anyText) ++place;
  return place == places->size();
}

}  // namespace embedded
