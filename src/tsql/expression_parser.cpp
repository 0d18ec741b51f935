#include "tsql/expression_parser.h"

#include <limits>
#include <utility>

#include "platform/text.h"
#include "tsql/type_parser.h"

namespace tsql {
namespace {

// The tree is at most as deep as both together: a chain of operators leans to one side.
constexpr std::size_t kMaxDepth = 200;
constexpr std::size_t kMaxOperators = 200;

template <typename Node>
ExpressionPtr Make(std::size_t offset, Node node) {
  return std::make_unique<Expression>(Expression{std::move(node), offset});
}

bool IsCondition(const Expression& expression) {
  if (const auto* binary = std::get_if<Binary>(&expression.node)) return binary->op >= Operator::kEqual;
  if (const auto* unary = std::get_if<Unary>(&expression.node)) return unary->kind >= Unary::Kind::kNot;
  return std::holds_alternative<InList>(expression.node);
}

}  // namespace

// Counts one level for as long as it lives.
class ExpressionParser::Nesting {
 public:
  explicit Nesting(ExpressionParser& parser) : parser_(parser) {
    if (parser_.depth_ == 0) parser_.operators_ = 0;
    Limit(parser_.depth_ + 1, kMaxDepth);
    ++parser_.depth_;
  }
  ~Nesting() { --parser_.depth_; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

  void CountOperator() { Limit(++parser_.operators_, kMaxOperators); }

 private:
  void Limit(std::size_t count, std::size_t most) const {
    if (count > most) parser_.cursor_.Refuse("Some part of your SQL statement is nested too deeply.");
  }

  ExpressionParser& parser_;
};

const ExpressionParser::Infix* ExpressionParser::FindInfix(const Token& token) {
  static constexpr Infix kInfixes[] = {
      {"OR", Operator::kOr, kOr},
      {"AND", Operator::kAnd, kAnd},
      {"=", Operator::kEqual, kComparison},
      {"<>", Operator::kNotEqual, kComparison},
      {"!=", Operator::kNotEqual, kComparison},
      {"<", Operator::kLess, kComparison},
      {"<=", Operator::kLessEqual, kComparison},
      {">", Operator::kGreater, kComparison},
      {">=", Operator::kGreaterEqual, kComparison},
      {"+", Operator::kAdd, kAdditive},
      {"-", Operator::kSubtract, kAdditive},
      {"*", Operator::kMultiply, kMultiplicative},
      {"/", Operator::kDivide, kMultiplicative},
      {"%", Operator::kModulo, kMultiplicative},
  };
  if (token.delimited || (token.kind != TokenKind::kSymbol && token.kind != TokenKind::kName)) return nullptr;
  for (const Infix& infix : kInfixes) {
    if (platform::EqualsIgnoringCase(token.text, infix.word)) return &infix;
  }
  return nullptr;
}

ExpressionPtr ExpressionParser::ParseValue() { return Parse(kAdditive); }

ExpressionPtr ExpressionParser::ParseCondition() { return ParseConditionFrom(kOr); }

ExpressionPtr ExpressionParser::ParseConditionFrom(int floor) {
  ExpressionPtr condition = Parse(floor);
  if (!IsCondition(*condition)) cursor_.RefuseNonCondition();
  return condition;
}

// Reads operands and the operators that bind at least as tightly as `floor`; from kAdditive on the outcome is
// a value.
ExpressionPtr ExpressionParser::Parse(int floor) {
  Nesting nesting(*this);
  ExpressionPtr left = ParsePrefix(floor);
  while (true) {
    const Infix* const infix = FindInfix(cursor_.current());
    if (infix != nullptr && infix->precedence >= floor) {
      nesting.CountOperator();
      left = ParseInfix(std::move(left), *infix);
    } else if (floor <= kComparison && AtPredicate()) {
      nesting.CountOperator();
      left = ParsePredicate(std::move(left));
    } else {
      return left;
    }
  }
}

ExpressionPtr ExpressionParser::ParseInfix(ExpressionPtr left, const Infix& infix) {
  const std::size_t offset = cursor_.current().begin;
  const bool joinsConditions = infix.precedence <= kAnd;
  if (joinsConditions && !IsCondition(*left)) cursor_.RefuseNonCondition();
  if (!joinsConditions && IsCondition(*left)) cursor_.Refuse();
  cursor_.Advance();
  const int floor = infix.precedence + 1;
  ExpressionPtr right = joinsConditions ? ParseConditionFrom(floor) : Parse(floor);
  return Make(offset, Binary{infix.op, std::move(left), std::move(right)});
}

// BETWEEN is no part of the dialect; it is among these words to be the one that the refusal names.
bool ExpressionParser::AtPredicate() const {
  for (const char* word : {"IS", "NOT", "IN", "LIKE", "BETWEEN"}) {
    if (cursor_.At(word)) return true;
  }
  return false;
}

ExpressionPtr ExpressionParser::ParsePredicate(ExpressionPtr left) {
  if (IsCondition(*left)) cursor_.Refuse();
  const std::size_t offset = cursor_.current().begin;
  if (cursor_.Accept("IS")) {
    const Unary::Kind kind = cursor_.Accept("NOT") ? Unary::Kind::kIsNotNull : Unary::Kind::kIsNull;
    cursor_.Expect("NULL");
    return Make(offset, Unary{kind, std::move(left)});
  }
  const bool negated = cursor_.Accept("NOT");
  if (cursor_.Accept("LIKE")) {
    const Operator op = negated ? Operator::kNotLike : Operator::kLike;
    ExpressionPtr pattern = ParseValue();
    return Make(offset, Binary{op, std::move(left), std::move(pattern)});
  }
  cursor_.Expect("IN");
  cursor_.Expect("(");
  std::vector<ExpressionPtr> items = ParseList();
  return Make(offset, InList{std::move(left), std::move(items), negated});
}

ExpressionPtr ExpressionParser::ParsePrefix(int floor) {
  switch (cursor_.current().kind) {
    case TokenKind::kInteger:
      return ParseLiteral(Literal::Kind::kInteger);
    case TokenKind::kDecimal:
      return ParseLiteral(Literal::Kind::kDecimal);
    case TokenKind::kString:
      return ParseLiteral(Literal::Kind::kString);
    case TokenKind::kNationalString:
      return ParseLiteral(Literal::Kind::kNationalString);
    default:
      break;
  }
  if (cursor_.At("NOT") && floor <= kNot) return ParseUnary(Unary::Kind::kNot, kNot);
  if (cursor_.At("-")) return ParseUnary(Unary::Kind::kMinus, kUnary);
  if (cursor_.At("+")) return ParseUnary(Unary::Kind::kPlus, kUnary);
  if (cursor_.At("(")) return ParseParenthesis(floor);
  if (cursor_.At("NULL")) return ParseLiteral(Literal::Kind::kNull);
  if (cursor_.At("CASE")) return ParseCase();
  return ParseName();
}

ExpressionPtr ExpressionParser::ParseUnary(Unary::Kind kind, int floor) {
  const std::size_t offset = cursor_.current().begin;
  cursor_.Advance();
  ExpressionPtr operand = kind == Unary::Kind::kNot ? ParseConditionFrom(floor) : Parse(floor);
  return Make(offset, Unary{kind, std::move(operand)});
}

ExpressionPtr ExpressionParser::ParseParenthesis(int floor) {
  cursor_.Expect("(");
  ExpressionPtr inner = Parse(floor >= kAdditive ? kAdditive : kOr);
  cursor_.Expect(")");
  return inner;
}

ExpressionPtr ExpressionParser::ParseLiteral(Literal::Kind kind) {
  const Token token = cursor_.current();
  Literal literal{kind, {}, 0};
  if (kind != Literal::Kind::kNull) {
    literal.value = cursor_.AtString() ? StringValue(token) : std::string(token.text);
    literal.ordinal = cursor_.literals();
  }
  cursor_.Advance();
  return Make(token.begin, std::move(literal));
}

ExpressionPtr ExpressionParser::ParseName() {
  const Token token = cursor_.current();
  const bool isCall = token.kind == TokenKind::kName && !token.delimited && cursor_.FollowedBy("(");
  if (isCall) return ParseFunction();
  ColumnRef column{{}, cursor_.TakeName()};
  if (cursor_.Accept(".")) {
    column.table = std::exchange(column.name, {});
    column.name = cursor_.TakeName();
  }
  return Make(token.begin, std::move(column));
}

ExpressionPtr ExpressionParser::ParseFunction() {
  if (cursor_.At("CAST")) return ParseCast();
  if (cursor_.At("CONVERT")) return ParseConvert();
  const std::size_t offset = cursor_.current().begin;
  FunctionCall call;
  const bool reservedFunction = cursor_.At("LEFT") || cursor_.At("COALESCE");
  if (!reservedFunction && !cursor_.AtName()) cursor_.Refuse();
  call.name = cursor_.current().text;
  const bool hasDatePart = cursor_.At("DATEDIFF");
  cursor_.Advance();
  cursor_.Expect("(");
  if (hasDatePart) {
    call.datePart = cursor_.TakeName();
    cursor_.Expect(",");
  }
  if (cursor_.Accept("*")) {
    call.star = true;
    cursor_.Expect(")");
  } else if (!cursor_.Accept(")")) {
    call.arguments = ParseList();
  }
  return Make(offset, std::move(call));
}

ExpressionPtr ExpressionParser::ParseCast() {
  const std::size_t offset = cursor_.current().begin;
  cursor_.Advance();
  cursor_.Expect("(");
  Cast cast;
  cast.operand = ParseValue();
  cursor_.Expect("AS");
  cast.type = ParseType(cursor_);
  cursor_.Expect(")");
  return Make(offset, std::move(cast));
}

ExpressionPtr ExpressionParser::ParseConvert() {
  const std::size_t offset = cursor_.current().begin;
  cursor_.Advance();
  cursor_.Expect("(");
  Cast cast;
  cast.type = ParseType(cursor_);
  cursor_.Expect(",");
  cast.operand = ParseValue();
  if (cursor_.Accept(",")) {
    cast.style = static_cast<int>(cursor_.TakeInteger(0, std::numeric_limits<int>::max()));
  }
  cursor_.Expect(")");
  return Make(offset, std::move(cast));
}

ExpressionPtr ExpressionParser::ParseCase() {
  const std::size_t offset = cursor_.current().begin;
  cursor_.Expect("CASE");
  Case choice;
  if (!cursor_.At("WHEN")) choice.operand = ParseValue();
  while (cursor_.Accept("WHEN")) {
    Case::Branch branch;
    branch.when = choice.operand ? ParseValue() : ParseCondition();
    cursor_.Expect("THEN");
    branch.then = ParseValue();
    choice.branches.push_back(std::move(branch));
  }
  if (choice.branches.empty()) cursor_.Refuse();
  if (cursor_.Accept("ELSE")) choice.otherwise = ParseValue();
  cursor_.Expect("END");
  return Make(offset, std::move(choice));
}

// The rest of a list whose opening bracket was taken, up to and with the closing one.
std::vector<ExpressionPtr> ExpressionParser::ParseList() {
  std::vector<ExpressionPtr> items;
  cursor_.TakeList([&] { items.push_back(ParseValue()); });
  cursor_.Expect(")");
  return items;
}

}  // namespace tsql
