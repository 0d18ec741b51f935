#include "embedded/compiler/expression_compiler.h"

#include <algorithm>
#include <vector>

#include "embedded/compiler/server_error.h"
#include "platform/text.h"

namespace embedded {
namespace {

using tsql::Operator;

constexpr long kWidestText = 4000;

const char* SqlOf(Operator op) {
  switch (op) {
    case Operator::kAdd:
      return " + ";
    case Operator::kSubtract:
      return " - ";
    case Operator::kMultiply:
      return " * ";
    case Operator::kEqual:
      return " = ";
    case Operator::kNotEqual:
      return " <> ";
    case Operator::kLess:
      return " < ";
    case Operator::kLessEqual:
      return " <= ";
    case Operator::kGreater:
      return " > ";
    case Operator::kGreaterEqual:
      return " >= ";
    case Operator::kAnd:
      return " AND ";
    case Operator::kOr:
      return " OR ";
    default:
      return "";
  }
}

const char* NameOf(Operator op) {
  switch (op) {
    case Operator::kAdd:
      return "add";
    case Operator::kSubtract:
      return "subtract";
    case Operator::kMultiply:
      return "multiply";
    case Operator::kDivide:
      return "divide";
    default:
      return "modulo";
  }
}

/// The function that computes where SQLite's operator would not do; null where it does.
const char* FunctionOf(Operator op, Kind kind) {
  const bool money = kind == Kind::kMoney;
  switch (op) {
    case Operator::kAdd:
      return money ? "sv_add" : nullptr;
    case Operator::kSubtract:
      return money ? "sv_subtract" : nullptr;
    case Operator::kMultiply:
      return money ? "sv_multiply" : nullptr;
    case Operator::kDivide:
      return money ? "sv_divide" : kind == Kind::kFloat ? "sv_ratio" : "sv_quotient";
    default:
      return "sv_remainder";
  }
}

std::string Infix(const std::string& left, const char* op, const std::string& right) {
  return "(" + left + op + right + ")";
}

[[noreturn]] void RefuseOperand(Kind kind, const char* operation) {
  Refuse("Operand data type " + std::string(embedded::NameOf(kind)) + " is invalid for " + operation +
         " operator.");
}

/// True for what leaves a decimal number beside it one.
bool MayBeDecimal(const Typed& value) {
  return value.isDecimal || IsWhole(value.kind) || value.kind == Kind::kNull;
}

Kind KindOfNumber(std::string_view digits) {
  const LiteralClass kind = ClassOfNumber(digits);
  if (kind == LiteralClass::kInteger) return Kind::kInt;
  return kind == LiteralClass::kMoney ? Kind::kMoney : Kind::kFloat;
}

}  // namespace

Typed ExpressionCompiler::Value(const tsql::Expression& expression) {
  return std::visit([this](const auto& node) { return Compile(node); }, expression.node);
}

std::string ExpressionCompiler::Condition(const tsql::Expression& expression) {
  return std::visit([this](const auto& node) { return Test(node); }, expression.node);
}

Typed ExpressionCompiler::Compile(const tsql::Literal& literal) {
  Typed value;
  if (literal.kind == tsql::Literal::Kind::kNull) {
    value.sql = "NULL";
    return value;
  }
  const bool number =
      literal.kind == tsql::Literal::Kind::kInteger || literal.kind == tsql::Literal::Kind::kDecimal;
  value.kind = number ? KindOfNumber(literal.value) : Kind::kText;
  value.isDecimal = number && value.kind != Kind::kInt;
  value.width = SizeOf(value.kind);
  if (!number) value.width = keepWidths_ ? static_cast<long>(platform::Length(literal.value)) : kWidestText;
  value.nullable = false;
  value.parameter = parameters_.Add({literal.ordinal, value.kind, false, keepWidths_});
  value.sql = Parameters::Name(*value.parameter);
  return value;
}

Typed ExpressionCompiler::Compile(const tsql::ColumnRef& column) {
  if (!inAggregate_ && loneColumn_.empty()) loneColumn_ = column.name;
  return scope_.Resolve(column);
}

Typed ExpressionCompiler::Compile(const tsql::Unary& unary) {
  Typed value = Value(*unary.operand);
  if (unary.kind != tsql::Unary::Kind::kMinus) return value;
  if (value.kind != Kind::kNull && !IsNumber(value.kind)) RefuseOperand(value.kind, "minus");
  value.isColumn = false;
  if (value.parameter) {
    bool& negative = parameters_[*value.parameter].negative;
    negative = !negative;
  } else {
    value.sql = "(-" + value.sql + ")";
  }
  return value;
}

Typed ExpressionCompiler::Compile(const tsql::Binary& binary) {
  Typed left = Value(*binary.left);
  Typed right = Value(*binary.right);
  if (left.isColumn && right.kind == Kind::kText) right = Fixed(std::move(right), *binary.right);
  if (right.isColumn && left.kind == Kind::kText) left = Fixed(std::move(left), *binary.left);
  return Arithmetic(binary.op, std::move(left), std::move(right));
}

Typed ExpressionCompiler::Fixed(Typed value, const tsql::Expression& expression) {
  const auto* literal = std::get_if<tsql::Literal>(&expression.node);
  if (!value.parameter || literal == nullptr) return value;
  parameters_[*value.parameter].fixedValue = true;
  const bool number = value.kind == Kind::kInt && literal->kind == tsql::Literal::Kind::kInteger;
  const bool text = value.kind == Kind::kText && literal->value.find('\0') == std::string::npos;
  if (!writeOut_ || (!number && !text)) return value;
  value.sql = number ? literal->value : QuotedText(literal->value);
  value.parameter.reset();
  return value;
}

Typed ExpressionCompiler::Compile(const tsql::InList&) { Refuse("Incorrect syntax near the keyword 'IN'."); }

Typed ExpressionCompiler::Compile(const tsql::Cast& cast) {
  return Convert(Value(*cast.operand), cast.type, cast.style, parameters_);
}

Typed ExpressionCompiler::Concatenated(const Typed& left, const Typed& right) {
  Typed text;
  text.kind = Kind::kText;
  text.sql = Infix(left.sql, " || ", right.sql);
  text.width = std::min(left.width + right.width, kWidestText);
  text.nullable = left.nullable || right.nullable;
  return text;
}

Typed ExpressionCompiler::Arithmetic(Operator op, Typed left, Typed right) {
  const Kind kind = CommonKind(left.kind, right.kind);
  const bool decimal = (left.isDecimal || right.isDecimal) && MayBeDecimal(left) && MayBeDecimal(right);
  left = Coerce(std::move(left), kind, parameters_);
  right = Coerce(std::move(right), kind, parameters_);
  const bool sum = op == Operator::kAdd || op == Operator::kSubtract;
  if (kind == Kind::kText && op == Operator::kAdd) return Concatenated(left, right);
  if (kind == Kind::kBytes || kind == Kind::kText || (kind == Kind::kDate && !sum) ||
      (kind == Kind::kFloat && op == Operator::kModulo))
    RefuseOperand(kind, NameOf(op));
  Typed value;
  value.kind = IsWhole(kind) ? Kind::kInt : kind;
  value.width = SizeOf(value.kind);
  value.nullable = left.nullable || right.nullable;
  value.isDecimal = decimal;
  if (const char* function = FunctionOf(op, kind); function != nullptr) {
    value.sql = Call(function, left.sql, right.sql);
  } else {
    value.sql = Infix(left.sql, SqlOf(op), right.sql);
  }
  // Dates add up as days since 01-01-1900.
  if (kind == Kind::kDate)
    value.sql = Call("sv_date", value.sql, op == Operator::kAdd ? "-172800" : "172800");
  return value;
}

Typed ExpressionCompiler::Unified(std::vector<Typed>& values) {
  Typed common;
  common.nullable = false;
  bool decimal = true;
  for (const Typed& value : values) {
    common.kind = CommonKind(common.kind, value.kind);
    common.nullable = common.nullable || value.nullable;
    common.isDecimal = common.isDecimal || value.isDecimal;
    decimal = decimal && MayBeDecimal(value);
  }
  common.isDecimal = common.isDecimal && decimal;
  for (Typed& value : values) {
    value = Coerce(std::move(value), common.kind, parameters_);
    common.width = std::max(common.width, value.width);
  }
  return common;
}

Typed ExpressionCompiler::Compile(const tsql::Case& choice) {
  const bool simple = choice.operand != nullptr;
  std::vector<Typed> tested;  // the operand, then what it is compared with
  std::vector<Typed> values;
  if (simple) tested.push_back(Value(*choice.operand));
  for (const tsql::Case::Branch& branch : choice.branches) {
    if (simple) tested.push_back(Value(*branch.when));
    values.push_back(Value(*branch.then));
  }
  if (choice.otherwise) values.push_back(Value(*choice.otherwise));
  Unified(tested);
  Typed result = Unified(values);
  result.nullable = result.nullable || !choice.otherwise;
  result.sql = simple ? "CASE " + Collated(tested.front()) : "CASE";
  for (std::size_t i = 0; i < choice.branches.size(); ++i)
    result.sql += " WHEN " + (simple ? tested[i + 1].sql : Condition(*choice.branches[i].when)) + " THEN " +
                  values[i].sql;
  if (choice.otherwise) result.sql += " ELSE " + values.back().sql;
  result.sql += " END";
  return result;
}

std::string ExpressionCompiler::Compare(Operator op, Typed left, Typed right) {
  const auto isReal = [](const Typed& value) { return value.parameter && value.kind == Kind::kFloat; };
  const Kind kind = CommonKind(left.kind, right.kind);
  if (left.kind == Kind::kMoney && isReal(right)) {
    parameters_[*right.parameter].inTenThousandths =
        true;  // finer than money: compared without rounding either
  } else if (right.kind == Kind::kMoney && isReal(left)) {
    parameters_[*left.parameter].inTenThousandths = true;
  } else {
    left = Coerce(std::move(left), kind, parameters_);
    right = Coerce(std::move(right), kind, parameters_);
  }
  return Infix(right.isColumn ? left.sql : Collated(left), SqlOf(op), right.sql);
}

std::string ExpressionCompiler::Test(const tsql::Unary& unary) {
  if (unary.kind == tsql::Unary::Kind::kNot) return "(NOT " + Condition(*unary.operand) + ")";
  const char* test = unary.kind == tsql::Unary::Kind::kIsNull ? " IS NULL)" : " IS NOT NULL)";
  return "(" + Value(*unary.operand).sql + test;
}

std::string ExpressionCompiler::Test(const tsql::Binary& binary) {
  if (binary.op == Operator::kAnd || binary.op == Operator::kOr) return "(" + Joined(binary) + ")";
  if (binary.op == Operator::kLike || binary.op == Operator::kNotLike) {
    const Typed text = Text(*binary.left);
    const std::string like = Call("sv_like", text.sql, Text(*binary.right).sql);
    return binary.op == Operator::kLike ? like : "(NOT " + like + ")";
  }
  Typed left = Value(*binary.left);
  return Compare(binary.op, std::move(left), Value(*binary.right));
}

// A long chain stays flat: SQLite reads few brackets within one another.
std::string ExpressionCompiler::Joined(const tsql::Binary& binary) {
  const auto* left = std::get_if<tsql::Binary>(&binary.left->node);
  std::string sql = left != nullptr && left->op == binary.op ? Joined(*left) : Condition(*binary.left);
  return sql.append(SqlOf(binary.op)).append(Condition(*binary.right));
}

std::string ExpressionCompiler::Test(const tsql::InList& list) {
  std::vector<Typed> values;  // the value, then the list
  values.push_back(Value(*list.value));
  for (const tsql::ExpressionPtr& item : list.items) values.push_back(Value(*item));
  Unified(values);
  std::string sql = "(" + Collated(values.front()) + (list.negated ? " NOT IN (" : " IN (");
  for (std::size_t i = 1; i < values.size(); ++i) sql += (i == 1 ? "" : ", ") + values[i].sql;
  return sql + "))";
}

template <typename Node>
std::string ExpressionCompiler::Test(const Node&) {
  Refuse("An expression of non-boolean type specified in a context where a condition is expected.");
}

}  // namespace embedded
