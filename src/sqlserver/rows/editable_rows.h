#pragma once

#include <string>
#include <vector>

#include "platform/recordset.h"
#include "tsql/catalog.h"

namespace sqlserver {

/// A SELECT whose rows can be written back: rows of one table, as they are.
struct EditableRows {
  const tsql::Table* table = nullptr;
  /// The statement, with the columns of the key added at its end where it lacks them.
  std::string statement;
  /// The names of the columns behind the fields of the original statement; empty for an expression. With a
  /// star there is nothing here: each field is the column of its name.
  std::vector<std::string> columns;
  std::size_t addedKeys = 0;

  /// Error -2147217900 for anything else than a SELECT of plain rows, -2147217865 for an unknown table.
  static EditableRows Of(const std::string& statement, const tsql::Catalog& catalog);
};

}  // namespace sqlserver
