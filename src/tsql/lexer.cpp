#include "tsql/lexer.h"

#include <array>

#include "tsql/syntax_error.h"

namespace tsql {
namespace {

// Ordered so that everything up to kNameTail can stand inside a name.
enum class CharClass : std::uint8_t { kLetter, kDigit, kNameTail, kBlank, kQuote, kSymbol };

constexpr std::array<CharClass, 256> MakeClasses() {
  std::array<CharClass, 256> classes{};
  for (std::size_t c = 0; c < classes.size(); ++c) {
    const bool ascii = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    const bool beyondAscii = c >= 0x80;  // bytes of accented letters
    classes[c] = ascii || beyondAscii ? CharClass::kLetter : CharClass::kSymbol;
  }
  const auto mark = [&classes](std::string_view characters, CharClass as) {
    for (const char c : characters) classes[static_cast<unsigned char>(c)] = as;
  };
  mark("0123456789", CharClass::kDigit);
  mark("@#$", CharClass::kNameTail);
  mark(" \t\n\r\v\f", CharClass::kBlank);
  mark("'\"[", CharClass::kQuote);
  return classes;
}

constexpr std::array<CharClass, 256> kClasses = MakeClasses();

CharClass ClassOf(char c) { return kClasses[static_cast<unsigned char>(c)]; }
bool IsNamePart(char c) { return ClassOf(c) <= CharClass::kNameTail; }

bool IsTwoCharacterOperator(char first, char second) {
  return (second == '=' && (first == '<' || first == '>' || first == '!')) || (first == '<' && second == '>');
}

std::string WithSingleQuotes(std::string_view text, char quote) {
  std::string value;
  value.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    value += text[i];
    if (text[i] == quote && i + 1 < text.size() && text[i + 1] == quote) ++i;
  }
  return value;
}

}  // namespace

Token Lexer::Next() {
  SkipBlanks();
  const char c = At(at_);
  switch (ClassOf(c)) {
    case CharClass::kLetter: {
      if ((c == 'N' || c == 'n') && At(at_ + 1) == '\'')
        return Quoted(TokenKind::kNationalString, at_ + 1, '\'');
      std::size_t end = at_ + 1;
      while (IsNamePart(At(end))) ++end;
      return Take(TokenKind::kName, end);
    }
    case CharClass::kDigit:
      return Number();
    case CharClass::kQuote:
      if (c == '\'') return Quoted(TokenKind::kString, at_, '\'');
      return Quoted(TokenKind::kName, at_, c == '[' ? ']' : '"');
    default:
      if (at_ >= text_.size()) return Take(TokenKind::kEnd, at_);
      if (c == '.' && ClassOf(At(at_ + 1)) == CharClass::kDigit) return Number();
      return Take(TokenKind::kSymbol, at_ + (IsTwoCharacterOperator(c, At(at_ + 1)) ? 2 : 1));
  }
}

void Lexer::SkipBlanks() {
  while (at_ < text_.size()) {
    const char c = text_[at_];
    if (ClassOf(c) == CharClass::kBlank) {
      ++at_;
    } else if (c == '-' && At(at_ + 1) == '-') {
      const std::size_t newLine = text_.find('\n', at_);
      at_ = newLine == std::string_view::npos ? text_.size() : newLine + 1;
    } else if (c == '/' && At(at_ + 1) == '*') {
      SkipBlockComment();
    } else {
      return;
    }
  }
}

// Block comments nest, as they do on the server.
void Lexer::SkipBlockComment() {
  const std::size_t begin = at_;
  std::size_t open = 0;
  while (at_ + 1 < text_.size()) {
    const std::string_view pair = text_.substr(at_, 2);
    if (pair == "/*") {
      ++open;
      at_ += 2;
    } else if (pair == "*/") {
      at_ += 2;
      if (--open == 0) return;
    } else {
      ++at_;
    }
  }
  RaiseSyntaxError(text_, begin, "Missing end comment mark '*/'.");
}

void Lexer::SkipDigits() {
  while (ClassOf(At(at_)) == CharClass::kDigit) ++at_;
}

Token Lexer::Take(TokenKind kind, std::size_t end) {
  const Token token{kind, false, at_, end, text_.substr(at_, end - at_)};
  at_ = end;
  return token;
}

Token Lexer::Number() {
  const std::size_t begin = at_;
  TokenKind kind = TokenKind::kInteger;
  SkipDigits();
  if (At(at_) == '.') {
    kind = TokenKind::kDecimal;
    ++at_;
    SkipDigits();
  }
  const std::size_t end = at_;
  while (IsNamePart(At(at_))) ++at_;
  if (at_ != end) {
    RaiseSyntaxError(text_, end,
                     "Incorrect syntax near '" + std::string(text_.substr(end, at_ - end)) + "'.");
  }
  return {kind, false, begin, end, text_.substr(begin, end - begin)};
}

Token Lexer::Quoted(TokenKind kind, std::size_t open, char close) {
  const std::size_t begin = at_;
  const std::size_t first = open + 1;
  std::size_t end = text_.find(close, first);
  while (end != std::string_view::npos && At(end + 1) == close) end = text_.find(close, end + 2);
  if (end == std::string_view::npos) {
    RaiseSyntaxError(text_, begin,
                     "Unclosed quotation mark after the character string '" +
                         WithSingleQuotes(text_.substr(first), close) + "'.");
  }
  at_ = end + 1;
  return {kind, kind == TokenKind::kName, begin, at_, text_.substr(first, end - first)};
}

std::string StringValue(const Token& token) { return WithSingleQuotes(token.text, '\''); }

std::string NameValue(const Token& token, std::string_view statement) {
  if (!token.delimited) return std::string(token.text);
  return WithSingleQuotes(token.text, statement[token.begin] == '[' ? ']' : '"');
}

}  // namespace tsql
