#pragma once

#include <string>
#include <vector>

namespace history {

/// What people call a table of the module: "Gastos".
struct TableName {
  const char* table;
  const char* name;
};

/// All tables whose rows are remembered.
const std::vector<TableName>& TableNames();
/// The name of a table; of an unknown one the table's own.
std::string NameOfTable(const std::string& table);
/// The table whose rows a list of the module shows by their key, by the key of the list; empty for none.
std::string TableOfList(const std::string& list);

}  // namespace history
