#pragma once

#include <string>
#include <string_view>

namespace sqlserver {

/// The server speaks UTF-16, the program UTF-8. Error -2147217900 for bytes that are no UTF-8.
std::u16string ToUtf16(std::string_view text);
/// Adds the text to `out`; half a surrogate pair becomes the replacement character.
void AppendUtf8(std::u16string_view text, std::string& out);
std::string ToUtf8(std::u16string_view text);

}  // namespace sqlserver
