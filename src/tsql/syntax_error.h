#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tsql {

/// The place of a byte in a statement, for people: "linha 2, coluna 14". Both count from 1, columns in
/// characters.
std::string Place(std::string_view text, std::size_t offset);

/// Raises error -2147217900 with the place of `offset` as its source.
[[noreturn]] void RaiseSyntaxError(std::string_view text, std::size_t offset, const std::string& description);

}  // namespace tsql
