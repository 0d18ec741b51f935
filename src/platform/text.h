#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Lengths and cuts count UTF-16 units, as the server's nvarchar does; a cut never splits a character.
std::size_t Length(std::string_view text);
/// The first units, or all there are.
std::string Left(std::string_view text, std::size_t units);
/// The last units, or all there are.
std::string Right(std::string_view text, std::size_t units);
/// Removes blanks, and blanks alone, at both ends.
std::string Trim(std::string_view text);
/// A number that is not negative, with zeros before it up to a width.
std::string Padded(int number, std::size_t width);
/// True when ASCII letters differ in case at most. For names of fields, columns and members.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
/// True when the bytes are well-formed UTF-8.
bool IsUtf8(std::string_view text);

}  // namespace platform
