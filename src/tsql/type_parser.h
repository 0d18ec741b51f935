#pragma once

#include "tsql/token_cursor.h"
#include "tsql/types.h"

namespace tsql {

/// Reads a type: "int", "nvarchar(50)", "varbinary(max)". Types of variable width must state it.
Type ParseType(TokenCursor& cursor);

}  // namespace tsql
