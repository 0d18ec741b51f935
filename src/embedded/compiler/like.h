#pragma once

#include <string_view>
#include <utility>
#include <vector>

namespace embedded {

/// A pattern of LIKE: `%` any text, `_` any character, `[abc]`, `[a-f]` and `[^…]` one character of, or not
/// of, a set. Case is ignored, accents and trailing blanks count.
class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern);
  bool Matches(std::string_view text) const;

 private:
  enum class Kind { kCharacter, kAnyText, kSet };
  struct Place {
    Kind kind = Kind::kCharacter;
    char16_t character = 0;
    bool negated = false;
    std::vector<std::pair<char16_t, char16_t>> ranges;  // of a set

    bool Takes(char16_t c) const;
  };

  bool ReadSet(std::u16string_view pattern, std::size_t& at);
  bool Matches(std::u16string_view characters) const;

  std::vector<Place> places_;
  bool sound_ = true;  // one with a set that has no end matches nothing
};

}  // namespace embedded
