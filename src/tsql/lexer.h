#pragma once

#include <string>
#include <string_view>

#include "tsql/token.h"

namespace tsql {

/// Reads a statement token by token; skips blanks and comments. What can't be read raises the server's error
/// (-2147217900) with its words: "Unclosed quotation mark after the character string '…'.". A number that
/// runs into a name (`5abc`, `0x1F`) is refused: the dialect has no such literal.
class Lexer {
 public:
  /// Tokens point into the text, which has to stay.
  explicit Lexer(std::string_view text) : text_(text) {}
  /// kEnd at the end of the text, and from then on.
  Token Next();

 private:
  char At(std::size_t offset) const { return offset < text_.size() ? text_[offset] : '\0'; }
  void SkipBlanks();
  void SkipBlockComment();
  void SkipDigits();
  Token Take(TokenKind kind, std::size_t end);
  Token Number();
  Token Quoted(TokenKind kind, std::size_t open, char close);

  std::string_view text_;
  std::size_t at_ = 0;
};

/// The value of a string token: doubled apostrophes made single.
std::string StringValue(const Token& token);
/// The name in a name token of the statement: without delimiters, doubled closing ones made single.
std::string NameValue(const Token& token, std::string_view statement);

}  // namespace tsql
