#pragma once

#include <string>
#include <vector>

#include "platform/recordset.h"
#include "tsql/catalog.h"

namespace tsql {

/// Columns of a table as the fields of a recordset, in the order of their names. Error -2147217904 for a name
/// that the table lacks.
std::vector<platform::FieldInfo> FieldsOf(const Table& table, const std::vector<std::string>& columns);

}  // namespace tsql
