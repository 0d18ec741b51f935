#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/variant.h"

namespace exchange {

/// Rows to be added to one table. Values are of the kinds of their columns; what isn't named stays null.
struct NewRows {
  std::string table;
  std::string number;  // the column that the database numbers; empty: there is none
  std::vector<std::string> columns;
  std::vector<std::vector<platform::Variant>> rows;
};

/// Adds rows in their order and gives their numbers back, in the same order; none where the database numbers
/// nothing. Errors as of a recordset's `Update`: those before are added, and a batch is given up.
std::vector<std::int32_t> AddRows(const zorCrmParvel::DataAccessRef& bd, const NewRows& added);

}  // namespace exchange
