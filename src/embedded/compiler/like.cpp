#include "embedded/compiler/like.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace embedded {
namespace {

constexpr std::size_t kShort = 256;  // bytes of a text that is folded without memory of its own

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

/// The same of a short text of ASCII alone; nothing for any other.
std::optional<std::u16string_view> FoldedAscii(std::string_view text, std::array<char16_t, kShort>& room) {
  if (text.size() > room.size()) return {};
  unsigned char all = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    all |= c;
    room[i] = static_cast<char16_t>(c >= 'A' && c <= 'Z' ? c | 0x20U : c);
  }
  if (all >= 0x80) return {};
  return std::u16string_view(room.data(), text.size());
}

}  // namespace

bool LikePattern::Place::Takes(char16_t c) const {
  if (kind == Kind::kCharacter) return c == character;
  const bool inside = std::any_of(ranges.begin(), ranges.end(),
                                  [c](const auto& range) { return range.first <= c && c <= range.second; });
  return inside != negated;
}

LikePattern::LikePattern(std::string_view pattern) {
  const std::u16string characters = Folded(pattern);
  for (std::size_t at = 0; at < characters.size() && sound_;) {
    const char16_t c = characters[at++];
    if (c == '[')
      sound_ = ReadSet(characters, at);
    else if (c == '_')
      places_.push_back({Kind::kSet, 0, true, {}});
    else
      places_.push_back({c == '%' ? Kind::kAnyText : Kind::kCharacter, c, false, {}});
  }
}

/// Reads a set from behind its opening bracket; false when it has no end.
bool LikePattern::ReadSet(std::u16string_view pattern, std::size_t& at) {
  Place place{Kind::kSet, 0, false, {}};
  place.negated = at < pattern.size() && pattern[at] == '^';
  if (place.negated) ++at;
  while (at < pattern.size() && pattern[at] != ']') {
    const bool isRange = at + 2 < pattern.size() && pattern[at + 1] == '-' && pattern[at + 2] != ']';
    place.ranges.emplace_back(pattern[at], pattern[isRange ? at + 2 : at]);
    at += isRange ? 3 : 1;
  }
  if (at >= pattern.size()) return false;
  ++at;
  places_.push_back(std::move(place));
  return true;
}

bool LikePattern::Matches(std::string_view text) const {
  if (!sound_) return false;
  std::array<char16_t, kShort> room;
  const auto ascii = FoldedAscii(text, room);
  return ascii ? Matches(*ascii) : Matches(std::u16string_view(Folded(text)));
}

// After a `%`, the shortest text is tried first; only the last `%` ever has to take more.
bool LikePattern::Matches(std::u16string_view characters) const {
  std::size_t at = 0;
  std::size_t place = 0;
  std::optional<std::pair<std::size_t, std::size_t>> retry;  // place behind the last `%`, and where it began
  while (at < characters.size()) {
    if (place < places_.size() && places_[place].kind == Kind::kAnyText) {
      retry = {++place, at};
    } else if (place < places_.size() && places_[place].Takes(characters[at])) {
      ++place;
      ++at;
    } else if (retry) {
      place = retry->first;
      at = ++retry->second;
    } else {
      return false;
    }
  }
  while (place < places_.size() && places_[place].kind == Kind::kAnyText) ++place;
  return place == places_.size();
}

}  // namespace embedded
