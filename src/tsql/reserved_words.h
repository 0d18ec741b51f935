#pragma once

#include <string_view>

namespace tsql {

/// True for a word that the server reserves: without delimiters it is never a name. Case does not count.
bool IsReserved(std::string_view word);

}  // namespace tsql
