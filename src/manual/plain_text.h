#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace manual {

/// The paragraphs, headings, lines of lists and rows of tables of a Markdown text, without its marks.
std::vector<std::string> Paragraphs(std::string_view markdown);

/// A text for finding: small letters without the accents of Portuguese, blanks as one.
std::string Folded(std::string_view text);

}  // namespace manual
