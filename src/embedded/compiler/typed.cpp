#include "embedded/compiler/typed.h"

#include <algorithm>

#include "embedded/compiler/server_error.h"
#include "embedded/storage/sqlite.h"

namespace embedded {
namespace {

constexpr long kWidestNumber = 30;  // characters of a number's text

/// Characters of a date's text in a style of CONVERT.
long WidthOfStyle(int style) { return style == 102 ? 10 : kWidestNumber; }

std::string Number(long value) { return std::to_string(value); }

[[noreturn]] void RefuseConversion(Kind from, Kind to) {
  Refuse("Implicit conversion from data type " + std::string(NameOf(from)) + " to " + NameOf(to) +
         " is not allowed. Use the CONVERT function to run this query.");
}

std::string TextSql(const Typed& value) {
  if (value.kind == Kind::kMoney) return "sv_money_text(" + value.sql + ")";
  if (value.kind == Kind::kDate) return "sv_date_text(" + value.sql + ", 0)";
  return "CAST(" + value.sql + " AS TEXT)";
}

std::string ConvertedByFunction(const std::string& sql, Kind from, Kind to) {
  return "sv_convert(" + sql + ", " + Number(static_cast<long>(from)) + ", " + Number(static_cast<long>(to)) +
         ")";
}

/// The SQL of a conversion between two different kinds, neither of them null.
std::string ConvertedSql(const Typed& value, Kind to) {
  const Kind from = value.kind;
  const bool bytes = from == Kind::kBytes || to == Kind::kBytes;
  const bool dateToNumber = from == Kind::kDate && to != Kind::kText;
  const bool fractionToDate = to == Kind::kDate && (from == Kind::kMoney || from == Kind::kFloat);
  if (bytes || dateToNumber || fractionToDate) RefuseConversion(from, to);
  if (to == Kind::kText) return TextSql(value);
  if (from == Kind::kText) return ConvertedByFunction(value.sql, from, to);
  if (to == Kind::kBit) return "(" + value.sql + " <> 0)";
  if (to == Kind::kDate) return "sv_days_date(" + value.sql + ")";
  if (to == Kind::kFloat)
    return from == Kind::kMoney ? "(" + value.sql + " / 10000.0)" : "CAST(" + value.sql + " AS REAL)";
  if (IsWhole(from) && to == Kind::kMoney) return "(" + value.sql + " * 10000)";
  if (IsWhole(from) && from < to) return value.sql;
  if (value.isDecimal && from == Kind::kMoney)
    return ConvertedByFunction("(" + value.sql + " / 10000)", Kind::kInt, to);
  return ConvertedByFunction(value.sql, from, to);
}

Typed FromLiteral(Typed value, Kind to, Parameters& parameters) {
  if (to == Kind::kBytes || (to == Kind::kDate && (value.kind == Kind::kMoney || value.kind == Kind::kFloat)))
    RefuseConversion(value.kind, to);
  parameters[*value.parameter].kind = to;
  return value;
}

long TextWidth(const Typed& value) { return value.kind == Kind::kText ? value.width : kWidestNumber; }

/// A text cut to the width of its type; a number must fit it.
Typed Narrowed(Typed text, const Kind from, long width) {
  if (width >= TextWidth(text) && (from == Kind::kText || from == Kind::kDate)) return text;
  const bool cut = from == Kind::kText || from == Kind::kDate;
  text.sql = Call(cut ? "sv_left" : "sv_narrow", text.sql, Number(width));
  text.parameter.reset();
  text.isColumn = false;
  return text;
}

}  // namespace

std::string Call(std::string_view name, std::string_view a, std::string_view b) {
  std::string call(name);
  call.append("(").append(a).append(", ").append(b).append(")");
  return call;
}

Typed ColumnValue(const tsql::Column& column, const std::string& alias) {
  Typed value;
  value.sql = alias + "." + QuotedName(column.name);
  value.kind = KindOf(column.type.base);
  value.width = column.type.width > 0 ? column.type.width : SizeOf(value.kind);
  value.nullable = column.nullable;
  value.isColumn = true;
  return value;
}

Typed Coerce(Typed value, Kind to, Parameters& parameters) {
  const Kind from = value.kind;
  if (from == to) return value;
  if (value.parameter) {
    value = FromLiteral(std::move(value), to, parameters);
  } else if (from != Kind::kNull) {
    value.sql = ConvertedSql(value, to);
    value.isColumn = false;
  }
  value.width = to == Kind::kText ? (from == Kind::kNull ? 0 : TextWidth(value)) : SizeOf(to);
  value.kind = to;
  value.isDecimal = false;
  return value;
}

Typed Convert(Typed value, const tsql::Type& type, std::optional<int> style, Parameters& parameters) {
  const Kind from = value.kind;
  const Kind to = KindOf(type.base);
  if (from == Kind::kDate && to == Kind::kText) {
    value.sql = Call("sv_date_text", value.sql, Number(style.value_or(0)));
    value.kind = Kind::kText;
    value.width = WidthOfStyle(style.value_or(0));
    value.isColumn = false;
  } else {
    value = Coerce(std::move(value), to, parameters);
  }
  value.isDecimal = false;
  if (to != Kind::kText || from == Kind::kNull) {
    value.parameter.reset();  // its kind is settled
    return value;
  }
  value = Narrowed(std::move(value), from, type.width);
  value.width = type.width;
  value.parameter.reset();
  return value;
}

Typed ForColumn(Typed value, const tsql::Column& column, Parameters& parameters) {
  const Kind to = KindOf(column.type.base);
  const bool isNull = value.kind == Kind::kNull;
  value = Coerce(std::move(value), to, parameters);
  if (to == Kind::kText && !isNull && column.type.width < tsql::Type::kMax)
    value.sql = Call("sv_fit", value.sql, Number(column.type.width));
  return value;
}

Kind CommonKind(Kind a, Kind b) { return std::max(a, b); }

std::string Collated(const Typed& value) {
  return value.kind == Kind::kText && !value.isColumn ? value.sql + " COLLATE SERVER" : value.sql;
}

}  // namespace embedded
