#pragma once

#include <string_view>

namespace embedded {

/// LIKE: `%` any text, `_` any character, `[abc]`, `[a-f]` and `[^…]` one character of, or not of, a set.
/// Case is ignored, accents and trailing blanks count.
bool Like(std::string_view text, std::string_view pattern);

}  // namespace embedded
