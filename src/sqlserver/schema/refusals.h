#pragma once

#include "sqlserver/session.h"
#include "store/store.h"
#include "tsql/catalog.h"

namespace sqlserver {

/// What the connected user may not do with the tables of the catalogue, asked in one statement. Nothing where
/// the server doesn't tell, and of tables that it lacks.
zorCrmParvel::Refusals RefusedBy(Session& session, const tsql::Catalog& catalog);

}  // namespace sqlserver
