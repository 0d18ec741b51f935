#pragma once

#include <string>
#include <vector>

#include "embedded/compiler/parameters.h"
#include "embedded/compiler/scope.h"
#include "embedded/compiler/typed.h"
#include "tsql/ast.h"

namespace embedded {

/// Compiles the expressions of one SELECT, UPDATE or DELETE. Errors are the server's.
class ExpressionCompiler {
 public:
  ExpressionCompiler(const Scope& scope, Parameters& parameters) : scope_(scope), parameters_(parameters) {}

  /// From now on the widths of texts written in the statement are part of the outcome.
  void KeepWidths(bool keep) { keepWidths_ = keep; }
  /// From now on a text joined to a column, and the length of a LEFT, stand in the SQL themselves: an index
  /// on an expression serves only the same expression, and a parameter is none.
  void WriteOut(bool write) { writeOut_ = write; }

  Typed Value(const tsql::Expression& expression);
  std::string Condition(const tsql::Expression& expression);

  /// True when an expression so far summed up rows (`count`, `max`, …).
  bool sawAggregate() const { return sawAggregate_; }
  /// The first column so far that stands outside an aggregate; empty when none does.
  const std::string& loneColumn() const { return loneColumn_; }

 private:
  Typed Compile(const tsql::Literal& literal);
  Typed Compile(const tsql::ColumnRef& column);
  Typed Compile(const tsql::Unary& unary);
  Typed Compile(const tsql::Binary& binary);
  Typed Compile(const tsql::InList& list);
  Typed Compile(const tsql::FunctionCall& call);
  Typed Compile(const tsql::Cast& cast);
  Typed Compile(const tsql::Case& choice);

  std::string Test(const tsql::Unary& unary);
  std::string Test(const tsql::Binary& binary);
  std::string Test(const tsql::InList& list);
  template <typename Node>
  std::string Test(const Node& node);

  /// Conditions joined by AND or OR, without the brackets around them.
  std::string Joined(const tsql::Binary& binary);
  std::string Compare(tsql::Operator op, Typed left, Typed right);
  Typed Arithmetic(tsql::Operator op, Typed left, Typed right);
  Typed Concatenated(const Typed& left, const Typed& right);
  /// Brings values to one kind; the outcome tells it, with the largest width, and whether any may be null.
  Typed Unified(std::vector<Typed>& values);
  /// A literal whose value is part of the compiled statement; anything else stays as it is.
  Typed Fixed(Typed value, const tsql::Expression& expression);
  Typed Text(const tsql::Expression& expression) {
    return Coerce(Value(expression), Kind::kText, parameters_);
  }

  Typed Left(const tsql::FunctionCall& call);
  Typed Length(const tsql::FunctionCall& call);
  Typed Coalesce(const tsql::FunctionCall& call);
  Typed IsNull(const tsql::FunctionCall& call);
  Typed DateDiff(const tsql::FunctionCall& call);
  Typed GetDate(const tsql::FunctionCall& call);
  Typed Count(const tsql::FunctionCall& call);
  Typed Sum(const tsql::FunctionCall& call);
  Typed Extreme(const tsql::FunctionCall& call, const char* function);
  Typed AggregateArgument(const tsql::FunctionCall& call);

  const Scope& scope_;
  Parameters& parameters_;
  bool keepWidths_ = false;
  bool writeOut_ = false;
  bool inAggregate_ = false;
  bool sawAggregate_ = false;
  std::string loneColumn_;
};

}  // namespace embedded
