#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <string>
#include <vector>

#include "embedded/storage/engine.h"
#include "platform/recordset.h"
#include "store/store.h"
#include "tsql/catalog.h"

namespace embedded {

/// The statement that puts rows into a table, with a parameter for each of the columns of each row. Without
/// columns it is one row.
std::string InsertSql(const std::string& table, const std::vector<std::string>& columns,
                      std::ptrdiff_t rows = 1);

/// Sets a parameter, counted from 1, to a value for a column of a type. The value outlives the statement's
/// run.
void BindVariant(sqlite3_stmt* statement, int index, platform::FieldType type,
                 const platform::Variant& value);

/// As of `Store::AddRows`.
void AddRows(Engine& engine, const tsql::Table& table, const std::vector<std::string>& columns,
             const std::vector<const zorCrmParvel::RowValues*>& rows);

}  // namespace embedded
