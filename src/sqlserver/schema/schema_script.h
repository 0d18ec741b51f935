#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sqlserver/database.h"

namespace sqlserver {

/// The statements that create one table and its indexes, as they stand in a schema.
struct TableScript {
  std::string table;
  std::vector<std::string> statements;
};

/// Parts a schema by its tables, in its order. Errors as `tsql::ParseSchema`.
std::vector<TableScript> ScriptsOf(std::string_view schema);

/// True when the database has the table. Errors other than that it lacks are raised.
bool HasTable(Session& session, const std::string& table);

/// Those of the tables that the database lacks.
std::vector<TableScript> LackingTables(Session& session, std::string_view schema);

/// Creates the tables that the database lacks, all of them or, when one fails, none; touches nothing that
/// stands. Returns their names.
std::vector<std::string> CreateLackingTables(Database& database, std::string_view schema);

}  // namespace sqlserver
