#pragma once

#include <string_view>

#include "tsql/ast.h"
#include "tsql/catalog.h"

namespace tsql {

/// Reads exactly one SELECT, INSERT, UPDATE or DELETE; one semicolon may end it. What can't be read, and any
/// other kind of statement, raises error -2147217900 with the server's words ("Incorrect syntax near '…'.")
/// and, as its source, the place: "linha 2, coluna 14". Expressions nest 200 levels deep and hold 200
/// operators at most, so that a walk through the tree never runs out of stack.
StatementNode ParseStatement(std::string_view text);

/// Reads a schema: CREATE TABLE and CREATE INDEX statements parted by semicolons, with comments. Raises the
/// same error, also for a key or index whose column is missing.
Catalog ParseSchema(std::string_view text);

}  // namespace tsql
