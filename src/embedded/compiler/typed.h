#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "embedded/compiler/parameters.h"
#include "embedded/compiler/value_kind.h"
#include "tsql/ast.h"
#include "tsql/catalog.h"

namespace embedded {

/// A compiled value: its SQL, and what the server would know of its type.
struct Typed {
  std::string sql;
  Kind kind = Kind::kNull;
  long width = 0;  // of text in characters, of anything else in bytes
  bool nullable = true;
  bool isColumn = false;                 // a plain column, which carries its collation
  bool isDecimal = false;                // written with decimals, or made of such: cut to become whole
  std::optional<std::size_t> parameter;  // set when the value is one literal and nothing else
};

/// A column of a table that the SQL calls `alias`.
Typed ColumnValue(const tsql::Column& column, const std::string& alias);

/// The value as another kind, as the server converts it without being asked: error -2147217900 where it would
/// not.
Typed Coerce(Typed value, Kind to, Parameters& parameters);

/// CAST and CONVERT.
Typed Convert(Typed value, const tsql::Type& type, std::optional<int> style, Parameters& parameters);

/// The value as it goes into a column: converted, and no longer than the column.
Typed ForColumn(Typed value, const tsql::Column& column, Parameters& parameters);

/// The kind that two values become when they meet.
Kind CommonKind(Kind a, Kind b);

/// `value` with its text compared as the server compares.
std::string Collated(const Typed& value);

/// "name(a, b)".
std::string Call(std::string_view name, std::string_view a, std::string_view b);

}  // namespace embedded
