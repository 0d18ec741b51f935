#include "tsql/types.h"

namespace tsql {
namespace {

const char* NameOf(BaseType base) {
  switch (base) {
    case BaseType::kBit:
      return "bit";
    case BaseType::kSmallInt:
      return "smallint";
    case BaseType::kInt:
      return "int";
    case BaseType::kMoney:
      return "money";
    case BaseType::kFloat:
      return "float";
    case BaseType::kDateTime:
      return "datetime";
    case BaseType::kNVarChar:
      return "nvarchar";
    case BaseType::kVarBinary:
      return "varbinary";
  }
  return "";
}

}  // namespace

platform::FieldType FieldTypeOf(BaseType type) {
  using platform::FieldType;
  switch (type) {
    case BaseType::kBit:
      return FieldType::kBool;
    case BaseType::kSmallInt:
      return FieldType::kInteger;
    case BaseType::kInt:
      return FieldType::kLong;
    case BaseType::kMoney:
      return FieldType::kCurrency;
    case BaseType::kFloat:
      return FieldType::kDouble;
    case BaseType::kDateTime:
      return FieldType::kDate;
    case BaseType::kNVarChar:
      return FieldType::kText;
    case BaseType::kVarBinary:
      return FieldType::kBytes;
  }
  return FieldType::kText;
}

std::string Type::ToText() const {
  std::string name = NameOf(base);
  if (width == 0) return name;
  return name + "(" + (width == kMax ? "max" : std::to_string(width)) + ")";
}

}  // namespace tsql
