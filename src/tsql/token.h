#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tsql {

enum class TokenKind : std::uint8_t {
  kEnd,
  kName,            // an identifier or keyword; also [bracketed] and "quoted"
  kInteger,         // digits
  kDecimal,         // digits with a point
  kString,          // '…'
  kNationalString,  // N'…'
  kSymbol,          // operator or punctuation
};

/// One token, seen in the statement's text.
struct Token {
  TokenKind kind = TokenKind::kEnd;
  bool delimited = false;  // [bracketed] or "quoted": never a keyword
  std::size_t begin = 0;   // offset of the first byte
  std::size_t end = 0;     // offset behind the last byte
  std::string_view text;   // as written; without brackets, quotes or the N; doubled quotes still doubled
};

}  // namespace tsql
