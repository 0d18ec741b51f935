#include "embedded/compiler/value_kind.h"

#include <array>

namespace embedded {
namespace {

struct KindFacts {
  const char* name;
  platform::FieldType field;
  long size;
};

using platform::FieldType;

// In the order of Kind.
constexpr std::array<KindFacts, 9> kFacts{{{"int", FieldType::kLong, 4},
                                           {"varbinary", FieldType::kBytes, 0},
                                           {"nvarchar", FieldType::kText, 0},
                                           {"bit", FieldType::kBool, 2},
                                           {"smallint", FieldType::kInteger, 2},
                                           {"int", FieldType::kLong, 4},
                                           {"money", FieldType::kCurrency, 8},
                                           {"float", FieldType::kDouble, 8},
                                           {"datetime", FieldType::kDate, 16}}};

const KindFacts& FactsOf(Kind kind) { return kFacts[static_cast<std::size_t>(kind)]; }

}  // namespace

Kind KindOf(tsql::BaseType type) {
  switch (type) {
    case tsql::BaseType::kBit:
      return Kind::kBit;
    case tsql::BaseType::kSmallInt:
      return Kind::kSmallInt;
    case tsql::BaseType::kInt:
      return Kind::kInt;
    case tsql::BaseType::kMoney:
      return Kind::kMoney;
    case tsql::BaseType::kFloat:
      return Kind::kFloat;
    case tsql::BaseType::kDateTime:
      return Kind::kDate;
    case tsql::BaseType::kNVarChar:
      return Kind::kText;
    case tsql::BaseType::kVarBinary:
      return Kind::kBytes;
  }
  return Kind::kNull;
}

platform::FieldType FieldTypeOf(Kind kind) { return FactsOf(kind).field; }
const char* NameOf(Kind kind) { return FactsOf(kind).name; }
long SizeOf(Kind kind) { return FactsOf(kind).size; }

}  // namespace embedded
