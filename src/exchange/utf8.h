#pragma once

#include <string>
#include <string_view>

namespace exchange {

/// Appends a character, by its number, as UTF-8.
void AppendUtf8(std::string& text, char32_t c);
/// A text of Windows-1252; bytes that mean nothing there become U+FFFD.
std::string FromWindows1252(std::string_view bytes);

}  // namespace exchange
