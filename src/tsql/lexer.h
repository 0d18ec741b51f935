#pragma once

#include <string>
#include <string_view>

#include "tsql/token.h"

namespace tsql {

/// Reads a statement token by token; skips blanks and comments. What can't be read raises the server's error
/// (-2147217900) with its words: "Unclosed quotation mark after the character string '…'.".
class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}
  Token Next();

 private:
  void SkipBlanks();
  Token Quoted(TokenKind kind, std::size_t begin, std::size_t open, char close);

  std::string_view text_;
  std::size_t at_ = 0;
};

/// The value of a string token: doubled apostrophes made single.
std::string StringValue(const Token& token);

}  // namespace tsql
