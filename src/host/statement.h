#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace zorCrmParvel {

/// A piece of a statement: text of the program's own, or a value put in. Lives within one expression.
class Piece {
 public:
  Piece(const char* literal) : text_(literal) {}  // NOLINT(google-explicit-constructor)
  std::string_view text() const { return digits_[0] != '\0' ? std::string_view(digits_.data()) : text_; }
  bool isValue() const { return isValue_; }

 private:
  friend Piece fixed(std::string_view text);
  friend Piece value(std::string_view text);
  friend Piece value(std::int64_t number);
  Piece(std::string_view text, bool isValue) : text_(text), isValue_(isValue) {}

  std::string_view text_;
  std::array<char, 24> digits_{};  // a number's text
  bool isValue_ = false;
};

/// Text of the program's own that isn't a literal in the code: the name of a table or column.
Piece fixed(std::string_view text);
/// A value: it must stay inside the literal (or be the number) in which it stands.
Piece value(std::string_view text);
Piece value(std::int64_t number);

/// A T-SQL statement that keeps its fixed text and its values apart until it is sent. The quotes around a
/// value are fixed text: {"WHERE (Codigo = N'", value(codigo), "')"}. The values are copied.
class Statement {
 public:
  Statement(const char* text) : text_(text) {}  // NOLINT(google-explicit-constructor): a text without values
  Statement(std::initializer_list<Piece> pieces);

  /// Adds a piece at the end.
  Statement& operator<<(const Piece& piece);

  /// The plain concatenation, byte for byte.
  const std::string& text() const { return text_; }
  /// Raises the error that the server gives for a broken statement when a value gets out of its literal.
  void Verify() const;

 private:
  struct Value {
    std::size_t begin;
    std::size_t length;
  };
  bool StaysInside(const Value& v, bool inLiteral) const;
  [[noreturn]] void Refuse(const Value& escaped) const;

  std::string text_;
  std::vector<Value> values_;
};

}  // namespace zorCrmParvel
