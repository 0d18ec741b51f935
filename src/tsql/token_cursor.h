#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tsql/lexer.h"

namespace tsql {

/// The parsers' view of a statement: one current token, tests and takings of it, and refusals in the server's
/// words. `word` is a keyword (case does not count) or a symbol; delimited names are never words.
class TokenCursor {
 public:
  /// The text has to stay. Error -2147217900 already here when its first token can't be read.
  explicit TokenCursor(std::string_view text);

  const Token& current() const { return current_; }
  /// How many literals lie before the current token: the ordinal of the current one when it is a literal.
  std::size_t literals() const { return literals_; }
  /// True when the token after the current one is the symbol.
  bool FollowedBy(std::string_view symbol) const;
  void Advance();

  bool AtEnd() const { return current_.kind == TokenKind::kEnd; }
  bool At(std::string_view word) const;
  /// At something that can be a name: delimited, or not reserved.
  bool AtName() const;
  /// At '…' or N'…'.
  bool AtString() const;

  /// Takes the current token when it is the word.
  bool Accept(std::string_view word);
  /// Takes the current token, which must be the word, or a name, or an integer within its bounds.
  void Expect(std::string_view word);
  std::string TakeName();
  /// A name, or a string standing for one.
  std::string TakeAlias();
  long TakeInteger(long lowest, long highest);
  /// Calls `take` for each item of a list with commas between them.
  template <typename F>
  void TakeList(F&& take) {
    do take();
    while (Accept(","));
  }

  /// Raises "Incorrect syntax near '…'." on the current token, or on the last one at the end of the text.
  [[noreturn]] void Refuse() const;
  /// Raises "An expression of non-boolean type …, near '…'." on the same token.
  [[noreturn]] void RefuseNonCondition() const;
  /// Raises a description of the caller's own, with the same place.
  [[noreturn]] void Refuse(const std::string& description) const;

 private:
  const Token& Suspect() const { return AtEnd() ? previous_ : current_; }
  std::string Quoted(const Token& token) const;
  std::string TakeNamed(std::string name);

  std::string_view text_;
  Lexer lexer_;
  Token previous_;
  Token current_;
  std::size_t literals_ = 0;
};

}  // namespace tsql
