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

std::string Type::ToText() const {
  std::string name = NameOf(base);
  if (width == 0) return name;
  return name + "(" + (width == kMax ? "max" : std::to_string(width)) + ")";
}

}  // namespace tsql
