#include "tsql/type_parser.h"

#include <array>

#include "platform/text.h"

namespace tsql {
namespace {

struct KnownType {
  const char* name;
  BaseType base;
  long widest;  // 0: a type without width
};

constexpr std::array<KnownType, 8> kTypes{{{"bit", BaseType::kBit, 0},
                                           {"smallint", BaseType::kSmallInt, 0},
                                           {"int", BaseType::kInt, 0},
                                           {"money", BaseType::kMoney, 0},
                                           {"float", BaseType::kFloat, 0},
                                           {"datetime", BaseType::kDateTime, 0},
                                           {"nvarchar", BaseType::kNVarChar, 4000},
                                           {"varbinary", BaseType::kVarBinary, 8000}}};

const KnownType* FindType(std::string_view name) {
  for (const KnownType& type : kTypes) {
    if (platform::EqualsIgnoringCase(type.name, name)) return &type;
  }
  return nullptr;
}

}  // namespace

Type ParseType(TokenCursor& cursor) {
  if (!cursor.AtName()) cursor.Refuse();
  const KnownType* const known = FindType(cursor.current().text);
  if (known == nullptr) {
    cursor.Refuse("Type " + std::string(cursor.current().text) + " is not a defined system type.");
  }
  cursor.Advance();
  if (known->widest == 0) return {known->base, 0};
  cursor.Expect("(");
  const long width = cursor.Accept("max") ? Type::kMax : cursor.TakeInteger(1, known->widest);
  cursor.Expect(")");
  return {known->base, width};
}

}  // namespace tsql
