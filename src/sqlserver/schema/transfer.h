#pragma once

#include <functional>
#include <string>

#include "sqlserver/database.h"

namespace sqlserver {

struct TransferredTable {
  std::string table;
  long rows = 0;
  bool already = false;  // an earlier run brought it
  std::string refused;   // why it stayed empty, with the row; empty when it didn't
};

/// Copies all rows of another database into the tables of the server, with their numbers. One table is stored
/// whole or not at all, after its rows were read back and compared; what an earlier run stored is recognised
/// by its rows, so that a run that was interrupted is simply run again. Before anything is stored, error 457
/// when a table has other rows, and error -2147217865 when one is missing. A table with a row that the server
/// refuses stays empty, and the others are brought. `done` is told each table.
void Transfer(zorCrmParvel::DataAccess& from, Database& to,
              const std::function<void(const TransferredTable&)>& done);

}  // namespace sqlserver
