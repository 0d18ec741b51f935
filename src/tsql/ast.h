#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tsql/types.h"

/// The syntax tree of a statement. Names keep their spelling; offsets are bytes in the statement's text, of
/// the first token of a node or, for operators and predicates, of the operator.
namespace tsql {

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

/// A literal in the text. `ordinal` counts the literals of the statement from 0 in the order of the text, so
/// that an engine can make parameters of them.
struct Literal {
  enum class Kind { kInteger, kDecimal, kString, kNationalString, kNull };
  Kind kind = Kind::kNull;
  std::string value;  // unescaped
  std::size_t ordinal = 0;
};

/// A column that an expression names.
struct ColumnRef {
  std::string table;  // qualifier: a table or its alias; empty when unqualified
  std::string name;
};

/// Arithmetic first; from kEqual on, what gives a condition.
enum class Operator {
  kAdd,
  kSubtract,
  kMultiply,
  kDivide,
  kModulo,
  kEqual,
  kNotEqual,
  kLess,
  kLessEqual,
  kGreater,
  kGreaterEqual,
  kAnd,
  kOr,
  kLike,
  kNotLike
};

struct Unary {
  /// From kNot on, what gives a condition.
  enum class Kind { kMinus, kPlus, kNot, kIsNull, kIsNotNull };
  Kind kind = Kind::kMinus;
  ExpressionPtr operand;
};

struct Binary {
  Operator op = Operator::kEqual;
  ExpressionPtr left;
  ExpressionPtr right;
};

/// `value [NOT] IN (a, b, …)`.
struct InList {
  ExpressionPtr value;
  std::vector<ExpressionPtr> items;
  bool negated = false;
};

/// A function by name, as written. `count(*)` has `star`; `datediff(d, a, b)` has `datePart` and two
/// arguments.
struct FunctionCall {
  std::string name;
  std::string datePart;
  bool star = false;
  std::vector<ExpressionPtr> arguments;
};

/// `CAST(operand AS type)`, and `CONVERT(type, operand[, style])`.
struct Cast {
  Type type;
  ExpressionPtr operand;
  std::optional<int> style;
};

/// `CASE [operand] WHEN … THEN … [ELSE …] END`.
struct Case {
  struct Branch {
    ExpressionPtr when;
    ExpressionPtr then;
  };
  ExpressionPtr operand;  // null for the searched form
  std::vector<Branch> branches;
  ExpressionPtr otherwise;  // null without ELSE
};

struct Expression {
  std::variant<Literal, ColumnRef, Unary, Binary, InList, FunctionCall, Cast, Case> node;
  std::size_t offset = 0;
};

/// One column of a SELECT, or the star that stands for many.
struct SelectItem {
  bool star = false;
  std::string starTable;  // `t.*`
  ExpressionPtr expression;
  std::string alias;  // empty when there is none
  std::size_t offset = 0;
};

struct TableRef {
  std::string name;
  std::string alias;
  std::size_t offset = 0;
  /// The name by which columns are qualified.
  const std::string& Qualifier() const { return alias.empty() ? name : alias; }
};

struct Join {
  enum class Kind { kInner, kLeft };
  Kind kind = Kind::kInner;
  TableRef table;
  ExpressionPtr on;
};

struct OrderItem {
  ExpressionPtr expression;
  bool descending = false;
};

/// One SELECT of a union.
struct SelectCore {
  std::optional<long> top;
  bool distinct = false;
  std::vector<SelectItem> items;
  std::optional<TableRef> from;
  std::vector<Join> joins;
  ExpressionPtr where;
};

/// A whole SELECT. What it is ordered by counts for the union, not for its last part.
struct Select {
  std::vector<SelectCore> cores;  // joined by UNION
  std::vector<bool> unionAll;     // one fewer than cores
  std::vector<OrderItem> orderBy;
};

struct Assignment {
  std::string column;
  ExpressionPtr value;
  std::size_t offset = 0;
};

// The statements that write, each on one table. A missing WHERE is null and hits all rows.

struct Insert {
  TableRef table;
  std::vector<Assignment> values;  // columns with their values
};

struct Update {
  TableRef table;
  std::vector<Assignment> assignments;
  ExpressionPtr where;
};

struct Delete {
  TableRef table;
  ExpressionPtr where;
};

using StatementNode = std::variant<Select, Insert, Update, Delete>;

}  // namespace tsql
