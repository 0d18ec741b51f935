#include "tsql/fields.h"

#include "platform/runtime_error.h"

namespace tsql {

std::vector<platform::FieldInfo> FieldsOf(const Table& table, const std::vector<std::string>& columns) {
  std::vector<platform::FieldInfo> fields;
  for (const std::string& name : columns) {
    const Column* column = table.Find(name);
    if (column == nullptr)
      throw platform::RuntimeError(platform::kInvalidColumn, table.name,
                                   "Invalid column name '" + name + "'.");
    fields.push_back({.name = column->name,
                      .type = FieldTypeOf(column->type.base),
                      .definedSize = column->type.width,
                      .nullable = column->nullable});
  }
  return fields;
}

}  // namespace tsql
