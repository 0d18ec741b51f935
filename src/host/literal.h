#pragma once

#include <string>
#include <string_view>

namespace zorCrmParvel {

/// A text as it stands between the quotes of a literal: each of its apostrophes doubled.
std::string InsideLiteral(std::string_view text);

/// The literal of a text, N'…'.
std::string TextLiteral(std::string_view text);

}  // namespace zorCrmParvel
