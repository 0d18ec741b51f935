#pragma once

#include "embedded/storage/sqlite.h"
#include "tsql/catalog.h"

namespace embedded {

/// Creates what a database lacks of the tables, columns and indexes, and rebuilds the tables whose columns or
/// keys have changed. Columns that the catalogue does not know stay. Within a transaction of the caller.
void UpgradeTables(const SqliteConnection& connection, const tsql::Catalog& catalog);

}  // namespace embedded
