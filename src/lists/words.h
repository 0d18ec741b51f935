#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lists {

/// A text for finding: small letters without accents, hyphens and blanks. "12-AB 34" becomes "12ab34".
std::string Folded(std::string_view text);
/// The words of a text, each folded; none for blanks alone.
std::vector<std::string> FoldedWords(std::string_view text);
/// A key by whose bytes texts come into alphabetical order: without regard to case, accents only where all
/// else is equal, numbers within them by what they count ("R9" before "R10").
std::string OrderKey(std::string_view text);

}  // namespace lists
