#pragma once

#include <string>
#include <vector>

#include "sqlserver/session.h"
#include "tsql/catalog.h"

namespace sqlserver {

/// What differs between the connected database and the tables that the program knows: a sentence each, for
/// people. Columns and tables that the program does not know are nobody's business.
std::vector<std::string> Differences(Session& session, const tsql::Catalog& catalog);

}  // namespace sqlserver
