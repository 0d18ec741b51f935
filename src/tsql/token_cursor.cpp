#include "tsql/token_cursor.h"

#include <charconv>

#include "platform/text.h"
#include "tsql/reserved_words.h"
#include "tsql/syntax_error.h"

namespace tsql {
namespace {

bool IsString(const Token& token) {
  return token.kind == TokenKind::kString || token.kind == TokenKind::kNationalString;
}

bool IsLiteral(const Token& token) {
  return token.kind == TokenKind::kInteger || token.kind == TokenKind::kDecimal || IsString(token);
}

bool IsKeyword(const Token& token) {
  return token.kind == TokenKind::kName && !token.delimited && IsReserved(token.text);
}

}  // namespace

TokenCursor::TokenCursor(std::string_view text) : text_(text), lexer_(text), current_(lexer_.Next()) {}

bool TokenCursor::FollowedBy(std::string_view symbol) const {
  Lexer ahead = lexer_;
  const Token next = ahead.Next();
  return next.kind == TokenKind::kSymbol && next.text == symbol;
}

void TokenCursor::Advance() {
  if (IsLiteral(current_)) ++literals_;
  previous_ = current_;
  current_ = lexer_.Next();
}

bool TokenCursor::At(std::string_view word) const {
  const bool canBeWord =
      current_.kind == TokenKind::kSymbol || (current_.kind == TokenKind::kName && !current_.delimited);
  return canBeWord && platform::EqualsIgnoringCase(current_.text, word);
}

bool TokenCursor::AtName() const { return current_.kind == TokenKind::kName && !IsKeyword(current_); }

bool TokenCursor::AtString() const { return IsString(current_); }

bool TokenCursor::Accept(std::string_view word) {
  if (!At(word)) return false;
  Advance();
  return true;
}

void TokenCursor::Expect(std::string_view word) {
  if (!Accept(word)) Refuse();
}

std::string TokenCursor::TakeName() {
  if (!AtName()) Refuse();
  return TakeNamed(NameValue(current_, text_));
}

std::string TokenCursor::TakeAlias() {
  if (!AtString()) return TakeName();
  return TakeNamed(StringValue(current_));
}

std::string TokenCursor::TakeNamed(std::string name) {
  if (name.empty()) Refuse("An object or column name is missing or empty.");
  Advance();
  return name;
}

long TokenCursor::TakeInteger(long lowest, long highest) {
  long value = 0;
  const char* const end = current_.text.data() + current_.text.size();
  if (current_.kind != TokenKind::kInteger) Refuse();
  if (std::from_chars(current_.text.data(), end, value).ec != std::errc{}) Refuse();
  if (value < lowest || value > highest) Refuse();
  Advance();
  return value;
}

void TokenCursor::Refuse() const {
  const char* const kind = IsKeyword(Suspect()) ? "the keyword " : "";
  Refuse("Incorrect syntax near " + std::string(kind) + Quoted(Suspect()) + ".");
}

void TokenCursor::RefuseNonCondition() const {
  Refuse("An expression of non-boolean type specified in a context where a condition is expected, near " +
         Quoted(Suspect()) + ".");
}

void TokenCursor::Refuse(const std::string& description) const {
  RaiseSyntaxError(text_, Suspect().begin, description);
}

std::string TokenCursor::Quoted(const Token& token) const {
  return "'" + (IsString(token) ? StringValue(token) : NameValue(token, text_)) + "'";
}

}  // namespace tsql
