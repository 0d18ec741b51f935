#pragma once

#include <cstdint>

#include "platform/cell.h"
#include "tsql/types.h"

namespace embedded {

/// The kinds of value that an expression can have. Of two kinds that meet, the later one is the one that both
/// become, as on the server.
/// In the file: whole numbers and truth values are integers, money a count of ten-thousandths, a date the
/// seconds since 30-12-1899.
enum class Kind : std::uint8_t { kNull, kBytes, kText, kBit, kSmallInt, kInt, kMoney, kFloat, kDate };

Kind KindOf(tsql::BaseType type);
platform::FieldType FieldTypeOf(Kind kind);
/// The server's name of the type.
const char* NameOf(Kind kind);
/// Declared size of a value that has no width of its own, in bytes.
long SizeOf(Kind kind);

inline bool IsWhole(Kind kind) { return kind >= Kind::kBit && kind <= Kind::kInt; }
inline bool IsNumber(Kind kind) { return kind >= Kind::kBit && kind <= Kind::kFloat; }

}  // namespace embedded
