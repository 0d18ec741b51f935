#pragma once

#include <string>
#include <vector>

#include "platform/recordset.h"
#include "sqlserver/bulk/row_writer.h"
#include "tsql/catalog.h"

namespace sqlserver {

/// What is to become of rows of one table.
struct TableChanges {
  struct Change {
    std::vector<platform::Variant> key;
    RowWriter::Values values;
  };

  std::string table;
  std::vector<platform::FieldInfo> fields;  // behind the values
  bool numbered = false;                    // the server numbers the rows added
  std::vector<RowWriter::Values> added;
  std::vector<Change> changed;
  std::vector<std::vector<platform::Variant>> removed;  // by their keys
};

/// Writes them, within the caller's batch. The numbers of the rows added, in their order, where the server
/// numbers them. Errors as of `RowWriter`.
std::vector<long> WriteChanges(Session& session, const tsql::Catalog& catalog, const TableChanges& changes);

}  // namespace sqlserver
