#pragma once

#include <string>

namespace testing_support {

/// Compares a text with the file that holds it, and tells the first lines that differ. With
/// PARVEL_ESCREVER_TEXTOS set the file is written instead, for `git diff` to show what a change changes.
void ExpectWholeText(const std::string& file, const std::string& text);

}  // namespace testing_support
