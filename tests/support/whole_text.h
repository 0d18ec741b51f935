#pragma once

#include <functional>
#include <string>

namespace testing_support {

/// Compares a text with the file that holds it, and tells the first lines that differ. With
/// PARVEL_ESCREVER_TEXTOS set the file is written instead, for `git diff` to show what a change changes.
void ExpectWholeText(const std::string& file, const std::string& text);

/// Compares each line "input => outcome" of a file with what `outcome` gives for its input now. Lines without
/// "=>" are headings. A new case is a line with its input alone, and "=>".
void ExpectCases(const std::string& file,
                 const std::function<std::string(const std::string& input)>& outcome);

}  // namespace testing_support
