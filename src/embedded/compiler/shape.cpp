#include "embedded/compiler/shape.h"

#include <limits>

#include "embedded/compiler/conversion.h"
#include "tsql/lexer.h"

namespace embedded {
namespace {

bool IsLiteral(tsql::TokenKind kind) {
  return kind >= tsql::TokenKind::kInteger && kind <= tsql::TokenKind::kNationalString;
}

}  // namespace

LiteralClass ClassOfNumber(std::string_view digits) {
  const auto point = digits.find('.');
  const bool whole = point == std::string_view::npos;
  if (whole && digits.size() < 10) return LiteralClass::kInteger;
  std::int64_t money = 0;
  const bool exact = whole || digits.find_last_not_of('0') <= point + 4;
  if (!exact || !TenThousandthsOf(digits, false, money)) return LiteralClass::kReal;
  constexpr std::int64_t kLargest = std::int64_t{std::numeric_limits<std::int32_t>::max()} * 10000;
  return whole && money <= kLargest ? LiteralClass::kInteger : LiteralClass::kMoney;
}

// The key is the text between the literals with a letter for each literal, then the places of these letters
// and their number: a text that holds such letters itself has another key.
void Shape::Read(std::string_view statement) {
  key_.clear();
  literals_.clear();
  tsql::Lexer lexer(statement);
  std::size_t copied = 0;
  for (tsql::Token token = lexer.Next(); token.kind != tsql::TokenKind::kEnd; token = lexer.Next()) {
    if (!IsLiteral(token.kind)) continue;
    key_.append(statement, copied, token.begin - copied);
    copied = token.end;
    Add(token);
  }
  key_.append(statement, copied);
  std::uint32_t end = 0;
  for (const LiteralSpan& literal : literals_) {
    AppendNumber(literal.begin - end);
    end = literal.begin + literal.length;
  }
  AppendNumber(static_cast<std::uint32_t>(literals_.size()));
}

void Shape::AppendNumber(std::uint32_t number) {
  key_.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void Shape::Add(const tsql::Token& token) {
  LiteralSpan literal;
  literal.begin = static_cast<std::uint32_t>(token.begin);
  literal.length = static_cast<std::uint32_t>(token.text.size());
  const bool national = token.kind == tsql::TokenKind::kNationalString;
  if (national || token.kind == tsql::TokenKind::kString) {
    literal.kind = national ? LiteralClass::kNationalText : LiteralClass::kText;
    literal.begin += national ? 2 : 1;
    literal.doubledQuotes = token.text.find('\'') != std::string_view::npos;
  } else {
    literal.kind = ClassOfNumber(token.text);
  }
  literals_.push_back(literal);
  key_ += static_cast<char>('a' + static_cast<char>(literal.kind));
}

std::string_view ValueOf(const LiteralSpan& literal, std::string_view statement, std::string& scratch) {
  const std::string_view written = statement.substr(literal.begin, literal.length);
  if (!literal.doubledQuotes) return written;
  scratch.clear();
  for (std::size_t i = 0; i < written.size(); ++i) {
    scratch += written[i];
    if (written[i] == '\'') ++i;
  }
  return scratch;
}

}  // namespace embedded
