#pragma once

#include <string>

#include "platform/cell.h"

namespace tsql {

/// The types that the module's tables and casts use.
enum class BaseType { kBit, kSmallInt, kInt, kMoney, kFloat, kDateTime, kNVarChar, kVarBinary };

/// The type of the values that a column of a type holds in memory.
platform::FieldType FieldTypeOf(BaseType type);

/// A column's or cast's type. `width` is in characters (bytes for varbinary); `kMax` for (max), 0 when the
/// type has none.
struct Type {
  static constexpr long kMax = 1073741823;
  BaseType base = BaseType::kNVarChar;
  long width = 0;

  /// As written in a statement: "nvarchar(50)".
  std::string ToText() const;
  friend bool operator==(const Type&, const Type&) = default;
};

}  // namespace tsql
