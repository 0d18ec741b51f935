#include "host/statement.h"

#include <algorithm>
#include <charconv>

#include "platform/runtime_error.h"
#include "tsql/parser.h"

namespace zorCrmParvel {
namespace {

/// Digits with at most one point, and a sign unless it would make a comment of a minus before it.
bool IsNumber(std::string_view text, char before) {
  if (!text.empty() && (text[0] == '-' || text[0] == '+') && before != '-') text.remove_prefix(1);
  const auto points = std::count(text.begin(), text.end(), '.');
  return points <= 1 && text.find_first_of("0123456789") != std::string_view::npos &&
         text.find_first_not_of("0123456789.") == std::string_view::npos;
}

/// True when every apostrophe of a value is doubled within it.
bool IsQuoted(std::string_view text) {
  for (auto at = text.find('\''); at != std::string_view::npos; at = text.find('\'', at + 2))
    if (at + 1 >= text.size() || text[at + 1] != '\'') return false;
  return true;
}

}  // namespace

Piece fixed(std::string_view text) { return {text, false}; }

Piece value(std::string_view text) { return {text, true}; }

Piece value(std::int64_t number) {
  Piece piece({}, true);
  std::to_chars(piece.digits_.data(), piece.digits_.data() + piece.digits_.size() - 1, number);
  return piece;
}

Statement::Statement(std::initializer_list<Piece> pieces) {
  std::size_t length = 0;
  for (const Piece& piece : pieces) length += piece.text().size();
  text_.reserve(length);
  for (const Piece& piece : pieces) *this << piece;
}

Statement& Statement::operator<<(const Piece& piece) {
  if (piece.isValue()) values_.push_back({text_.size(), piece.text().size()});
  text_ += piece.text();
  return *this;
}

void Statement::Verify() const {
  bool inLiteral = false;
  std::size_t at = 0;
  for (const Value& v : values_) {
    const auto quotes = std::count(text_.begin() + static_cast<std::ptrdiff_t>(at),
                                   text_.begin() + static_cast<std::ptrdiff_t>(v.begin), '\'');
    if (quotes % 2 != 0) inLiteral = !inLiteral;
    if (!StaysInside(v, inLiteral)) Refuse(v);
    at = v.begin + v.length;
  }
}

bool Statement::StaysInside(const Value& v, bool inLiteral) const {
  const std::string_view put = std::string_view(text_).substr(v.begin, v.length);
  return inLiteral ? IsQuoted(put) : IsNumber(put, v.begin > 0 ? text_[v.begin - 1] : ' ');
}

void Statement::Refuse(const Value& escaped) const {
  tsql::ParseStatement(text_);  // mostly it is broken, and this says how
  throw platform::RuntimeError(
      platform::kStatementRefused, "",
      "Incorrect syntax near '" + text_.substr(escaped.begin, escaped.length) + "'.");
}

}  // namespace zorCrmParvel
