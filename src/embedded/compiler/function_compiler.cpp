#include <algorithm>

#include "embedded/compiler/expression_compiler.h"
#include "embedded/compiler/server_error.h"
#include "platform/text.h"

// The functions of the server that statements may call.
namespace embedded {
namespace {

using platform::EqualsIgnoringCase;

void RequireArguments(const tsql::FunctionCall& call, std::size_t count) {
  if (call.star || call.arguments.size() != count)
    Refuse("The " + call.name + " function requires " + std::to_string(count) + " argument(s).");
}

Typed Whole(std::string sql, bool nullable) {
  Typed value;
  value.sql = std::move(sql);
  value.kind = Kind::kInt;
  value.width = SizeOf(Kind::kInt);
  value.nullable = nullable;
  return value;
}

/// Days since a day long before any date, so that the division rounds down.
std::string DayNumber(const Typed& date) {
  constexpr const char* kOffset = "86400000000";  // a million days
  return "((" + date.sql + " + " + kOffset + ") / 86400)";
}

}  // namespace

Typed ExpressionCompiler::Compile(const tsql::FunctionCall& call) {
  const auto is = [&call](const char* name) { return EqualsIgnoringCase(call.name, name); };
  if (is("LEFT")) return Left(call);
  if (is("LEN")) return Length(call);
  if (is("COALESCE")) return Coalesce(call);
  if (is("ISNULL")) return IsNull(call);
  if (is("DATEDIFF")) return DateDiff(call);
  if (is("GETDATE")) return GetDate(call);
  if (is("COUNT")) return Count(call);
  if (is("SUM")) return Sum(call);
  if (is("MIN")) return Extreme(call, "min");
  if (is("MAX")) return Extreme(call, "max");
  Refuse("'" + call.name + "' is not a recognized built-in function name.");
}

Typed ExpressionCompiler::Left(const tsql::FunctionCall& call) {
  RequireArguments(call, 2);
  Typed text = Text(*call.arguments[0]);
  const Typed length = Fixed(Coerce(Value(*call.arguments[1]), Kind::kInt, parameters_), *call.arguments[1]);
  text.sql = Call("sv_left", text.sql, length.sql);
  text.nullable = text.nullable || length.nullable;
  text.isColumn = false;
  text.parameter.reset();
  return text;
}

Typed ExpressionCompiler::Length(const tsql::FunctionCall& call) {
  RequireArguments(call, 1);
  const Typed text = Text(*call.arguments[0]);
  return Whole("sv_len(" + text.sql + ")", text.nullable);
}

Typed ExpressionCompiler::Coalesce(const tsql::FunctionCall& call) {
  if (call.star || call.arguments.size() < 2)
    Refuse("The COALESCE function requires at least 2 argument(s).");
  std::vector<Typed> values;
  for (const tsql::ExpressionPtr& argument : call.arguments) values.push_back(Value(*argument));
  Typed result = Unified(values);
  result.nullable =
      std::all_of(values.begin(), values.end(), [](const Typed& value) { return value.nullable; });
  for (const Typed& value : values) result.sql += (result.sql.empty() ? "coalesce(" : ", ") + value.sql;
  result.sql += ")";
  return result;
}

// Unlike COALESCE, it takes the kind of its first argument.
Typed ExpressionCompiler::IsNull(const tsql::FunctionCall& call) {
  RequireArguments(call, 2);
  Typed value = Value(*call.arguments[0]);
  Typed other = Value(*call.arguments[1]);
  if (value.kind == Kind::kNull) return other;
  other = Coerce(std::move(other), value.kind, parameters_);
  value.sql = Call("coalesce", value.sql, other.sql);
  value.nullable = value.nullable && other.nullable;
  value.isColumn = false;
  value.parameter.reset();
  return value;
}

Typed ExpressionCompiler::DateDiff(const tsql::FunctionCall& call) {
  RequireArguments(call, 2);
  if (!EqualsIgnoringCase(call.datePart, "d") && !EqualsIgnoringCase(call.datePart, "dd") &&
      !EqualsIgnoringCase(call.datePart, "day"))
    Refuse("'" + call.datePart + "' is not a recognized datediff option.");
  const Typed from = Coerce(Value(*call.arguments[0]), Kind::kDate, parameters_);
  const Typed to = Coerce(Value(*call.arguments[1]), Kind::kDate, parameters_);
  return Whole("(" + DayNumber(to) + " - " + DayNumber(from) + ")", from.nullable || to.nullable);
}

Typed ExpressionCompiler::GetDate(const tsql::FunctionCall& call) {
  RequireArguments(call, 0);
  Typed now;
  now.sql = Parameters::Name(parameters_.Add({std::nullopt, Kind::kDate}));
  now.kind = Kind::kDate;
  now.width = SizeOf(Kind::kDate);
  now.nullable = false;
  return now;
}

Typed ExpressionCompiler::AggregateArgument(const tsql::FunctionCall& call) {
  RequireArguments(call, 1);
  if (inAggregate_) Refuse("Cannot perform an aggregate function on an expression containing an aggregate.");
  inAggregate_ = true;
  Typed argument = Value(*call.arguments[0]);
  inAggregate_ = false;
  sawAggregate_ = true;
  return argument;
}

Typed ExpressionCompiler::Count(const tsql::FunctionCall& call) {
  if (!call.star) return Whole("count(" + AggregateArgument(call).sql + ")", false);
  sawAggregate_ = true;
  return Whole("count(*)", false);
}

Typed ExpressionCompiler::Sum(const tsql::FunctionCall& call) {
  Typed argument = AggregateArgument(call);
  if (!IsNumber(argument.kind) || argument.kind == Kind::kBit)
    Refuse("Operand data type " + std::string(NameOf(argument.kind)) + " is invalid for sum operator.");
  Typed sum;
  sum.kind = IsWhole(argument.kind) ? Kind::kInt : argument.kind;
  sum.width = SizeOf(sum.kind);
  sum.sql = "sum(" + argument.sql + ")";
  return sum;
}

Typed ExpressionCompiler::Extreme(const tsql::FunctionCall& call, const char* function) {
  Typed value = AggregateArgument(call);
  value.sql = std::string(function) + "(" + Collated(value) + ")";
  value.nullable = true;
  value.isColumn = false;
  value.parameter.reset();
  return value;
}

}  // namespace embedded
