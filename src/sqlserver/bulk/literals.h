#pragma once

#include <optional>
#include <string>

#include "platform/recordset.h"

namespace sqlserver {

/// A value as a literal of the server's language, for a column of a type. Nothing for a value that a literal
/// might not carry as it is: a text with a zero, or with a backslash at the end of a line, and whatever is
/// long.
std::optional<std::string> LiteralOf(platform::FieldType type, const platform::Variant& value);

}  // namespace sqlserver
