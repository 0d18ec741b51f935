#pragma once

#include <string>
#include <string_view>

namespace exchange {

/// A text that a spreadsheet would take for a formula (it begins with =, +, -, @, a tab or a carriage return)
/// with an apostrophe before it, which makes it a text there; any other as it is. A text that begins with
/// apostrophes and then like a formula gets one more, so that `WithoutGuard` gives every text back.
std::string Guarded(std::string text);
/// The text that `Guarded` was given.
std::string WithoutGuard(std::string text);
/// One field of a file parted by semicolons: quoted where it must be.
std::string CsvField(std::string text);

}  // namespace exchange
