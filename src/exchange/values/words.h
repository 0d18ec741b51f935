#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace exchange {

/// The kinds of words that stand for a number in the tables.
enum class WordSet { kTruth, kFuel, kLicence, kPayment };

/// The number of a word in Portuguese, English, Spanish or French: "sim" 1, "Gasolina 95" 1 (a fuel), "C+E" 6
/// (a licence class, as the drivers' ficha orders them), "semestral" 1. None when the word isn't known.
std::optional<int> NumberOfWord(WordSet set, std::string_view word);
/// The licence classes of one cell: "B, C e C+E" gives three texts.
std::vector<std::string> LicencesIn(std::string_view cell);

}  // namespace exchange
