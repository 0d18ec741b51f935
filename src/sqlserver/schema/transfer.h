#pragma once

#include <functional>
#include <string>

#include "sqlserver/database.h"

namespace sqlserver {

struct TransferredTable {
  std::string table;
  long rows = 0;
  bool already = false;  // an earlier run brought it
};

/// Copies all rows of another database into the tables of the server, with their numbers. One table is stored
/// whole or not at all, after its rows were read back and compared; what an earlier run stored is recognised
/// by its rows, so that a run that was interrupted is simply run again. Before anything is stored, error 457
/// when a table has other rows, and error -2147217865 when one is missing. `done` is told each table.
void Transfer(zorCrmParvel::DataAccess& from, Database& to,
              const std::function<void(const TransferredTable&)>& done);

}  // namespace sqlserver
