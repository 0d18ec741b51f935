#pragma once

#include <cstddef>

#include "tsql/ast.h"
#include "tsql/token_cursor.h"

namespace tsql {

/// Reads expressions by operator precedence. Conditions (what can be true) and values (what can be stored)
/// are kept apart, as the server does: neither stands where the other is due.
class ExpressionParser {
 public:
  explicit ExpressionParser(TokenCursor& cursor) : cursor_(cursor) {}

  // Each reads one expression from the cursor on, as far as it goes, or raises the server's error.
  ExpressionPtr ParseValue();
  ExpressionPtr ParseCondition();

 private:
  class Nesting;
  enum Precedence : int { kOr = 1, kAnd, kNot, kComparison, kAdditive, kMultiplicative, kUnary };
  struct Infix {
    const char* word;
    Operator op;
    Precedence precedence;
  };

  static const Infix* FindInfix(const Token& token);

  ExpressionPtr Parse(int floor);
  ExpressionPtr ParseConditionFrom(int floor);
  ExpressionPtr ParseInfix(ExpressionPtr left, const Infix& infix);
  bool AtPredicate() const;
  ExpressionPtr ParsePredicate(ExpressionPtr left);
  ExpressionPtr ParsePrefix(int floor);
  ExpressionPtr ParseUnary(Unary::Kind kind, int floor);
  ExpressionPtr ParseParenthesis(int floor);
  ExpressionPtr ParseLiteral(Literal::Kind kind);
  ExpressionPtr ParseName();
  ExpressionPtr ParseFunction();
  ExpressionPtr ParseCast();
  ExpressionPtr ParseConvert();
  ExpressionPtr ParseCase();
  std::vector<ExpressionPtr> ParseList();

  TokenCursor& cursor_;
  std::size_t depth_ = 0;
  std::size_t operators_ = 0;
};

}  // namespace tsql
