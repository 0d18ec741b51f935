#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tsql/token.h"

namespace embedded {

/// What a literal is to the engine; two statements of one shape have literals of the same classes.
enum class LiteralClass : std::uint8_t {
  kText,          // '…'
  kNationalText,  // N'…'
  kInteger,       // fits 32 bits
  kMoney,         // a larger number, or one with a decimal part, that ten-thousandths hold exactly
  kReal,          // any other number
};

/// The class of a number as it is written in a statement.
LiteralClass ClassOfNumber(std::string_view digits);

/// A literal in a statement's text; offsets in bytes.
struct LiteralSpan {
  LiteralClass kind = LiteralClass::kText;
  bool doubledQuotes = false;
  std::uint32_t begin = 0;  // of the value: without N and apostrophes
  std::uint32_t length = 0;
};

/// A statement's text parted into its shape and its literals. One object is read into again and again.
class Shape {
 public:
  /// Raises the server's error when the text can't be read into tokens. Texts with equal keys differ in the
  /// values of their literals and in nothing else.
  void Read(std::string_view statement);

  const std::string& key() const { return key_; }
  /// Tells apart two uses of one text.
  void AppendToKey(char mark) { key_ += mark; }
  const std::vector<LiteralSpan>& literals() const { return literals_; }

 private:
  void Add(const tsql::Token& token);
  void AppendNumber(std::uint32_t number);

  std::string key_;
  std::vector<LiteralSpan> literals_;
};

/// The value of a literal in its statement: the text without doubled apostrophes. `scratch` holds it when it
/// isn't in the statement as it stands.
std::string_view ValueOf(const LiteralSpan& literal, std::string_view statement, std::string& scratch);

}  // namespace embedded
