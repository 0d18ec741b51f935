#pragma once

#include <string_view>

#include "tsql/ast.h"
#include "tsql/catalog.h"

namespace tsql {

/// Reads exactly one SELECT, INSERT, UPDATE or DELETE; one semicolon may end it. What can't be read, and any other
/// kind of statement, raises error -2147217900 with the server's words ("Incorrect syntax near '…'.") and, as its
/// source, the place: "linha 2, coluna 14".
StatementNode ParseStatement(std::string_view text);

/// Reads a schema: CREATE TABLE and CREATE INDEX statements parted by semicolons, with comments. Raises the same
/// error.
Catalog ParseSchema(std::string_view text);

}  // namespace tsql
