#pragma once

#include <string>

#include "embedded/compiler/parameters.h"
#include "tsql/ast.h"
#include "tsql/catalog.h"

namespace embedded {

/// INSERT, UPDATE and DELETE in SQLite's SQL. Errors are the server's.
std::string CompileInsert(const tsql::Insert& insert, const tsql::Catalog& catalog, Parameters& parameters);
std::string CompileUpdate(const tsql::Update& update, const tsql::Catalog& catalog, Parameters& parameters);
std::string CompileDelete(const tsql::Delete& removal, const tsql::Catalog& catalog, Parameters& parameters);

}  // namespace embedded
