#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace exchange {

/// A text for comparing: small letters without accents and digits, everything between them one blank.
/// "Nº  Cartão:" becomes "no cartao".
std::string Folded(std::string_view text);
/// The same without blanks: "12-ab-34" becomes "12ab34".
std::string FoldedTight(std::string_view text);
/// The words of the folded text.
std::vector<std::string> FoldedWords(std::string_view text);
/// Without the blanks of any kind at both ends: also no-break blanks, tabs and line ends.
std::string Stripped(std::string_view text);
/// How many letters must be put in, taken out or replaced to make one text of the other.
std::size_t EditDistance(std::string_view a, std::string_view b);

}  // namespace exchange
